#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace prot {

/// An XHTML page (UTF-8) as plain text for a terminal; nothing when the file cannot be read or is
/// no XML with a body.
///
/// Known are h1, h2, p, ul, ol, table, and within them li, tr, th, td, b, code, a; any other element counts
/// for what it contains. Headings are underlined, list entries begin with "- " or their number. A table row
/// of two cells becomes `first: second`; one of more cells its first cell, and below it, for each of the
/// others, the heading of the column and the cell. Lines hold at most `width` characters (code points) where
/// their words allow it; blank lines separate the blocks, the text ends with a line feed.
std::optional<std::string> page_text(const std::filesystem::path& page, std::size_t width);

}  // namespace prot
