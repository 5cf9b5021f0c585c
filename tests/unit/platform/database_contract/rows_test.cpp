#include <gmock/gmock.h>

#include "tests/unit/platform/database_contract/contract_fixture.h"

namespace prot {
namespace {

/// Rows in batches. The table is larger than any batch, and than what is read ahead.
class DatabaseContractRows : public DatabaseContract {
protected:
    static constexpr int rows_of_table = 3000;
    static constexpr const char* query = "SELECT id, name, amount, made FROM R ORDER BY id";

    void SetUp() override {
        DatabaseContract::SetUp();
        if (IsSkipped()) return;
        make_table("R",
                   {{"id", ColumnKind::integer},
                    {"name", ColumnKind::text},
                    {"amount", ColumnKind::real},
                    {"made", ColumnKind::date}},
                   {});
        std::string values;
        for (int id = 1; id <= rows_of_table; ++id) values += row_of(id);
        set_up("INSERT INTO R VALUES " + values.substr(2));
    }

    std::string row_of(int id) {
        const Value amount = id % 7 == 0 ? Value() : Value(id / 2.0);
        const Value made = id % 5 == 0 ? Value() : Value(Date{46000.0 + id});
        return ", (" + std::to_string(id) + ", " + server().literal("Name " + std::to_string(id)) + ", " +
               server().literal(amount) + ", " + server().literal(made) + ")";
    }

    /// What is left of the rows, and what `between` does behind each batch.
    template <typename Between>
    static std::vector<std::string> rest_of(RowStream& stream, Between between) {
        std::vector<std::string> all;
        for (;;) {
            const RowSet& batch = stream.next_batch();
            if (batch.empty()) return all;
            for (std::string& line : lines(batch)) all.push_back(std::move(line));
            between();
        }
    }
    static std::vector<std::string> rest_of(RowStream& stream) {
        return rest_of(stream, [] {});
    }
};

TEST_P(DatabaseContractRows, AreThoseOfTheWholeArrayInItsOrder) {
    const auto stream = database().query_rows(query);
    const std::vector<std::string> whole = rows(query);
    ASSERT_EQ(whole.size(), std::size_t{rows_of_table});
    EXPECT_EQ(rest_of(*stream), whole);
    EXPECT_TRUE(stream->next_batch().empty()) << "and it stays at the end";
}

TEST_P(DatabaseContractRows, LeaveRoomForOtherStatementsInBetween) {
    const std::vector<std::string> whole = rows(query);
    const auto stream = database().query_rows(query);
    int asked = 0;
    const auto ask = [&] {
        const std::string id = std::to_string(1 + asked++ % rows_of_table);
        EXPECT_EQ(database().query_value("SELECT name FROM R WHERE id = " + id), Value("Name " + id));
        EXPECT_THAT(rows("SELECT name FROM T WHERE id = 1"), testing::ElementsAre("Müller"));
        EXPECT_LT(error_of([&] { database().query_value("SELECT x FROM Fehlt"); }).number(), 0);
    };
    EXPECT_EQ(rest_of(*stream, ask), whole);
    EXPECT_GT(asked, 1);
}

TEST_P(DatabaseContractRows, MayBeTwoQueriesAtOnce) {
    const auto first = database().query_rows(query);
    const auto second = database().query_rows("SELECT id FROM R ORDER BY id");
    EXPECT_FALSE(first->next_batch().empty());
    EXPECT_EQ(rest_of(*second).size(), std::size_t{rows_of_table});
    EXPECT_EQ(rest_of(*first).back(), rows(query).back());
}

TEST_P(DatabaseContractRows, AreNoneForAQueryWithoutRows) {
    const auto stream = database().query_rows("SELECT id FROM R WHERE id = 0");
    EXPECT_TRUE(stream->next_batch().empty());
    EXPECT_TRUE(stream->next_batch().empty());
}

TEST_P(DatabaseContractRows, BeginWithTheFirstByTheNewStateOnceTheyWereReleased) {
    const auto stream = database().query_rows("SELECT id FROM R ORDER BY id");
    EXPECT_EQ(lines(stream->next_batch()).front(), "1");
    stream->next_batch();
    stream->release();
    set_up("UPDATE R SET id = 0 WHERE id = 2");
    EXPECT_EQ(rest_of(*stream).size(), std::size_t{rows_of_table});
    stream->release();
    EXPECT_THAT(lines(stream->next_batch()), testing::Contains("0"));
    stream->release();
    set_up("DELETE FROM R");
    EXPECT_TRUE(stream->next_batch().empty());
}

TEST_P(DatabaseContractRows, MayBeGivenUpAtAnyTime) {
    for (const int batches : {0, 1, 2, 3}) {
        const auto stream = database().query_rows(query);
        for (int i = 0; i < batches; ++i) stream->next_batch();
    }
    set_up("UPDATE R SET name = " + server().literal("nichts ist gesperrt"));
    EXPECT_EQ(database().query_value("SELECT name FROM R WHERE id = 3000"), Value("nichts ist gesperrt"));
}

TEST_P(DatabaseContractRows, SeeOneStateWithTheLookupsOfABracket) {
    if (!GetParam().lookups_see_one_state) GTEST_SKIP() << "the server has no such thing";
    const auto stream = database().query_rows("SELECT name FROM R ORDER BY id");
    database().begin_lookups();
    server().run("UPDATE R SET name = " + server().literal("dazwischen"));
    EXPECT_EQ(rest_of(*stream).back(), "Name 3000");
    EXPECT_EQ(database().query_value("SELECT name FROM R WHERE id = 1"), Value("Name 1"));
    database().end_lookups();
}

TEST_P(DatabaseContractRows, FailWithTheQuery) {
    const std::string missing = "SELECT fehlt FROM R";
    const AutomationError error = error_of([&] { database().query_rows(missing)->next_batch(); });
    EXPECT_LT(error.number(), 0);
    EXPECT_THAT(error.description(), testing::HasSubstr(missing));
    EXPECT_LT(error_of([&] { database().query_rows("DELETE FROM R")->next_batch(); }).number(), 0);
}

TEST_P(DatabaseContractRows, FailWithTheConnection) {
    server().break_connections();
    const AutomationError first = error_of([&] {
        const auto stream = database().query_rows(query);
        rest_of(*stream);
    });
    EXPECT_THAT(first.description(), testing::HasSubstr(query));
    const AutomationError later = error_of([&] { database().query_rows(query)->next_batch(); });
    EXPECT_EQ(later.description(), first.description());
}

INSTANTIATE_TEST_SUITE_P(Every, DatabaseContractRows, testing::ValuesIn(database_implementations()),
                         implementation_name);

}  // namespace
}  // namespace prot
