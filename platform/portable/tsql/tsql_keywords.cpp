#include "platform/portable/tsql/tsql_keywords.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

#include "platform/automation/ascii.h"
#include "platform/automation/letter_case.h"

namespace prot {

namespace {

struct Word {
    std::string_view text;
    Keyword keyword = Keyword::reserved;
};

// Sorted, so that the words of one first letter stand together. Source: T-SQL reference, reserved keywords.
// clang-format off
constexpr Word words[] = {
    {"ADD"}, {"ALL", Keyword::all}, {"ALTER"}, {"AND", Keyword::and_}, {"ANY"}, {"AS", Keyword::as},
    {"ASC", Keyword::asc}, {"AUTHORIZATION"}, {"BACKUP"}, {"BEGIN"}, {"BETWEEN", Keyword::between}, {"BREAK"},
    {"BROWSE"}, {"BULK"}, {"BY", Keyword::by}, {"CASCADE"}, {"CASE"}, {"CHECK"}, {"CHECKPOINT"}, {"CLOSE"},
    {"CLUSTERED"}, {"COALESCE"}, {"COLLATE"}, {"COLUMN"}, {"COMMIT"}, {"COMPUTE"}, {"CONSTRAINT"},
    {"CONTAINS"}, {"CONTAINSTABLE"}, {"CONTINUE"}, {"CONVERT"}, {"CREATE"}, {"CROSS", Keyword::cross},
    {"CURRENT"}, {"CURRENT_DATE"}, {"CURRENT_TIME"}, {"CURRENT_TIMESTAMP"}, {"CURRENT_USER"}, {"CURSOR"},
    {"DATABASE"}, {"DBCC"}, {"DEALLOCATE"}, {"DECLARE"}, {"DEFAULT"}, {"DELETE", Keyword::delete_}, {"DENY"},
    {"DESC", Keyword::desc}, {"DISK"}, {"DISTINCT", Keyword::distinct}, {"DISTRIBUTED"}, {"DOUBLE"},
    {"DROP", Keyword::drop}, {"DUMP"}, {"ELSE"}, {"END"}, {"ERRLVL"}, {"ESCAPE"}, {"EXCEPT", Keyword::except},
    {"EXEC"}, {"EXECUTE"}, {"EXISTS", Keyword::exists}, {"EXIT"}, {"EXTERNAL"}, {"FETCH"}, {"FILE"},
    {"FILLFACTOR"}, {"FOR"}, {"FOREIGN"}, {"FREETEXT"}, {"FREETEXTTABLE"}, {"FROM", Keyword::from}, {"FULL"},
    {"FUNCTION"}, {"GOTO"}, {"GRANT"}, {"GROUP", Keyword::group}, {"HAVING", Keyword::having}, {"HOLDLOCK"},
    {"IDENTITY"}, {"IDENTITYCOL"}, {"IDENTITY_INSERT"}, {"IF", Keyword::if_}, {"IN", Keyword::in}, {"INDEX"},
    {"INNER", Keyword::inner}, {"INSERT"}, {"INTERSECT", Keyword::intersect}, {"INTO", Keyword::into},
    {"IS", Keyword::is}, {"JOIN", Keyword::join}, {"KEY"}, {"KILL"}, {"LEFT", Keyword::left},
    {"LIKE", Keyword::like}, {"LINENO"}, {"LOAD"}, {"MERGE"}, {"NATIONAL"}, {"NOCHECK"}, {"NONCLUSTERED"},
    {"NOT", Keyword::not_}, {"NULL", Keyword::null}, {"NULLIF"}, {"OF"}, {"OFF"}, {"OFFSETS"},
    {"ON", Keyword::on}, {"OPEN"}, {"OPENDATASOURCE"}, {"OPENQUERY"}, {"OPENROWSET"}, {"OPENXML"}, {"OPTION"},
    {"OR", Keyword::or_}, {"ORDER", Keyword::order}, {"OUTER", Keyword::outer}, {"OVER"}, {"PERCENT"},
    {"PIVOT"}, {"PLAN"}, {"PRECISION"}, {"PRIMARY"}, {"PRINT"}, {"PROC"}, {"PROCEDURE"}, {"PUBLIC"},
    {"RAISERROR"}, {"READ"}, {"READTEXT"}, {"RECONFIGURE"}, {"REFERENCES"}, {"REPLICATION"}, {"RESTORE"},
    {"RESTRICT"}, {"RETURN"}, {"REVERT"}, {"REVOKE"}, {"RIGHT"}, {"ROLLBACK"}, {"ROWCOUNT"}, {"ROWGUIDCOL"},
    {"RULE"}, {"SAVE"}, {"SCHEMA"}, {"SECURITYAUDIT"}, {"SELECT", Keyword::select}, {"SEMANTICKEYPHRASETABLE"},
    {"SEMANTICSIMILARITYDETAILSTABLE"}, {"SEMANTICSIMILARITYTABLE"}, {"SESSION_USER"}, {"SET"}, {"SETUSER"},
    {"SHUTDOWN"}, {"SOME"}, {"STATISTICS"}, {"SYSTEM_USER"}, {"TABLE", Keyword::table}, {"TABLESAMPLE"},
    {"TEXTSIZE"}, {"THEN"}, {"TO"}, {"TOP", Keyword::top}, {"TRAN"}, {"TRANSACTION"}, {"TRIGGER"},
    {"TRUNCATE"}, {"TRY_CONVERT"}, {"TSEQUAL"}, {"UNION", Keyword::union_}, {"UNIQUE"}, {"UNPIVOT"},
    {"UPDATE"}, {"UPDATETEXT"}, {"USE"}, {"USER"}, {"VALUES"}, {"VARYING"}, {"VIEW"}, {"WAITFOR"}, {"WHEN"},
    {"WHERE", Keyword::where}, {"WHILE"}, {"WITH"}, {"WITHIN"}, {"WRITETEXT"},
};
// clang-format on

static_assert(std::is_sorted(std::begin(words), std::end(words),
                             [](const Word& a, const Word& b) { return a.text < b.text; }));

// For each letter the index of its first word; one more for the end.
constexpr auto first_words = [] {
    std::array<std::size_t, 27> first{};
    for (std::size_t letter = 0; letter < first.size(); ++letter)
        for (const Word& word : words)
            if (static_cast<std::size_t>(word.text[0] - 'A') < letter) ++first[letter];
    return first;
}();

}  // namespace

Keyword keyword_of(std::string_view word) {
    if (word.empty() || !is_ascii_letter(word[0])) return Keyword::none;
    const auto letter = static_cast<std::size_t>((word[0] | 0x20) - 'a');
    for (std::size_t i = first_words[letter]; i < first_words[letter + 1]; ++i)
        if (word.size() == words[i].text.size() && upper_equals(word, words[i].text)) return words[i].keyword;
    return Keyword::none;
}

}  // namespace prot
