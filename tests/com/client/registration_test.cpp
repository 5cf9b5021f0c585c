#include <algorithm>

#include "platform/windows/text/wide_text.h"
#include "tests/com/client/registry.h"
#include "tests/com/client/server_test.h"

namespace prot::test {

namespace {

class Registration : public ServerTest {
    RegistrationAside aside_;
};

const std::wstring library_guid = L"{F03A3FFE-0999-4A3B-8C95-1072CF7C6D7C}";
const std::wstring entry_guid = L"{7CF421E2-819D-40E3-8487-AEFC195F0CEA}";
const std::wstring rates_guid = L"{549A2ED9-27E2-43A3-82AC-63D00F6B5E10}";
const std::wstring marshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* own_platform = sizeof(void*) == 8 ? L"win64" : L"win32";
constexpr const wchar_t* other_platform = sizeof(void*) == 8 ? L"win32" : L"win64";

std::wstring version_key() { return L"TypeLib\\" + library_guid + L"\\1.0"; }

void add_class(std::vector<RegistryEntry>& entries, const std::wstring& guid, const std::wstring& program,
               const std::wstring& description) {
    const std::wstring key = L"CLSID\\" + guid;
    entries.insert(entries.end(), {
                                      {program, L"", description},
                                      {program + L"\\CLSID", L"", guid},
                                      {key, L"", description},
                                      {key + L"\\InprocServer32", L"", server_path()},
                                      {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
                                      {key + L"\\ProgID", L"", program},
                                      {key + L"\\Programmable", L"", L""},
                                      {key + L"\\TypeLib", L"", library_guid},
                                      {key + L"\\Version", L"", L"1.0"},
                                  });
}

void add_interface(std::vector<RegistryEntry>& entries, const std::wstring& guid, const std::wstring& name) {
    const std::wstring key = L"Interface\\" + guid;
    entries.insert(entries.end(), {
                                      {key, L"", name},
                                      {key + L"\\ProxyStubClsid32", L"", marshaller},
                                      {key + L"\\TypeLib", L"", library_guid},
                                      {key + L"\\TypeLib", L"Version", L"1.0"},
                                  });
}

/// Every value that a registration consists of.
std::vector<RegistryEntry> all_values() {
    std::vector<RegistryEntry> entries;
    add_class(entries, entry_guid, L"srvProtQRBCsv.ProtCsvClass", L"Stammdatenprotokollierung");
    add_class(entries, rates_guid, L"srvProtQRBCsv.CProtDevCsv", L"Stammdatenprotokollierung, Devisenkurse");
    add_interface(entries, L"{8A93D734-8E4C-4B04-9E01-C0AB31CBDA2B}", L"_ProtCsvClass");
    add_interface(entries, L"{D71B1F5F-DAEE-4096-BE04-5CACD6A0E88D}", L"_CProtDevCsv");
    add_interface(entries, L"{541A1A68-8498-4E44-8D11-8C5E821735F9}", L"IProtDatabase");
    const std::wstring path = server_path();
    entries.insert(entries.end(), {
                                      {version_key(), L"", L"Stammdatenprotokollierung"},
                                      {version_key() + L"\\FLAGS", L"", L"0"},
                                      {version_key() + L"\\0\\" + own_platform, L"", path},
                                      {version_key() + L"\\HELPDIR", L"", path.substr(0, path.rfind(L'\\'))},
                                  });
    return entries;
}

/// All values below the server's keys that are there.
std::vector<RegistryEntry> values_there(HKEY root) {
    std::vector<RegistryEntry> values;
    for (const std::wstring& key : server_keys())
        for (RegistryEntry& entry : registry_tree(root, key))
            if (entry.data) values.push_back(std::move(entry));
    std::ranges::sort(values);
    return values;
}

void expect_registered(HKEY root) {
    std::vector<RegistryEntry> expected = all_values();
    std::ranges::sort(expected);
    const std::vector<RegistryEntry> seen = values_there(root);
    for (const RegistryEntry& value : expected)
        EXPECT_EQ(registry_text(root, value.key, value.name), value.data)
            << to_utf8(value.key + L" " + value.name);
    EXPECT_EQ(seen.size(), expected.size());
    EXPECT_TRUE(seen == expected) << "There are values that nobody expects.";
}

void expect_nothing(HKEY root) {
    for (const std::wstring& key : server_keys())
        EXPECT_FALSE(registry_key_exists(root, key)) << to_utf8(key);
}

/// What belongs to others: all of Software\Classes while the server is not registered, but for that key and
/// those that hold everyone's classes, interfaces and type libraries: a user's first registration makes them,
/// and they stay.
std::vector<RegistryEntry> all_classes(HKEY root) {
    const std::vector<RegistryEntry> shared = {
        {L"", {}, {}}, {L"CLSID", {}, {}}, {L"Interface", {}, {}}, {L"TypeLib", {}, {}}};
    std::vector<RegistryEntry> entries = registry_tree(root, L"");
    std::erase_if(entries, [&](const RegistryEntry& entry) {
        return std::ranges::find(shared, entry) != shared.end();
    });
    return entries;
}

}  // namespace

TEST_F(Registration, ForTheMachineWritesEachValueAndTakesAwayAllOfThem) {
    const auto before = all_classes(HKEY_LOCAL_MACHINE);
    EXPECT_GT(before.size(), 1000U);
    EXPECT_EQ(server.register_server(), S_OK);
    expect_registered(HKEY_LOCAL_MACHINE);
    expect_nothing(HKEY_CURRENT_USER);
    EXPECT_EQ(server.unregister_server(), S_OK);
    expect_nothing(HKEY_LOCAL_MACHINE);
    EXPECT_TRUE(all_classes(HKEY_LOCAL_MACHINE) == before) << "Entries of others have changed.";
}

// What such a registration is for, activation through keys of one user, Wine does not have: it looks for
// classes in those of the machine alone.
TEST_F(Registration, ForOneUserWritesEachValueAndTakesAwayAllOfThem) {
    const auto before = all_classes(HKEY_CURRENT_USER);
    const auto machine_before = all_classes(HKEY_LOCAL_MACHINE);
    EXPECT_EQ(server.install(true, L"user"), S_OK);
    expect_registered(HKEY_CURRENT_USER);
    EXPECT_TRUE(all_classes(HKEY_LOCAL_MACHINE) == machine_before);
    EXPECT_EQ(server.install(false, L"user"), S_OK);
    expect_nothing(HKEY_CURRENT_USER);
    EXPECT_TRUE(all_classes(HKEY_CURRENT_USER) == before) << "Entries of others have changed.";
}

TEST_F(Registration, ByInstallationWithoutAWordIsForTheMachine) {
    for (const wchar_t* const word : {static_cast<const wchar_t*>(nullptr), L""}) {
        EXPECT_EQ(server.install(true, word), S_OK);
        expect_registered(HKEY_LOCAL_MACHINE);
        EXPECT_EQ(server.install(false, word), S_OK);
        expect_nothing(HKEY_LOCAL_MACHINE);
    }
}

TEST_F(Registration, ByInstallationWithAnotherWordIsRefused) {
    for (const wchar_t* const word : {L"users", L"User", L"machine", L" "}) {
        EXPECT_EQ(server.install(true, word), E_INVALIDARG);
        EXPECT_EQ(server.install(false, word), E_INVALIDARG);
    }
    expect_nothing(HKEY_LOCAL_MACHINE);
    expect_nothing(HKEY_CURRENT_USER);
}

TEST_F(Registration, TwiceIsLikeOnceAndTakenAwayTwiceIsNoError) {
    EXPECT_EQ(server.register_server(), S_OK);
    EXPECT_EQ(server.register_server(), S_OK);
    expect_registered(HKEY_LOCAL_MACHINE);
    EXPECT_EQ(server.unregister_server(), S_OK);
    EXPECT_EQ(server.unregister_server(), S_OK);
    EXPECT_EQ(server.install(false, L"user"), S_OK);
    expect_nothing(HKEY_LOCAL_MACHINE);
}

TEST_F(Registration, TakesTheNewPathWhenTheServerHasMoved) {
    write_registry_text(HKEY_LOCAL_MACHINE, L"CLSID\\" + entry_guid + L"\\InprocServer32",
                        L"C:\\früher\\srv.dll");
    EXPECT_EQ(server.register_server(), S_OK);
    expect_registered(HKEY_LOCAL_MACHINE);
    EXPECT_EQ(server.unregister_server(), S_OK);
}

TEST_F(Registration, TakenAwayLeavesWhatTheLibraryOfTheOtherWordSizeShares) {
    const std::wstring other = version_key() + L"\\0\\" + other_platform;
    write_registry_text(HKEY_LOCAL_MACHINE, other, L"C:\\anderswo\\srvprotqrbcsv.dll");
    EXPECT_EQ(server.register_server(), S_OK);
    EXPECT_EQ(server.unregister_server(), S_OK);
    EXPECT_EQ(registry_text(HKEY_LOCAL_MACHINE, other), L"C:\\anderswo\\srvprotqrbcsv.dll");
    EXPECT_EQ(registry_text(HKEY_LOCAL_MACHINE, version_key()), L"Stammdatenprotokollierung");
    EXPECT_FALSE(registry_key_exists(HKEY_LOCAL_MACHINE, version_key() + L"\\0\\" + own_platform));
    // It is found by the same names.
    for (const wchar_t* const program : {L"srvProtQRBCsv.ProtCsvClass", L"srvProtQRBCsv.CProtDevCsv"})
        EXPECT_TRUE(registry_key_exists(HKEY_LOCAL_MACHINE, std::wstring(program) + L"\\CLSID"));
}

TEST_F(Registration, LetsClientsCreateTheClassesByTheirProgrammaticIdentifiers) {
    ASSERT_EQ(server.register_server(), S_OK);
    for (const wchar_t* const program : {L"srvProtQRBCsv.ProtCsvClass", L"SRVPROTQRBCSV.CPROTDEVCSV"}) {
        CLSID class_id = {};
        EXPECT_EQ(CLSIDFromProgID(program, &class_id), S_OK);
        void* found = nullptr;
        ASSERT_EQ(CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &found), S_OK);
        const auto exporter = ComPtr<IDispatch>::adopt(static_cast<IDispatch*>(found));
        const Bstr autostart("/autostart");
        EXPECT_EQ(put(*exporter.borrow(), L"psCommandline", text(autostart)).result, S_OK);
        NamedDatabase database;
        const OutputFolder own;
        EXPECT_EQ(export_by_name(*exporter.borrow(), &database).result, S_OK);
        EXPECT_EQ(own.only_file(), sample_file());
    }
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_EQ(server.unregister_server(), S_OK);
}

TEST_F(Registration, LetsClientsFindTheTypeLibrary) {
    ComPtr<ITypeLib> library;
    EXPECT_TRUE(FAILED(LoadRegTypeLib(LIBID_srvProtQRBCsv, 1, 0, LOCALE_NEUTRAL, library.receive())));
    ASSERT_EQ(server.register_server(), S_OK);
    EXPECT_EQ(LoadRegTypeLib(LIBID_srvProtQRBCsv, 1, 0, LOCALE_NEUTRAL, library.receive()), S_OK);
    EXPECT_TRUE(library);
    EXPECT_EQ(server.unregister_server(), S_OK);
}

}  // namespace prot::test
