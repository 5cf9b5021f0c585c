#include "platform/portable/files/temporary_name.h"

#include <cstdint>
#include <random>
#include <string>

#include "platform/automation/utf8.h"
#include "platform/portable/files/paths.h"

namespace prot {

std::filesystem::path temporary_name(const std::filesystem::path& target) {
    constexpr std::size_t longest = 200;
    std::string name = path_text(target.filename());
    name.resize(whole_characters(name, longest).size());
    std::random_device random;
    std::uint64_t bits = static_cast<std::uint64_t>(random()) << 32 | random();
    name += '.';
    for (int digit = 0; digit < 16; ++digit, bits >>= 4) name += "0123456789abcdef"[bits & 0xF];
    return target.parent_path() / text_path(name + ".tmp");
}

}  // namespace prot
