#include <csignal>
#include <cstdlib>

#include <sqlite3.h>

#include "apps/protcsv/console/interruption.h"
#include "tests/unit/apps/protcsv/program_fixture.h"
#include "tests/unit/support/full_disk.h"

namespace prot::test {
namespace {

TEST_F(ProgramTest, FailsWhenTheDiskIsFullUnderTheStatementLog) {
    const std::string log = full_disk(path("log"));
    if (log.empty()) GTEST_SKIP() << "the system has no /dev/full";
    EXPECT_EQ(
        run_section("export", "statements", {"--params", "/autostart", "--out", path(""), "--sql-log", log}),
        1);
    EXPECT_EQ(errors, "protcsv: Die Datei „" + log + "“ ist unvollständig geschrieben.\n");
    EXPECT_EQ(output, "");
}

TEST_F(ProgramTest, NeverWritesTheStatementsOverTheDatabaseByWayOfALink) {
    const std::string before = (database(), read("x.db"));
    std::filesystem::create_symlink("x.db", path("log"));
    EXPECT_EQ(run_section("export", "statements",
                          {"--params", "/autostart", "--out", path(""), "--sql-log", path("log")}),
              2);
    EXPECT_EQ(errors, "protcsv: --sql-log: „" + path("log") + "“ ist die Datenbank selbst\n");
    EXPECT_EQ(read("x.db"), before);
}

/// The SQL function stop_program, as if somebody pressed Ctrl-C at that moment.
int add_stop_program(sqlite3* database, char** /*message*/, const sqlite3_api_routines* /*api*/) {
    return sqlite3_create_function(
        database, "stop_program", 0, SQLITE_UTF8 | SQLITE_INNOCUOUS, nullptr,
        [](sqlite3_context*, int, sqlite3_value**) { std::raise(SIGINT); }, nullptr, nullptr);
}

/// The answer to `sql`, which also may change the file.
int ask(const std::string& file, const char* sql) {
    sqlite3* database = nullptr;
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_prepare_v2(database, sql, -1, &statement, nullptr), SQLITE_OK) << sql;
    const int answer = sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int(statement, 0) : 0;
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return answer;
}

TEST_F(ProgramTest, StopsBehindADeletionThatHasBegun) {
    const std::string file = database();
    ask(file, "CREATE TRIGGER stop BEFORE DELETE ON tProtokoll BEGIN SELECT stop_program(); END");
    ASSERT_GT(ask(file, "SELECT COUNT(*) FROM tProtokoll"), 1);
    EXPECT_EXIT(
        {
            std::signal(SIGINT, SIG_DFL);
            handle_interruptions();
            sqlite3_auto_extension(reinterpret_cast<void (*)()>(add_stop_program));
            run_section("delete", "change");
            std::_Exit(0);
        },
        testing::ExitedWithCode(130), "");
    EXPECT_EQ(ask(file, "SELECT COUNT(*) FROM tProtokoll"), 0);
    EXPECT_EQ(files(), 1U) << "no journal is left";
}

}  // namespace
}  // namespace prot::test
