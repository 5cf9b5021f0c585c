#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace prot {

/// The one of `names` that a person who wrote `text` most likely meant: the first of those that are the
/// fewest mistypings away, a third of the letters of `text` at most and one at least. A mistyping is a letter
/// too many, too few or wrong, or two letters in the wrong order; letter case does not matter. Empty without
/// such a name.
std::string_view likely_meant(std::string_view text, const std::vector<std::string_view>& names);

/// "; meinten Sie NAME?" for the name likely_meant finds, else empty.
std::string suggestion(std::string_view text, const std::vector<std::string_view>& names);

}  // namespace prot
