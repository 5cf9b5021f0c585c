#include <windows.h>

#include <string>

#include "platform/portable/files/program_folder.h"

namespace prot {

namespace {

/// The module that this code was linked into: a library asks for its own folder, not its host's.
HMODULE own_module() {
    static const int within = 0;
    HMODULE module = nullptr;
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    return GetModuleHandleExW(flags, reinterpret_cast<LPCWSTR>(&within), &module) ? module : nullptr;
}

}  // namespace

std::filesystem::path program_folder() {
    constexpr std::size_t longest_path = 32768;
    const HMODULE module = own_module();
    for (std::wstring name(MAX_PATH, L'\0'); module && name.size() <= longest_path;
         name.resize(name.size() * 2)) {
        const DWORD length = GetModuleFileNameW(module, name.data(), static_cast<DWORD>(name.size()));
        if (length == 0) break;
        // A name that does not fit is cut off and fills the buffer.
        if (length < name.size()) return std::filesystem::path(name.substr(0, length)).parent_path();
    }
    return {};
}

}  // namespace prot
