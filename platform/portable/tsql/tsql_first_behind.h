#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace prot {

/// A query for the first row at or behind a bound, whose answer other bounds share.
struct TsqlFirstBehind {
    std::string with_place;  ///< the query in T-SQL with a second column: where the answer stands
    std::size_t bound = 0;   ///< bytes from its start to the bound's literal; N of N'text' not counted
};

/// Tells whether `text` is SELECT TOP 1 a FROM T WHERE … AND c >= 'bound' AND … ORDER BY c, each further
/// condition being another column that is compared with a literal. The answer is the same, then, for every
/// bound from this one up to the c of the answer, and for every later bound when there is no answer.
std::optional<TsqlFirstBehind> find_first_behind(std::string_view text);

}  // namespace prot
