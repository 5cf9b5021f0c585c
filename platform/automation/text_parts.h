#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace prot {

/// `text` without the blanks (U+0020 alone) at both ends.
std::string_view trim_blanks(std::string_view text);

/// What stands before, between and behind the separators; at least one part, which may be empty.
std::vector<std::string> split(std::string_view text, char separator);

/// Appends `part` to `text`, each `delimiter` in it twice.
void append_doubled(std::string& text, std::string_view part, char delimiter);

/// Likewise, with a `delimiter` before and behind it.
void append_quoted(std::string& text, std::string_view part, char delimiter);

/// `text` with `replacement` wherever `mark` stands.
std::string replaced(std::string text, std::string_view mark, std::string_view replacement);

}  // namespace prot
