#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace prot {

/// The error number of a statement that was refused before it reached SQLite. SQLite's own result codes, to
/// which 0x80040000 is added likewise, stay below 0xF000.
inline constexpr std::int32_t statement_refused = static_cast<std::int32_t>(0x8004F000);

/// A place in a statement, as a person counts it: both from 1, columns in characters. Lines end in LF.
struct TextPlace {
    std::size_t line = 1;
    std::size_t column = 1;
};

TextPlace place_of(std::string_view text, std::size_t offset);

/// Raises an AutomationError (statement_refused, source "SQLite") that says in German why `statement` is
/// refused, with the line, the column and the text at byte `offset`, followed by the statement. `size`: bytes
/// of the offending text; 0 at the end of the statement. `reason`: a German sentence without its full stop.
[[noreturn]] void refuse_statement(std::string_view statement, std::size_t offset, std::size_t size,
                                   std::string_view reason);

}  // namespace prot
