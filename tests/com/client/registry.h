#pragma once

#include <windows.h>

#include <compare>
#include <optional>
#include <string>
#include <vector>

namespace prot::test {

/// One value below HKEY_…\Software\Classes, or, without data, that a key is there.
struct RegistryEntry {
    std::wstring key;
    std::wstring name;  ///< empty: the key's own value
    std::optional<std::wstring> data;
    auto operator<=>(const RegistryEntry&) const = default;
};

/// The key and all below it, in the registry's order; empty when it does not exist.
std::vector<RegistryEntry> registry_tree(HKEY root, const std::wstring& key);

std::optional<std::wstring> registry_text(HKEY root, const std::wstring& key, const std::wstring& name = {});
void write_registry_text(HKEY root, const std::wstring& key, const std::wstring& data,
                         const std::wstring& name = {});
bool registry_key_exists(HKEY root, const std::wstring& key);
void remove_registry_tree(HKEY root, const std::wstring& key);

/// The topmost keys of the server's own registration.
const std::vector<std::wstring>& server_keys();

/// Takes the server's registration out of the way, and puts it back at the end: a machine on which the tests
/// run may be one where the server is in use.
class RegistrationAside {
public:
    RegistrationAside();
    ~RegistrationAside();
    RegistrationAside(const RegistrationAside&) = delete;
    RegistrationAside& operator=(const RegistrationAside&) = delete;

private:
    std::vector<RegistryEntry> machine_, user_;
};

}  // namespace prot::test
