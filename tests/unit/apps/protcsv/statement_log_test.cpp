#include "apps/protcsv/statement_log.h"

#include <chrono>
#include <fstream>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "tests/unit/support/fakes.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

class StatementLogTest : public testing::Test {
protected:
    /// The lines, each without its duration, which is checked to be a number.
    std::vector<std::string> lines() const {
        std::vector<std::string> result;
        std::ifstream file(text_path(path));
        for (std::string line; std::getline(file, line);) {
            nlohmann::ordered_json object = nlohmann::ordered_json::parse(line);
            EXPECT_TRUE(object["ms"].is_number()) << line;
            object.erase("ms");
            result.push_back(object.dump());
        }
        return result;
    }

    const TemporaryFolder folder;
    const std::string path = folder.text("Anweisungen ä.json");
    test::FakeDatabase database;
};

TEST_F(StatementLogTest, WritesEveryStatementInOrderAsItWasGiven) {
    database.answers["SELECT a"] = {{std::int64_t{1}}, {std::int64_t{2}}};
    database.answers["SELECT v"] = {{std::string("wert")}};
    StatementLog log(database, path);
    EXPECT_EQ(log.query_array("SELECT a").rows(), 2u);
    EXPECT_EQ(log.query_value("SELECT v"), Value("wert"));
    log.execute("DELETE \"ü\"\n");
    EXPECT_EQ(log.like_wildcard(), "%");
    EXPECT_EQ(log.date_literal(Date{1}), database.date_literal(Date{1}));
    log.close();
    EXPECT_EQ(lines(), (std::vector<std::string>{
                           R"({"op":"array","sql":"SELECT a","rows":2})",
                           R"({"op":"value","sql":"SELECT v"})",
                           R"({"op":"execute","sql":"DELETE \"ü\"\n"})",
                       }));
}

TEST_F(StatementLogTest, WritesAFailureBeforeItRisesAndKeepsItUnchanged) {
    database.failures.emplace("SELECT x", test::server_error("kaputt"));
    StatementLog log(database, path);
    try {
        log.query_array("SELECT x");
        FAIL() << "the failure did not rise";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.source(), "Testserver");
    }
    EXPECT_EQ(lines(), std::vector<std::string>{R"({"op":"array","sql":"SELECT x","error":"kaputt"})"});
}

TEST_F(StatementLogTest, SendsEachStatementOnce) {
    StatementLog log(database, path);
    log.query_array("SELECT a");
    log.query_value("SELECT v");
    log.execute("DELETE x");
    EXPECT_EQ(database.statements,
              (std::vector<std::string>{"array: SELECT a", "value: SELECT v", "execute: DELETE x"}));
}

TEST_F(StatementLogTest, ReplacesAnEarlierLog) {
    write_file(text_path(path), "{\"op\":\"alt\",\"ms\":1}\n");
    StatementLog log(database, path);
    log.execute("DELETE x");
    EXPECT_EQ(lines(), std::vector<std::string>{R"({"op":"execute","sql":"DELETE x"})"});
}

/// Takes two milliseconds for a statement.
class SlowDatabase : public test::FakeDatabase {
public:
    void execute(std::string_view sql) override {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(2);
        while (std::chrono::steady_clock::now() < end) continue;
        FakeDatabase::execute(sql);
    }
};

TEST_F(StatementLogTest, WritesHowManyMillisecondsAStatementTook) {
    SlowDatabase slow;
    slow.failures.emplace("DELETE y", test::server_error("kaputt"));
    for (const char* sql : {"DELETE x", "DELETE y"}) {
        StatementLog log(slow, path);
        const auto start = std::chrono::steady_clock::now();
        try {
            log.execute(sql);
        } catch (const AutomationError&) {
        }
        const std::chrono::duration<double, std::milli> most = std::chrono::steady_clock::now() - start;
        const double taken = nlohmann::json::parse(content_of(text_path(path)))["ms"].get<double>();
        EXPECT_GE(taken, 2) << sql;
        EXPECT_LE(taken, most.count()) << sql;
    }
}

TEST_F(StatementLogTest, ReplacesBytesThatAreNotUtf8) {
    StatementLog log(database, path);
    log.execute("\xFF");
    EXPECT_EQ(lines(), std::vector<std::string>{"{\"op\":\"execute\",\"sql\":\"\uFFFD\"}"});
}

TEST_F(StatementLogTest, AsksForTheConnectionBehindIt) {
    StatementLog log(database, path);
    log.require_connection();
    database.connection_failure = test::server_error("weg");
    EXPECT_THROW(log.require_connection(), AutomationError);
    EXPECT_EQ(lines(), std::vector<std::string>{});
}

TEST_F(StatementLogTest, NamesTheFileThatCannotBeCreated) {
    const std::string missing = folder.text("nicht/da");
    try {
        StatementLog log(database, missing);
        FAIL() << "the file cannot have been created";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::file));
        EXPECT_EQ(error.description(), "Die Datei „" + missing + "“ lässt sich nicht zum Schreiben öffnen.");
    }
}

}  // namespace
}  // namespace prot
