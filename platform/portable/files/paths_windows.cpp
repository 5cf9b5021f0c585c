#include <windows.h>

#include <algorithm>
#include <system_error>

#include "platform/automation/utf8.h"
#include "platform/portable/files/paths.h"

namespace prot {

namespace {

namespace fs = std::filesystem;

bool is_separator(wchar_t c) { return c == L'\\' || c == L'/'; }

// \\server\share\…, \\.\device, \\?\path as it stands
bool has_two_separators(std::wstring_view path) {
    return path.size() > 2 && is_separator(path[0]) && is_separator(path[1]);
}

bool is_literal(std::wstring_view path) {
    return path.starts_with(L"\\\\?\\") || path.starts_with(L"\\\\.\\");
}

}  // namespace

std::string path_text(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

fs::path text_path(std::string_view text) {
    std::u32string code_points = decode_utf8(text);
    std::ranges::replace_if(code_points, is_stray_byte, replacement_character);
    return {code_points};
}

bool is_absolute_path(const fs::path& path) {
    return path.is_absolute() || has_two_separators(path.native());
}

fs::path joined_path(const fs::path& folder, const fs::path& name) {
    return has_two_separators(name.native()) ? name : folder / name;
}

fs::path shortest_path(const fs::path& path) {
    if (is_literal(path.native())) return path;
    if (!has_two_separators(path.native())) return path.lexically_normal();
    return fs::path(L"\\" + fs::path(path.native().substr(1)).lexically_normal().native());
}

fs::path absolute_path(const fs::path& path) {
    std::wstring full;
    DWORD size = MAX_PATH;
    do {
        full.resize(size);
        size = GetFullPathNameW(path.c_str(), size, full.data(), nullptr);
        if (size == 0)
            throw fs::filesystem_error("GetFullPathName", path,
                                       {static_cast<int>(GetLastError()), std::system_category()});
    } while (size > full.size());
    full.resize(size);
    return {full};
}

}  // namespace prot
