#include "platform/portable/files/unfinished_files.h"

#include <algorithm>
#include <chrono>

#include "platform/portable/files/names_in_folder.h"
#include "platform/portable/files/paths.h"
#include "platform/portable/files/remove_if_free.h"

namespace prot {

namespace {

namespace fs = std::filesystem;

constexpr std::chrono::hours patience(24);

bool is_left_over(const fs::path& file) {
    std::error_code ignored;
    return fs::symlink_status(file, ignored).type() == fs::file_type::regular &&
           fs::file_time_type::clock::now() - fs::last_write_time(file, ignored) > patience && !ignored;
}

}  // namespace

bool is_temporary_name(const fs::path& name) {
    constexpr std::string_view ending = ".tmp", hexadecimal = "0123456789abcdef";
    constexpr std::size_t digits = 16;
    const std::string text = path_text(name.filename());
    if (text.size() < 2 + digits + ending.size() || !text.ends_with(ending)) return false;
    const std::string_view number =
        std::string_view(text).substr(text.size() - ending.size() - digits, digits);
    return number.find_first_not_of(hexadecimal) == std::string_view::npos &&
           text[text.size() - ending.size() - digits - 1] == '.';
}

void remove_unfinished_files(const fs::path& folder) noexcept {
    try {
        for (const fs::path& name : names_in_folder(folder))
            if (is_temporary_name(name) && is_left_over(folder / name)) remove_if_free(folder / name);
    } catch (const std::exception&) {
        // What cannot be looked at stays.
    }
}

}  // namespace prot
