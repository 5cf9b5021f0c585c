#include "platform/portable/files/numbered_name.h"

#include <string>

namespace prot {

std::filesystem::path numbered_name(const std::filesystem::path& path, int number) {
    if (number == 1) return path;
    std::filesystem::path name = path.stem();
    name += "-" + std::to_string(number);
    name += path.extension();
    return path.parent_path() / name;
}

}  // namespace prot
