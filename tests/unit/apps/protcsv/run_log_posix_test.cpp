#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>

#include <sqlite3.h>

#include "apps/protcsv/console/interruption.h"
#include "tests/unit/apps/protcsv/program_fixture.h"
#include "tests/unit/support/full_disk.h"

namespace prot::test {
namespace {

TEST_F(ProgramTest, RemovesWhatAKilledRunLeftInItsFolder) {
    const std::vector<std::string> arguments = {"--params", "/autostart", "--out", path("")};
    const std::filesystem::path left = text_path(path("Prot.csv.0123456789abcdef.tmp"));
    write("Prot.csv.0123456789abcdef.tmp", "halb");
    EXPECT_EQ(run_section("export", "file", arguments), 0);
    EXPECT_TRUE(std::filesystem::exists(left)) << "it may be that of a run that goes on";
    std::filesystem::last_write_time(left,
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(25));
    EXPECT_EQ(run_section("export", "file", arguments), 0);
    EXPECT_FALSE(std::filesystem::exists(left));
}

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

std::ptrdiff_t threads_of_this_process() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

std::ptrdiff_t threads_while_reading = 0;

/// Counts the threads in the midst of more rows than are read ahead.
class CountingExporter : public SectionExporter {
    void gCSVAusgabe(Database& oDBU, std::int32_t, const std::string&, Date, Date, std::int32_t,
                     Value&) override {
        const auto rows = oDBU.query_rows("SELECT a.idProtokoll FROM tProtokoll a, tProtokoll b");
        for (int batch = 0; batch < 2; ++batch) rows->next_batch();
        threads_while_reading = threads_of_this_process();
    }
};

constexpr Section counting_sections[] = {
    {15, "counting", "Zählen",
     [](Environment&) -> std::unique_ptr<SectionExporter> { return std::make_unique<CountingExporter>(); }}};

TEST_F(ProgramTest, ReadsAheadInAThreadOfItsOwnUnlessOneIsToDoEverything) {
    const struct {
        std::vector<std::string> more;
        std::ptrdiff_t further_threads;
    } rows[] = {{{}, 1}, {{"--threads", "2"}, 1}, {{"--threads", "1"}, 0}};
    const std::ptrdiff_t before = threads_of_this_process();
    for (const auto& row : rows) {
        std::vector<std::string> arguments = {"export", "--db", database(), "--section", "15"};
        arguments.insert(arguments.end(), row.more.begin(), row.more.end());
        std::istringstream in;
        std::ostringstream out, err;
        EXPECT_EQ(run_program(arguments, {in, out, err}, counting_sections), 0) << err.str();
        EXPECT_EQ(threads_while_reading - before, row.further_threads) << testing::PrintToString(row.more);
    }
}

}  // namespace
}  // namespace prot::test
