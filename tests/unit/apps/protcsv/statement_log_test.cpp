#include "apps/protcsv/statement_log.h"

#include <chrono>
#include <fstream>
#include <utility>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "tests/unit/support/fakes.h"
#include "tests/unit/support/scripted_rows.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

using namespace std::chrono_literals;

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
                           R"({"nr":1,"op":"array","sql":"SELECT a","rows":2})",
                           R"({"nr":2,"op":"value","sql":"SELECT v"})",
                           R"({"nr":3,"op":"execute","sql":"DELETE \"ü\"\n"})",
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
    EXPECT_EQ(lines(),
              std::vector<std::string>{R"({"nr":1,"op":"array","sql":"SELECT x","error":"kaputt"})"});
}

TEST_F(StatementLogTest, SendsEachStatementOnce) {
    StatementLog log(database, path);
    log.query_array("SELECT a");
    log.query_value("SELECT v");
    log.execute("DELETE x");
    EXPECT_EQ(database.statements,
              (std::vector<std::string>{"array: SELECT a", "value: SELECT v", "execute: DELETE x"}));
}

/// A database whose rows come in two batches; the second one may fail.
class BatchedDatabase : public test::FakeDatabase {
public:
    bool fails = false;

    std::unique_ptr<RowStream> query_rows(std::string_view sql) override {
        if (const auto failure = failures.find(std::string(sql)); failure != failures.end())
            throw failure->second;
        std::vector<test::ScriptedRows::Batch> batches(2);
        for (test::ScriptedRows::Batch& batch : batches) {
            batch.rows = RowSet(1);
            for (int row = 0; row < 2; ++row) batch.rows.add_row();
        }
        if (fails) batches[1].failure = test::server_error("kaputt");
        return std::make_unique<test::ScriptedRows>(std::move(batches), statements, 77);
    }
};

class RowsInTheLog : public StatementLogTest {
protected:
    BatchedDatabase batched;
    StatementLog log{batched, path};
    using Lines = std::vector<std::string>;
};

TEST_F(RowsInTheLog, AreOneLineWithTheLastOfThem) {
    const auto rows = log.query_rows("SELECT r");
    log.execute("DELETE x");
    EXPECT_EQ(rows->next_batch().rows(), 2U);
    EXPECT_EQ(rows->expected_rows(), 77);
    rows->next_batch();
    const std::string between = R"({"nr":2,"op":"execute","sql":"DELETE x"})";
    EXPECT_EQ(lines(), Lines{between}) << "the last row is not known yet";
    EXPECT_TRUE(rows->next_batch().empty());
    rows->next_batch();
    EXPECT_EQ(lines(), (Lines{between, R"({"nr":1,"op":"array","sql":"SELECT r","rows":4})"}));
}

TEST_F(RowsInTheLog, ThatAreReadAnewAreTheSameStatement) {
    const auto rows = log.query_rows("SELECT r");
    rows->next_batch();
    rows->release();
    while (!rows->next_batch().empty()) continue;
    EXPECT_EQ(lines(), Lines{R"({"nr":1,"op":"array","sql":"SELECT r","rows":4})"});
    EXPECT_EQ(batched.statements, (Lines{"batch", "release", "batch", "batch", "batch"}));
}

TEST_F(RowsInTheLog, AreWrittenDownWhenTheyAreGivenUp) {
    log.query_rows("SELECT r")->next_batch();
    const auto released = log.query_rows("SELECT s");
    released->next_batch();
    released->release();
    log.query_rows("SELECT t").reset();
    EXPECT_EQ(lines(), (Lines{R"({"nr":1,"op":"array","sql":"SELECT r","rows":2})",
                              R"({"nr":3,"op":"array","sql":"SELECT t"})"}));
}

TEST_F(RowsInTheLog, ThatFailAreWrittenDownWithTheirError) {
    batched.fails = true;
    const auto rows = log.query_rows("SELECT r");
    rows->next_batch();
    EXPECT_THROW(rows->next_batch(), AutomationError);
    EXPECT_THROW(rows->next_batch(), AutomationError);
    batched.failures.emplace("SELECT s", test::server_error("gar nicht"));
    EXPECT_THROW(log.query_rows("SELECT s"), AutomationError);
    EXPECT_EQ(lines(), (Lines{R"({"nr":1,"op":"array","sql":"SELECT r","rows":2,"error":"kaputt"})",
                              R"({"nr":2,"op":"array","sql":"SELECT s","error":"gar nicht"})"}));
}

TEST_F(StatementLogTest, ReplacesAnEarlierLog) {
    write_file(text_path(path), "{\"op\":\"alt\",\"ms\":1}\n");
    StatementLog log(database, path);
    log.execute("DELETE x");
    EXPECT_EQ(lines(), std::vector<std::string>{R"({"nr":1,"op":"execute","sql":"DELETE x"})"});
}

void take(std::chrono::milliseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    while (std::chrono::steady_clock::now() < end) continue;
}

/// One row, after twenty milliseconds, and at once the end behind it.
class SlowRows : public RowStream {
public:
    const RowSet& next_batch() override {
        batch_.clear();
        if (std::exchange(at_end_, true)) return batch_;
        take(20ms);
        batch_.add_row();
        return batch_;
    }
    void release() override {}
    std::int64_t expected_rows() override { return 1; }

private:
    RowSet batch_{1};
    bool at_end_ = false;
};

/// Takes two milliseconds for a statement.
class SlowDatabase : public test::FakeDatabase {
public:
    void execute(std::string_view sql) override {
        take(2ms);
        FakeDatabase::execute(sql);
    }
    std::unique_ptr<RowStream> query_rows(std::string_view) override { return std::make_unique<SlowRows>(); }
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

TEST_F(StatementLogTest, CountsTheMillisecondsOfTheFirstRowsToo) {
    SlowDatabase slow;
    StatementLog log(slow, path);
    const auto rows = log.query_rows("SELECT r");
    while (!rows->next_batch().empty()) continue;
    EXPECT_GE(nlohmann::json::parse(content_of(text_path(path)))["ms"].get<double>(), 20);
}

TEST_F(StatementLogTest, ReplacesBytesThatAreNotUtf8) {
    StatementLog log(database, path);
    log.execute("\xFF");
    EXPECT_EQ(lines(), std::vector<std::string>{"{\"nr\":1,\"op\":\"execute\",\"sql\":\"\uFFFD\"}"});
}

TEST_F(StatementLogTest, WritesUmlautsAsAReaderOfTheFileSeesThem) {
    StatementLog log(database, path);
    log.execute("SELECT 'Währung'");
    EXPECT_NE(content_of(text_path(path)).find(R"("sql":"SELECT 'Währung'")"), std::string::npos);
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
