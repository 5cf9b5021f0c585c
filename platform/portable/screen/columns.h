#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Text as a terminal shows it. How wide a character is depends on the locale's LC_CTYPE; where it does not
/// know a character, one column is assumed.
namespace prot {

int columns(char32_t character);
int columns(std::string_view text);

/// `text` with a question mark for each character that a terminal would obey instead of showing it.
std::string printable(std::string_view text);

/// `text` in at most `width` columns, an ellipsis at its end when something is missing.
std::string cut_to(std::string_view text, int width);

/// The lines of `text` (LF or CR LF between them), broken at blanks where one is wider than `width`, and
/// within a word where there is none. A line feed at the end begins no line. Indentation goes
/// on in the lines that continue one.
std::vector<std::string> wrapped(std::string_view text, int width);

}  // namespace prot
