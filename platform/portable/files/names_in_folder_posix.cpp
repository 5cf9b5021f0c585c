#include <dirent.h>

#include <memory>

#include "platform/portable/files/names_in_folder.h"

namespace prot {

namespace {

struct Closer {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

}  // namespace

std::vector<std::filesystem::path> names_in_folder(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> names;
    const std::unique_ptr<DIR, Closer> opened(::opendir(folder.empty() ? "." : folder.c_str()));
    if (!opened) return names;
    while (const dirent* const entry = ::readdir(opened.get())) names.emplace_back(entry->d_name);
    return names;
}

}  // namespace prot
