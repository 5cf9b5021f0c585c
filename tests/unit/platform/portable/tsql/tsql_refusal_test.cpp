#include "platform/portable/tsql/tsql_refusal.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/automation/error.h"

namespace prot {
namespace {

TEST(TsqlRefusal, CountsLinesAndColumnsFromOneAndColumnsInCharacters) {
    struct Row {
        const char* text;
        std::size_t offset, line, column;
        const char* why;
    };
    const Row rows[] = {
        {"SELECT", 0, 1, 1, "the first character"},
        {"SELECT a", 7, 1, 8, "within the first line"},
        {"a\r\nb", 3, 2, 1, "a line ends in LF; the CR before it counts to the line"},
        {"äöü x", 7, 1, 5, "an umlaut is two bytes and one column"},
        {"a\n\nb", 4, 3, 2, "behind the last character"},
    };
    for (const Row& row : rows) {
        const TextPlace place = place_of(row.text, row.offset);
        EXPECT_EQ(place.line, row.line) << row.why;
        EXPECT_EQ(place.column, row.column) << row.why;
    }
}

std::string refusal(std::string_view statement, std::size_t offset, std::size_t size) {
    try {
        refuse_statement(statement, offset, size, "so nicht");
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), statement_refused);
        EXPECT_EQ(error.source(), "SQLite");
        return error.description();
    }
}

TEST(TsqlRefusal, NamesPlaceReasonAndStatement) {
    EXPECT_EQ(
        refusal("SELECT ?", 7, 1),
        "Die Anweisung wird nicht verstanden (Zeile 1, Spalte 8, bei „?“): so nicht. Anweisung: SELECT ?");
}

TEST(TsqlRefusal, SaysWhenTheStatementEndsTooEarly) {
    EXPECT_EQ(refusal("DROP", 4, 0),
              "Die Anweisung wird nicht verstanden (Zeile 1, Spalte 5, am Ende): so nicht. Anweisung: DROP");
}

TEST(TsqlRefusal, QuotesALongTextOnlyInPartAndNeverHalfACharacter) {
    std::string statement = "x";
    for (int i = 0; i < 30; ++i) statement += "ä";
    std::string quoted = "x";
    for (int i = 0; i < 19; ++i) quoted += "ä";
    EXPECT_NE(refusal(statement, 0, statement.size()).find("bei „" + quoted + "…“"), std::string::npos);
    const std::string forty(40, 'y');
    EXPECT_NE(refusal(forty, 0, 40).find("bei „" + forty + "“)"), std::string::npos);
    EXPECT_NE(refusal(forty + "z", 0, 41).find("bei „" + forty + "…“)"), std::string::npos);
}

}  // namespace
}  // namespace prot
