#include <chrono>
#include <functional>

#include "tests/unit/platform/portable/odbc/double_fixture.h"

namespace prot {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using OdbcFailures = OdbcOnDouble;

const std::string query = "SELECT id FROM T WHERE id = 1";

struct ServerFailure {
    const char* record;  ///< state, native number, message
    const char* description;
    std::uint32_t number;
};
constexpr ServerFailure server_failures[] = {
    {"40001\t1205\tdeadlocked",
     "Die Datenbank hat die Anweisung zugunsten einer anderen abgebrochen (Deadlock) [40001, 1205: "
     "deadlocked]",
     0x80040000 + 1205},
    {"42000\t1222\tLock request time out",
     "Die Datenbank ist gesperrt, ein anderes Programm schreibt gerade hinein [42000, 1222: Lock request "
     "time out]",
     0x80040000 + 1222},
    {"42000\t229\tpermission was denied",
     "Dem Anmeldenamen fehlt ein Recht in der Datenbank [42000, 229: permission was denied]",
     0x80040000 + 229},
    {"42000\t102\tIncorrect syntax near 'x'.",
     "Die Datenbank versteht die Anweisung nicht oder führt sie nicht aus [42000, 102: Incorrect syntax near "
     "'x'.]",
     0x80040000 + 102},
    {"42S02\t208\tInvalid object name 'x'.",
     "Eine Tabelle gibt es nicht [42S02, 208: Invalid object name 'x'.]", 0x80040000 + 208},
    {"HYT00\t0\tQuery timeout expired",
     "Die Zeit für die Anweisung ist abgelaufen [HYT00, 0: Query timeout expired]", 0x80040E14},
    {"HY000\t50000\tÄrger", "Die Datenbank meldet einen Fehler [HY000, 50000: Ärger]", 0x80040000 + 50000},
    {"HY000\t50000\tErst\tHY000\t8134\tdann",
     "Die Datenbank meldet einen Fehler [HY000, 50000: Erst; HY000, 8134: dann]", 0x80040000 + 50000},
    {"01000\t3621\tThe statement has been terminated.\t40001\t1205\tdeadlocked",
     "Die Datenbank hat die Anweisung zugunsten einer anderen abgebrochen (Deadlock) "
     "[01000, 3621: The statement has been terminated.; 40001, 1205: deadlocked]",
     0x80040000 + 3621},
};

TEST_F(OdbcFailures, AreOneReportWithTheServersRecordsAndTheStatement) {
    const auto database = connect();
    for (const auto& [record, description, number] : server_failures) {
        script("when\tFROM T\nfail\t" + std::string(record) + "\n");
        const AutomationError error = error_of([&] { database->query_value(query); });
        EXPECT_EQ(error.description(), std::string(description) + ". Anweisung: " + query);
        EXPECT_EQ(static_cast<std::uint32_t>(error.number()), number);
        EXPECT_EQ(error.source(), "ODBC");
        EXPECT_EQ(error_of([&] { database->query_array(query); }).description(), error.description());
        EXPECT_EQ(error_of([&] { database->query_rows(query)->next_batch(); }).description(),
                  error.description());
        EXPECT_NO_THROW(database->require_connection()) << "the connection goes on";
    }
    script("");
    EXPECT_EQ(database->query_value(query), Value(std::int64_t{1}));
}

TEST_F(OdbcFailures, HaveLongMessagesWhole) {
    const std::string message = std::string(5000, 'x') + "Ende";
    script("when\tFROM T\nfail\tHY000\t50000\t" + message + "\n");
    EXPECT_THAT(error_of([&] { connect()->query_value(query); }).description(), HasSubstr(message));
}

TEST_F(OdbcFailures, OfAnyStatementOfABatchAreRaised) {
    const auto database = connect();
    script("when\tDELETE\nown\nnext\nfail\t23000\t547\tconflicted with the REFERENCE constraint\n");
    EXPECT_THAT(
        error_of([&] { database->execute("DELETE T WHERE id = 1 DELETE T WHERE id = 2"); }).description(),
        HasSubstr("23000, 547"));
    script(
        "when\tINTO\ncount\t5\nnext\nwarn\t01000\t1\tx\ncount\t0\nnext\ncolumns\ta int\nrow\t1\nnext\n"
        "fail\t22012\t8134\tDivide by zero\n");
    EXPECT_THAT(error_of([&] { database->execute("SELECT id INTO #t FROM T"); }).description(),
                HasSubstr("22012, 8134"));
}

TEST_F(OdbcFailures, OfTheSecondStatementAreRaisedWhereTheFirstFoundNothing) {
    const auto database = connect();
    EXPECT_THAT(error_of([&] { database->execute("DELETE T WHERE id = 0 DELETE Fehlt"); }).description(),
                HasSubstr("42S02, 208"));
}

TEST_F(OdbcFailures, OfTimeComeWhenTheStatementsLimitIsOver) {
    script("when\tFROM T\nhang\t60000\n");
    OdbcSource limited = source();
    limited.statement_seconds = 1;
    const auto database = open_odbc_database(std::move(limited));
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_THAT(error_of([&] { database->query_value(query); }).description(),
                HasSubstr("Die Zeit für die Anweisung ist abgelaufen [HYT00"));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
    EXPECT_NO_THROW(database->require_connection());
}

TEST_F(OdbcFailures, OfTheConnectionAnswerEverythingThatFollows) {
    const auto database = connect();
    const auto stream = database->query_rows("SELECT id FROM T");
    script("when\tWHERE id = 1\nlost\n");
    const AutomationError first = error_of([&] { database->query_value(query); });
    EXPECT_EQ(first.description(),
              "Die Verbindung zur Datenbank ist abgebrochen "
              "[08S01, 10054: Communication link failure]. Anweisung: " +
                  query);
    forget_journal();
    const std::function<void()> calls[] = {
        [&] { database->query_value("SELECT name FROM T WHERE id = 2"); },
        [&] { database->query_array("SELECT name FROM T WHERE id = 2"); },
        [&] { database->query_rows("SELECT id FROM T"); },
        [&] { database->query_stored("SELECT id FROM T"); },
        [&] { stream->next_batch(); },
        [&] { database->execute("DELETE T WHERE id = 2"); },
        [&] { database->begin_lookups(); },
        [&] { database->begin_transaction(); },
        [&] { database->require_connection(); },
    };
    for (const auto& call : calls) {
        const AutomationError later = error_of(call);
        EXPECT_EQ(later.number(), first.number());
        EXPECT_EQ(later.description(), first.description());
    }
    EXPECT_THAT(sent(), IsEmpty());
}

TEST_F(OdbcFailures, OfTheConnectionInTheMiddleOfRowsEndTheRun) {
    const auto database = connect();
    script("when\tORDER BY\nown\t300\nlost\n");
    const auto stream = database->query_rows("SELECT id FROM T ORDER BY id");
    const AutomationError first = error_of([&] {
        while (!stream->next_batch().empty()) {
        }
    });
    EXPECT_THAT(first.description(), HasSubstr("08S01"));
    EXPECT_EQ(error_of([&] { database->query_value(query); }).description(), first.description());
}

TEST_F(OdbcFailures, OfTheConnectionAreKnownThoughTheirRecordSaysSomethingElse) {
    const auto database = connect();
    script("when\tWHERE id = 1\nfail\tHY000\t233\tNo process is on the other end of the pipe.\nlost\n");
    const AutomationError first = error_of([&] { database->query_value(query); });
    EXPECT_THAT(first.description(), HasSubstr("HY000, 233"));
    EXPECT_EQ(error_of([&] { database->require_connection(); }).description(), first.description());
    EXPECT_EQ(error_of([&] { database->query_value("SELECT id FROM T"); }).description(),
              first.description());
}

TEST_F(OdbcFailures, OfALookupsConnectionEndTheRunToo) {
    const auto database = connect();
    const auto stream = database->query_rows("SELECT id FROM T ORDER BY id");
    stream->next_batch();
    script("when\tWHERE id = 1\nlost\n");
    const AutomationError first = error_of([&] { database->query_value(query); });
    EXPECT_THAT(first.description(), HasSubstr("08S01"));
    EXPECT_EQ(error_of([&] { stream->next_batch(); }).description(), first.description());
    EXPECT_EQ(error_of([&] { database->require_connection(); }).description(), first.description());
}

TEST_F(OdbcFailures, ToOpenAFurtherConnectionEndTheRunToo) {
    script("when\t[connect]\t2\nfail\t08001\t17\tSQL Server does not exist or access denied.\n");
    const auto database = connect();
    const auto stream = database->query_rows("SELECT id FROM T ORDER BY id");
    stream->next_batch();
    const AutomationError first = error_of([&] { database->query_value(query); });
    EXPECT_EQ(first.description(),
              "Die Verbindung zur Datenbank kommt nicht zustande "
              "[08001, 17: SQL Server does not exist or access denied.].");
    stream->release();
    forget_journal();
    EXPECT_EQ(error_of([&] { database->query_value(query); }).description(), first.description());
    EXPECT_EQ(error_of([&] { database->require_connection(); }).description(), first.description());
    EXPECT_THAT(journal(), IsEmpty());
}

TEST_F(OdbcFailures, ToLogInNameNoPassword) {
    script("when\t[connect]\nfail\t28000\t18456\tLogin failed for user 'x' with password 'geheim'.\n");
    OdbcSource with_password = source();
    with_password.connection.add("PWD", "geheim");
    EXPECT_EQ(error_of([&] { open_odbc_database(std::move(with_password)); }).description(),
              "Die Datenbank lehnt die Anmeldung ab [28000, 18456: Login failed for user 'x' with password "
              "'***'.].");
}

}  // namespace
}  // namespace prot
