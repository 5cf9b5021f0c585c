#include "platform/portable/tsql/tsql_keywords.h"

#include <gtest/gtest.h>

#include <cctype>
#include <sstream>
#include <string>

namespace prot {
namespace {

// Source: T-SQL reference, reserved keywords.
constexpr const char* reserved_words =
    "ADD ALTER ANY AUTHORIZATION BACKUP BEGIN BREAK BROWSE BULK CASCADE CASE CHECK CHECKPOINT CLOSE "
    "CLUSTERED COALESCE COLLATE COLUMN COMMIT COMPUTE CONSTRAINT CONTAINS CONTAINSTABLE CONTINUE "
    "CONVERT CREATE CURRENT CURRENT_DATE CURRENT_TIME CURRENT_TIMESTAMP CURRENT_USER CURSOR DATABASE "
    "DBCC DEALLOCATE DECLARE DEFAULT DENY DISK DISTRIBUTED DOUBLE DUMP ELSE END ERRLVL ESCAPE EXEC "
    "EXECUTE EXIT EXTERNAL FETCH FILE FILLFACTOR FOR FOREIGN FREETEXT FREETEXTTABLE FULL FUNCTION "
    "GOTO GRANT HOLDLOCK IDENTITY IDENTITYCOL IDENTITY_INSERT INDEX INSERT KEY KILL LINENO LOAD "
    "MERGE NATIONAL NOCHECK NONCLUSTERED NULLIF OF OFF OFFSETS OPEN OPENDATASOURCE OPENQUERY "
    "OPENROWSET OPENXML OPTION OVER PERCENT PIVOT PLAN PRECISION PRIMARY PRINT PROC PROCEDURE PUBLIC "
    "RAISERROR READ READTEXT RECONFIGURE REFERENCES REPLICATION RESTORE RESTRICT RETURN REVERT "
    "REVOKE RIGHT ROLLBACK ROWCOUNT ROWGUIDCOL RULE SAVE SCHEMA SECURITYAUDIT SEMANTICKEYPHRASETABLE "
    "SEMANTICSIMILARITYDETAILSTABLE SEMANTICSIMILARITYTABLE SESSION_USER SET SETUSER SHUTDOWN SOME "
    "STATISTICS SYSTEM_USER TABLESAMPLE TEXTSIZE THEN TO TRAN TRANSACTION TRIGGER TRUNCATE "
    "TRY_CONVERT TSEQUAL UNIQUE UNPIVOT UPDATE UPDATETEXT USE USER VALUES VARYING VIEW WAITFOR WHEN "
    "WHILE WITH WITHIN WRITETEXT";

struct Word {
    const char* text;
    Keyword keyword;
};
const Word understood[] = {
    {"ALL", Keyword::all},         {"AND", Keyword::and_},
    {"AS", Keyword::as},           {"ASC", Keyword::asc},
    {"BETWEEN", Keyword::between}, {"BY", Keyword::by},
    {"CROSS", Keyword::cross},     {"DELETE", Keyword::delete_},
    {"DESC", Keyword::desc},       {"DISTINCT", Keyword::distinct},
    {"DROP", Keyword::drop},       {"EXCEPT", Keyword::except},
    {"EXISTS", Keyword::exists},   {"FROM", Keyword::from},
    {"GROUP", Keyword::group},     {"HAVING", Keyword::having},
    {"IF", Keyword::if_},          {"IN", Keyword::in},
    {"INNER", Keyword::inner},     {"INTERSECT", Keyword::intersect},
    {"INTO", Keyword::into},       {"IS", Keyword::is},
    {"JOIN", Keyword::join},       {"LEFT", Keyword::left},
    {"LIKE", Keyword::like},       {"NOT", Keyword::not_},
    {"NULL", Keyword::null},       {"ON", Keyword::on},
    {"OR", Keyword::or_},          {"ORDER", Keyword::order},
    {"OUTER", Keyword::outer},     {"SELECT", Keyword::select},
    {"TABLE", Keyword::table},     {"TOP", Keyword::top},
    {"UNION", Keyword::union_},    {"WHERE", Keyword::where},
};

std::string small(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

TEST(TsqlKeywords, AreAllReservedWordsInAnyLetterCase) {
    std::istringstream words(reserved_words);
    for (std::string word; words >> word;) {
        EXPECT_EQ(keyword_of(word), Keyword::reserved) << word;
        EXPECT_EQ(keyword_of(small(word)), Keyword::reserved) << word;
    }
    for (const auto& [text, keyword] : understood) {
        EXPECT_EQ(keyword_of(text), keyword) << text;
        EXPECT_EQ(keyword_of(small(text)), keyword) << text;
    }
}

TEST(TsqlKeywords, FindsFirstAndLastWordOfALetter) {
    EXPECT_EQ(keyword_of("add"), Keyword::reserved);
    EXPECT_EQ(keyword_of("AUTHORIZATION"), Keyword::reserved);
    EXPECT_EQ(keyword_of("Where"), Keyword::where);
    EXPECT_EQ(keyword_of("writetext"), Keyword::reserved);
}

TEST(TsqlKeywords, TakesSimilarWordsForNames) {
    for (const char* name :
         {"", "_select", "selec", "selectx", "dcTable", "zeit", "#select", "ärger", "pragma"})
        EXPECT_EQ(keyword_of(name), Keyword::none) << name;
}

}  // namespace
}  // namespace prot
