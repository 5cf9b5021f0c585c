#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace prot {

/// The value of a literal that stands as a parameter (?) in a translated statement.
using TsqlParameter = std::variant<std::int64_t, double, std::string>;

/// Where the literal that became a parameter stands.
struct TsqlLiteral {
    std::size_t offset =
        0;  ///< bytes from the start of the text that was translated; N of N'text' not counted
    bool negative = false;  ///< a minus sign stands before it
};

/// One T-SQL statement in SQLite's dialect.
struct TsqlStatement {
    enum class Kind : std::uint8_t {
        query,                 ///< SELECT
        fill_temporary_table,  ///< SELECT … INTO #t: `text` is the SELECT without INTO, `temporary_table` is
                               ///< #t
        command  ///< DELETE, or DROP TABLE of a temporary table
    };

    Kind kind = Kind::query;
    std::string text;
    std::vector<TsqlParameter> parameters;  ///< in the order of the question marks
    std::vector<TsqlLiteral> literals;      ///< that the parameters were
    std::string temporary_table;            ///< the name with its #
    std::string_view source;                ///< the statement as written; points into the translated text

    // Of a query whose answer other bounds share (see tsql_first_behind.h), known to TsqlTranslations only:
    std::string
        text_with_place;    ///< `text` with a second column, the place of the answer; empty: no such query
    std::size_t bound = 0;  ///< index of the parameter
};

/// Translates a batch of T-SQL statements, with or without semicolons between them, for SQLite. A pure
/// function; nothing is returned unless all of the batch is understood, everything else is refused (see
/// refuse_statement).
///
/// Understood:
/// - SELECT [ALL|DISTINCT] [TOP n] … [INTO #t] [FROM …] [WHERE …] [GROUP BY columns [HAVING …]] [ORDER BY …],
/// with
///   UNION [ALL], EXCEPT, INTERSECT; comma joins, INNER, LEFT and CROSS JOIN, parenthesised joins, derived
///   tables;
/// - DELETE [FROM] T [WHERE …]; DROP TABLE [IF EXISTS] #t;
/// - conditions of comparisons, AND, OR, NOT, BETWEEN, IN, LIKE, IS NULL, EXISTS; COUNT, MIN, MAX, SUM.
///
/// What differs between the two dialects and is rewritten:
/// - TOP n becomes LIMIT n at the end of its SELECT;
/// - any parentheses around a subquery stand for its whole row set, as on the server; SQLite would read
///   IN ((SELECT …)) as a single value. A list such as IN ((SELECT …), 3) keeps its single values;
/// - a table that only repeats the rows of a subquery in IN ( … ) gives one row: FROM A, B becomes
///   FROM A, (SELECT 1 FROM B LIMIT 1) when no column is B's. The server sees by itself that the list does
///   not change; SQLite would go through every row of A for each of B's. For the conditions of this rule see
///   tsql_cross_product.h;
/// - #t is looked for among the connection's temporary tables only;
/// - the rows of a DELETE are chosen before the first is deleted;
/// - every name is quoted, so that no name is a keyword or a constant of SQLite's.
///
/// Refused because SQLite would run it with another meaning: arithmetic (+ joins texts and adds days on the
/// server), all other functions, an empty IN (), LIKE patterns with [ ] sets or from a column, INTERSECT
/// behind UNION without parentheses.
///
/// Numbers and texts in WHERE become parameters, so that statements of one shape have one text; beyond
/// `most_parameters` they stay in the text, since a longer list is no shape that comes again.
inline constexpr std::size_t most_parameters = 250;

std::vector<TsqlStatement> translate_tsql(std::string_view text);

/// Translates a text that is one query; anything else is refused. The result points into `text`.
TsqlStatement translate_query(std::string_view text);

}  // namespace prot
