#include <windows.h>

#include "platform/portable/files/names_in_folder.h"

namespace prot {

std::vector<std::filesystem::path> names_in_folder(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> names;
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((folder.empty() ? L"*" : folder / L"*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do names.emplace_back(found.cFileName);
    while (FindNextFileW(search, &found) != 0);
    FindClose(search);
    return names;
}

}  // namespace prot
