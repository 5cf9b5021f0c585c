#include "platform/portable/files/folder_access.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace prot {

std::error_code folder_refusal(const std::filesystem::path& folder) {
    const char* const path = folder.empty() ? "." : folder.c_str();
    if (::faccessat(AT_FDCWD, path, W_OK | X_OK, AT_EACCESS) == 0) return {};
    return {errno, std::generic_category()};
}

}  // namespace prot
