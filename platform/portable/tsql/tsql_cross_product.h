#pragma once

#include <vector>

#include "platform/portable/tsql/tsql_tokens.h"

namespace prot {

/// The tables in FROM that do nothing but repeat the rows of a subquery in IN ( … ): no column in it is
/// theirs. Each is named by its token. What the list holds stays the same when such a table gives one of its
/// rows only, or none when it is empty. `open`: index of the "(" in front of the SELECT; further parentheses
/// may follow it.
///
/// Only what can be told without knowing the tables' columns: SELECT, FROM and WHERE, inner subqueries
/// included, where every column stands with its table and every FROM lists different tables, by their own
/// names, between commas. For anything else the answer is empty.
std::vector<const Token*> repeating_tables(const std::vector<Token>& tokens, std::size_t open);

}  // namespace prot
