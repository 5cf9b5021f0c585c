#include "platform/portable/odbc/odbc_problem.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

using enum OdbcTask;
using Diagnostics = std::vector<OdbcDiagnostic>;

TEST(OdbcProblem, IsSaidInWordsAndByEveryRecord) {
    const Diagnostics two = {{"42S02", 208, "Invalid object name 'x'."}, {"01000", 0, "Statement ended."}};
    EXPECT_EQ(
        describe_odbc_problem(two, statement),
        "Eine Tabelle gibt es nicht [42S02, 208: Invalid object name 'x'.; 01000, 0: Statement ended.]");
}

TEST(OdbcProblem, HasWordsForWhatAnAdministratorMeets) {
    const struct {
        OdbcTask task;
        OdbcDiagnostic record;
        std::string_view words;
    } rows[] = {
        {statement,
         {"40001", 1205, ""},
         "Die Datenbank hat die Anweisung zugunsten einer anderen abgebrochen (Deadlock)"},
        {statement,
         {"HY000", 1205, ""},
         "Die Datenbank hat die Anweisung zugunsten einer anderen abgebrochen (Deadlock)"},
        {statement,
         {"HYT00", 1222, ""},
         "Die Datenbank ist gesperrt, ein anderes Programm schreibt gerade hinein"},
        {statement, {"42000", 229, ""}, "Dem Anmeldenamen fehlt ein Recht in der Datenbank"},
        {statement,
         {"42000", 102, ""},
         "Die Datenbank versteht die Anweisung nicht oder führt sie nicht aus"},
        {statement, {"42S22", 207, ""}, "Eine Spalte gibt es nicht"},
        {statement, {"HYT00", 0, ""}, "Die Zeit für die Anweisung ist abgelaufen"},
        {statement, {"HYT01", 0, ""}, "Die Datenbank antwortet nicht mehr"},
        {statement, {"HY008", 0, ""}, "Die Anweisung wurde abgebrochen"},
        {statement, {"08S01", 10054, ""}, "Die Verbindung zur Datenbank ist abgebrochen"},
        {statement, {"HY000", 0, ""}, "Die Datenbank meldet einen Fehler"},
        {connecting, {"28000", 18456, ""}, "Die Datenbank lehnt die Anmeldung ab"},
        {connecting,
         {"HYT00", 0, ""},
         "Die Datenbank antwortet nicht; die Zeit für die Anmeldung ist abgelaufen"},
        {connecting, {"IM002", 0, ""}, "Die Datenquelle oder den Treiber gibt es hier nicht"},
        {connecting, {"01000", 0, ""}, "Der Treiber lässt sich nicht laden"},
        {connecting, {"08001", 0, ""}, "Die Verbindung zur Datenbank kommt nicht zustande"},
        {connecting, {"HY000", 14, ""}, "Die Datenbank lässt sich nicht öffnen"},
    };
    for (const auto& [task, record, words] : rows) {
        const std::string text = describe_odbc_problem({record}, task);
        EXPECT_EQ(text.substr(0, text.find(" [")), words) << record.state << ' ' << record.number;
    }
}

TEST(OdbcProblem, IsTheGravestOfItsRecords) {
    const Diagnostics refused = {{"01000", 5701, "Changed database context."},
                                 {"28000", 18456, "Login failed."}};
    EXPECT_TRUE(
        describe_odbc_problem(refused, connecting).starts_with("Die Datenbank lehnt die Anmeldung ab ["));
    EXPECT_EQ(describe_odbc_problem({}, statement),
              "Die Datenbank meldet einen Fehler und nennt keinen Grund");
}

TEST(OdbcProblem, EndsTheConnectionWhenItIsLost) {
    EXPECT_TRUE(ends_connection({{"01000", 0, ""}, {"08S01", 0, ""}}));
    EXPECT_TRUE(ends_connection({{"HYT01", 0, ""}}));
    EXPECT_FALSE(ends_connection({{"HYT00", 0, ""}, {"40001", 1205, ""}, {"42000", 229, ""}}));
    EXPECT_FALSE(ends_connection({}));
}

TEST(OdbcProblem, IsAnAnswerOnlyWhenTheServerGaveOne) {
    EXPECT_TRUE(is_answer({{"40001", 1205, ""}}));
    EXPECT_FALSE(is_answer({{"08S01", 0, ""}}));
    EXPECT_FALSE(is_answer({{"HYT00", 0, ""}}));
    EXPECT_FALSE(is_answer({}));
}

TEST(OdbcProblem, HasTheServersNumber) {
    const auto number = [](std::int32_t native) {
        return static_cast<std::uint32_t>(odbc_error({{"42000", native, ""}}, "x").number());
    };
    EXPECT_EQ(number(208), 0x800400D0U);
    EXPECT_EQ(number(0xFFFF), 0x8004FFFFU);
    for (const std::int32_t none : {0, -1, 0x10000}) EXPECT_EQ(number(none), 0x80040E14U) << none;
    EXPECT_EQ(static_cast<std::uint32_t>(odbc_error({}, "x").number()), 0x80040E14U);
    EXPECT_EQ(odbc_error({}, "x").source(), "ODBC");
    EXPECT_EQ(odbc_error({}, "x").description(), "x");
}

}  // namespace
}  // namespace prot
