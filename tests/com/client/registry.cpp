#include "tests/com/client/registry.h"

namespace prot::test {

namespace {

std::wstring below_classes(const std::wstring& key) {
    return key.empty() ? L"Software\\Classes" : L"Software\\Classes\\" + key;
}

class Key {
public:
    Key(HKEY root, const std::wstring& name) {
        if (RegOpenKeyExW(root, below_classes(name).c_str(), 0, KEY_READ, &raw_) != ERROR_SUCCESS)
            raw_ = nullptr;
    }
    ~Key() {
        if (raw_) RegCloseKey(raw_);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    HKEY borrow() const { return raw_; }

private:
    HKEY raw_ = nullptr;
};

void append_values(std::vector<RegistryEntry>& entries, const Key& key, const std::wstring& name) {
    std::vector<wchar_t> value_name(1024), data(4096);
    for (DWORD i = 0;; ++i) {
        auto name_size = static_cast<DWORD>(value_name.size());
        auto data_size = static_cast<DWORD>(data.size() * sizeof(wchar_t));
        if (RegEnumValueW(key.borrow(), i, value_name.data(), &name_size, nullptr, nullptr,
                          reinterpret_cast<BYTE*>(data.data()), &data_size) != ERROR_SUCCESS)
            return;
        std::wstring text(data.data(), data_size / sizeof(wchar_t));
        if (!text.empty() && text.back() == L'\0') text.pop_back();
        entries.push_back({name, std::wstring(value_name.data(), name_size), text});
    }
}

void append_tree(std::vector<RegistryEntry>& entries, HKEY root, const std::wstring& name) {
    const Key key(root, name);
    if (!key.borrow()) return;
    entries.push_back({name, {}, std::nullopt});
    append_values(entries, key, name);
    for (DWORD i = 0;; ++i) {
        wchar_t child[256];
        DWORD size = 256;
        if (RegEnumKeyExW(key.borrow(), i, child, &size, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            return;
        append_tree(entries, root, name.empty() ? std::wstring(child, size) : name + L"\\" + child);
    }
}

std::vector<RegistryEntry> taken_out(HKEY root) {
    std::vector<RegistryEntry> entries;
    for (const std::wstring& key : server_keys()) {
        append_tree(entries, root, key);
        remove_registry_tree(root, key);
    }
    return entries;
}

void put_back(HKEY root, const std::vector<RegistryEntry>& entries) {
    for (const std::wstring& key : server_keys()) remove_registry_tree(root, key);
    for (const RegistryEntry& entry : entries)
        if (entry.data) write_registry_text(root, entry.key, *entry.data, entry.name);
}

}  // namespace

std::vector<RegistryEntry> registry_tree(HKEY root, const std::wstring& key) {
    std::vector<RegistryEntry> entries;
    append_tree(entries, root, key);
    return entries;
}

std::optional<std::wstring> registry_text(HKEY root, const std::wstring& key, const std::wstring& name) {
    const Key opened(root, key);
    std::vector<RegistryEntry> values;
    if (opened.borrow()) append_values(values, opened, key);
    for (const RegistryEntry& value : values)
        if (value.name == name) return value.data;
    return std::nullopt;
}

void write_registry_text(HKEY root, const std::wstring& key, const std::wstring& data,
                         const std::wstring& name) {
    HKEY opened = nullptr;
    if (RegCreateKeyExW(root, below_classes(key).c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &opened,
                        nullptr) != ERROR_SUCCESS)
        return;
    RegSetValueExW(opened, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(data.c_str()),
                   static_cast<DWORD>((data.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(opened);
}

bool registry_key_exists(HKEY root, const std::wstring& key) { return Key(root, key).borrow() != nullptr; }

void remove_registry_tree(HKEY root, const std::wstring& key) {
    RegDeleteTreeW(root, below_classes(key).c_str());
}

const std::vector<std::wstring>& server_keys() {
    static const std::vector<std::wstring> keys = {
        L"srvProtQRBCsv.ProtCsvClass",
        L"srvProtQRBCsv.CProtDevCsv",
        L"CLSID\\{7CF421E2-819D-40E3-8487-AEFC195F0CEA}",
        L"CLSID\\{549A2ED9-27E2-43A3-82AC-63D00F6B5E10}",
        L"Interface\\{8A93D734-8E4C-4B04-9E01-C0AB31CBDA2B}",
        L"Interface\\{D71B1F5F-DAEE-4096-BE04-5CACD6A0E88D}",
        L"Interface\\{541A1A68-8498-4E44-8D11-8C5E821735F9}",
        L"TypeLib\\{F03A3FFE-0999-4A3B-8C95-1072CF7C6D7C}",
    };
    return keys;
}

RegistrationAside::RegistrationAside()
    : machine_(taken_out(HKEY_LOCAL_MACHINE)), user_(taken_out(HKEY_CURRENT_USER)) {}

RegistrationAside::~RegistrationAside() {
    put_back(HKEY_LOCAL_MACHINE, machine_);
    put_back(HKEY_CURRENT_USER, user_);
}

}  // namespace prot::test
