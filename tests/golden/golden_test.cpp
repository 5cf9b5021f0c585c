#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/golden/case_database.h"
#include "tests/golden/program.h"

/// Whole runs of the program. Each folder beside this file is a case:
// clang-format off
///   purpose.txt      why the case exists
///   command.txt      the arguments, as a shell reads them; $DB is the database, $OUT an empty folder
///   database.txt     names a file of SQL beside the folders that makes the database, on top of schema.sql; or
///                    "sample 15": the sample database with the log of that section alone, so that no case sees
///                    what another section logs
///   input.sql        SQL likewise, of this case alone
///   answers.txt      standard input, when the command reads it
///   expected.csv     the file whose path the program printed; absent when it must print none
///   expected.sql     every statement sent, one a line; absent when the case does not look at them
///   expected.txt     exit status, standard error with $STAMP for the version and $TIME for how long it took, and what the log holds afterwards
// clang-format on
/// PROT_UPDATE_GOLDEN=1 rewrites the expected files; the difference is reviewed before it is committed.
/// PROT_PROGRAM_COMMAND names another program to run, such as the Windows one under Wine.
namespace {

namespace fs = std::filesystem;
using prot::test::program_command;
using prot::test::read;
using prot::test::with_own_paths;

const fs::path cases_folder = fs::path(PROT_SOURCE_DIR) / "tests" / "golden";

void write(const fs::path& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

std::vector<std::string> case_names() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(cases_folder))
        if (fs::exists(entry.path() / "command.txt")) names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

int run_shell(const std::string& command) {
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// How many rows a table has; "none" when there is no such table.
std::string rows_in(const fs::path& path, const std::string& table) {
    sqlite3* database = nullptr;
    sqlite3_stmt* statement = nullptr;
    std::string rows = "none";
    if (sqlite3_open(path.c_str(), &database) == SQLITE_OK &&
        sqlite3_prepare_v2(database, ("SELECT COUNT(*) FROM " + table).c_str(), -1, &statement, nullptr) ==
            SQLITE_OK &&
        sqlite3_step(statement) == SQLITE_ROW)
        rows = std::to_string(sqlite3_column_int64(statement, 0));
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return rows;
}

/// The statements of a statement log in the order of sending, one a line.
std::string statements_of(const std::string& log) {
    static const std::regex pattern("\"nr\":(\\d+),\"op\":\"(\\w+)\".*?\"sql\":\"((?:[^\"\\\\]|\\\\.)*)\"");
    std::map<int, std::string> by_number;
    std::istringstream lines(log);
    for (std::string line; std::getline(lines, line);) {
        std::smatch match;
        if (std::regex_search(line, match, pattern))
            by_number[std::stoi(match[1])] += match[2].str() + ": " + match[3].str() + "\n";
    }
    std::string statements;
    for (const auto& [number, statement] : by_number) statements += statement;
    return statements;
}

void replace(std::string& text, const std::string& found, const char* name) {
    for (std::size_t at; (at = text.find(found)) != std::string::npos;) text.replace(at, found.size(), name);
}

const std::string through_odbc = "odbc:Driver=SQLite3;Database=";
/// The tests' own driver, which plays a SQL Server of the name of the database file.
const std::string on_sql_server = "odbc:Driver=" PROT_ODBC_DOUBLE ";Server=log.db;Database=";

class Golden : public testing::TestWithParam<std::string> {
protected:
    const fs::path folder = cases_folder / GetParam();
    const fs::path work =
        fs::temp_directory_path() / ("golden-" + GetParam() + "-" + std::to_string(getpid()));

    const bool updating = std::getenv("PROT_UPDATE_GOLDEN") != nullptr;

    void SetUp() override { fs::create_directories(work / "out"); }
    void TearDown() override { fs::remove_all(work); }

    void compare(const std::string& actual, const char* file) const {
        if (updating) write(folder / file, actual);
        EXPECT_EQ(read(folder / file), actual) << "in " << folder / file;
    }
    void run(const std::string& way) const;
    std::string quoted(const fs::path& path) const { return "'" + path.string() + "'"; }
    /// Standard error without what differs from run to run or from version to version.
    std::string complaints() const {
        std::string text = with_own_paths(read(work / "stderr"), "out");
        replace(text, work.string(), "$WORK");
        for (const std::string& way : {through_odbc, on_sql_server}) replace(text, way, "");
        replace(text, PROT_STAMP, "$STAMP");
        static const std::regex duration(", [0-9 ]+,[0-9] s\n");
        return std::regex_replace(text, duration, ", $$TIME s\n");
    }
};

/// `way`: what stands before the database's name. One that is none has written what is expected.
void Golden::run(const std::string& way) const {
    if (updating && !way.empty()) return;
    const bool on_server = way == on_sql_server;
    if (on_server && GetParam() == "rates_onto_the_database") return;  // a server is no file
    const fs::path database = work / "log.db";
    const prot::test::CaseDatabase made_from = prot::test::case_database(cases_folder, GetParam());
    if (made_from.sample_section.empty())
        prot::test::make_database(database, made_from.sql);
    else
        ASSERT_EQ(run_shell("cd " + quoted(work) + " && " + program_command() + " sample log.db --section " +
                            made_from.sample_section + " >/dev/null"),
                  0);

    std::string arguments = read(folder / "command.txt");
    arguments.erase(arguments.find_last_not_of('\n') + 1);
    const fs::path answers =
        fs::exists(folder / "answers.txt") ? folder / "answers.txt" : fs::path("/dev/null");
    const int status =
        run_shell("cd " + quoted(work) + " && DB='" + way + "log.db' OUT=out && " + program_command() + " " +
                  arguments + " --sql-log sql.json <" + quoted(answers) + " >stdout 2>stderr");

    const std::string told = complaints();
    const bool quotes_server = on_server && told.find("Anweisung: ") != std::string::npos;
    if (!quotes_server)
        compare("exit " + std::to_string(status) + "\n" + told + "log records " +
                    rows_in(database, "tProtokoll") + ", memo records " +
                    rows_in(database, "tProtokollMemo") + "\n",
                "expected.txt");
    std::string printed = with_own_paths(read(work / "stdout"), "out");
    const bool wrote_file = !printed.empty();
    if (wrote_file) {
        ASSERT_EQ(printed.find('\n'), printed.size() - 1) << "exactly one path";
        printed.pop_back();
        compare(read(work / printed), "expected.csv");
    } else {
        EXPECT_FALSE(!updating && fs::exists(folder / "expected.csv")) << "no file was written";
    }
    if (fs::exists(folder / "expected.sql")) {
        static const std::regex date_of_server("(\\d{4}-\\d\\d-\\d\\d)T(\\d\\d:\\d\\d:\\d\\d)");
        const std::string sent = statements_of(read(work / "sql.json"));
        compare(on_server ? std::regex_replace(sent, date_of_server, "$1 $2") : sent, "expected.sql");
    }
    for (const auto& entry : fs::recursive_directory_iterator(work / "out"))
        EXPECT_EQ(entry.path().extension(), ".csv") << "left behind: " << entry.path();
}

TEST_P(Golden, Case) { run(""); }

TEST_P(Golden, CaseThroughOdbc) { run(through_odbc); }

TEST_P(Golden, CaseOnSqlServer) { run(on_sql_server); }

INSTANTIATE_TEST_SUITE_P(Cases, Golden, testing::ValuesIn(case_names()),
                         [](const auto& golden) { return golden.param; });

}  // namespace
