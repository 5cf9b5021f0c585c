#include <system_error>

#include "platform/portable/files/program_folder.h"

namespace prot {

std::filesystem::path program_folder() {
    std::error_code untold;
    return std::filesystem::read_symlink("/proc/self/exe", untold).parent_path();
}

}  // namespace prot
