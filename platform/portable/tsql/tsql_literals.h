#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/tsql/tsql_dialect.h"

namespace prot {

/// The value of a literal, 'text', N'text' or a number, as SQLite reads it: a whole number of 64 bits, every
/// other number a floating-point number. Nothing when a number is too large or too small for that.
std::optional<TsqlParameter> literal_value(std::string_view literal, bool negative);

/// A T-SQL text and its literals apart. Two texts of one shape whose literals inside names and comments are
/// the same, which are taken out likewise, are the same tokens but for the values of their literals.
struct TsqlShape {
    std::string text;  ///< a mark in place of each literal, one for texts, one for numbers
    std::vector<std::string_view> literals;  ///< as written, without the N of N'text'
};

/// Takes `sql` apart into `shape`. False for a text that has no shape: an apostrophe without partner, a mark.
bool take_shape(std::string_view sql, TsqlShape& shape);

}  // namespace prot
