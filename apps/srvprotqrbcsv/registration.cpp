#include "apps/srvprotqrbcsv/registration.h"

#include <olectl.h>
#include <srvprotqrbcsv.h>

#include <new>
#include <string>
#include <vector>

#include "apps/srvprotqrbcsv/class_table.h"
#include "apps/srvprotqrbcsv/module.h"

namespace prot {

namespace {

constexpr const wchar_t* library_name = L"srvProtQRBCsv";
constexpr const wchar_t* library_description = L"Stammdatenprotokollierung";
constexpr const wchar_t* version = L"1.0";
constexpr const wchar_t* platform = sizeof(void*) == 8 ? L"win64" : L"win32";
constexpr const wchar_t* other_platform = sizeof(void*) == 8 ? L"win32" : L"win64";
/// The system's marshaller of interfaces that a type library describes. Source: OLE Automation.
constexpr const wchar_t* marshaller = L"{00020424-0000-0000-C000-000000000046}";

using Text = std::wstring;

Text text_of(REFGUID guid) {
    wchar_t text[39];
    StringFromGUID2(guid, text, 39);
    return text;
}

/// One value below HKEY_…\Software\Classes; without a name it is the key's own.
struct Entry {
    Text key;
    const wchar_t* name;
    Text value;
};

void add_class(std::vector<Entry>& entries, const AutomationClass& known, const Text& path) {
    const Text id = text_of(known.id);
    const Text program = Text(library_name) + L"." + known.name;
    const Text key = L"CLSID\\" + id;
    entries.insert(entries.end(), {
                                      {program, nullptr, known.description},
                                      {program + L"\\CLSID", nullptr, id},
                                      {key, nullptr, known.description},
                                      {key + L"\\InprocServer32", nullptr, path},
                                      {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
                                      {key + L"\\ProgID", nullptr, program},
                                      {key + L"\\Programmable", nullptr, L""},
                                      {key + L"\\TypeLib", nullptr, text_of(LIBID_srvProtQRBCsv)},
                                      {key + L"\\Version", nullptr, version},
                                  });
}

void add_interface(std::vector<Entry>& entries, REFIID iid, const wchar_t* name) {
    const Text key = L"Interface\\" + text_of(iid);
    entries.insert(entries.end(), {
                                      {key, nullptr, name},
                                      {key + L"\\ProxyStubClsid32", nullptr, marshaller},
                                      {key + L"\\TypeLib", nullptr, text_of(LIBID_srvProtQRBCsv)},
                                      {key + L"\\TypeLib", L"Version", version},
                                  });
}

Text library_key() { return L"TypeLib\\" + text_of(LIBID_srvProtQRBCsv); }

std::vector<Entry> all_entries() {
    const Text path = module::path();
    std::vector<Entry> entries;
    for (const AutomationClass& known : automation_classes()) {
        add_class(entries, known, path);
        add_interface(entries, known.default_interface, known.interface_name);
    }
    add_interface(entries, IID_IProtDatabase, L"IProtDatabase");
    const Text key = library_key() + L"\\" + version;
    entries.insert(entries.end(), {
                                      {key, nullptr, library_description},
                                      {key + L"\\FLAGS", nullptr, L"0"},
                                      {key + L"\\0\\" + platform, nullptr, path},
                                      {key + L"\\HELPDIR", nullptr, path.substr(0, path.rfind(L'\\'))},
                                  });
    return entries;
}

HKEY root_of(RegistrationScope scope) {
    return scope == RegistrationScope::user ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

Text below_classes(const Text& key) { return L"Software\\Classes\\" + key; }

LSTATUS write(HKEY root, const Entry& entry) {
    HKEY key = nullptr;
    const LSTATUS status = RegCreateKeyExW(root, below_classes(entry.key).c_str(), 0, nullptr, 0,
                                           KEY_SET_VALUE, nullptr, &key, nullptr);
    if (status != ERROR_SUCCESS) return status;
    const auto size = static_cast<DWORD>((entry.value.size() + 1) * sizeof(wchar_t));
    const LSTATUS written =
        RegSetValueExW(key, entry.name, 0, REG_SZ, reinterpret_cast<const BYTE*>(entry.value.c_str()), size);
    RegCloseKey(key);
    return written;
}

bool exists(HKEY root, const Text& name) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, below_classes(name).c_str(), 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

/// The keys that go with everything below them.
std::vector<Text> all_keys(HKEY root) {
    std::vector<Text> keys;
    for (const AutomationClass& known : automation_classes()) {
        keys.push_back(L"CLSID\\" + text_of(known.id));
        keys.push_back(L"Interface\\" + text_of(known.default_interface));
    }
    keys.push_back(L"Interface\\" + text_of(IID_IProtDatabase));
    const Text platforms = library_key() + L"\\" + version + L"\\0\\";
    // The library of the other word size, registered as well, is found by the same names of the classes.
    const bool shared = exists(root, platforms + other_platform);
    keys.push_back(shared ? platforms + platform : library_key());
    if (shared) return keys;
    for (const AutomationClass& known : automation_classes())
        keys.push_back(Text(library_name) + L"." + known.name);
    return keys;
}

LSTATUS remove_all(HKEY root) {
    LSTATUS first_failure = ERROR_SUCCESS;
    for (const Text& key : all_keys(root)) {
        const LSTATUS status = RegDeleteTreeW(root, below_classes(key).c_str());
        if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND && first_failure == ERROR_SUCCESS)
            first_failure = status;
    }
    return first_failure;
}

}  // namespace

HRESULT register_server(RegistrationScope scope) noexcept try {
    const HKEY root = root_of(scope);
    for (const Entry& entry : all_entries()) {
        const LSTATUS status = write(root, entry);
        if (status == ERROR_SUCCESS) continue;
        remove_all(root);
        return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
    }
    return S_OK;
} catch (...) {
    return SELFREG_E_CLASS;
}

HRESULT unregister_server(RegistrationScope scope) noexcept try {
    return HRESULT_FROM_WIN32(static_cast<DWORD>(remove_all(root_of(scope))));
} catch (...) {
    return SELFREG_E_CLASS;
}

}  // namespace prot
