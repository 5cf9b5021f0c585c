#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace prot {

/// `text` without the blanks (U+0020 alone) at both ends.
std::string_view trim_blanks(std::string_view text);

/// What stands before, between and behind the separators; at least one part, which may be empty.
std::vector<std::string> split(std::string_view text, char separator);

}  // namespace prot
