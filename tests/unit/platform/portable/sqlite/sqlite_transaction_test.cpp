#include <gmock/gmock.h>

#include "tests/unit/platform/portable/sqlite/fake_sleep.h"
#include "tests/unit/platform/portable/sqlite/sqlite_fixture.h"

namespace prot {
namespace {

using testing::ElementsAre;

class SqliteTransactionTest : public SqliteFixture {
protected:
    SqliteTransactionTest() {
        write(
            "CREATE TABLE T (id INTEGER PRIMARY KEY, made DATETIME, data TEXT);"
            "INSERT INTO T VALUES (1, '2026-01-02 03:04:05.678', 'a'), (2, '2026-01-02', NULL), (3, 46024, "
            "'c')");
    }

    std::vector<std::string> ids() const {
        return lines(open()->query_array("SELECT id FROM T ORDER BY id"));
    }

    /// Another program's connection, which has read so far.
    struct Other {
        explicit Other(const std::string& path, const char* statement) {
            EXPECT_EQ(sqlite3_open(path.c_str(), &handle), SQLITE_OK);
            EXPECT_EQ(sqlite3_exec(handle, statement, nullptr, nullptr, nullptr), SQLITE_OK);
        }
        ~Other() { sqlite3_close(handle); }
        Other(const Other&) = delete;
        Other& operator=(const Other&) = delete;
        sqlite3* handle = nullptr;
    };

    const FakeSleep no_waiting_;
};

TEST_F(SqliteTransactionTest, GivesRowsAsTheyAreStored) {
    const StoredRows stored = open()->query_stored("SELECT id, made, data FROM T ORDER BY id");
    EXPECT_THAT(stored.columns, ElementsAre("id", "made", "data"));
    EXPECT_THAT(lines(stored.rows), ElementsAre("1|2026-01-02 03:04:05.678|a", "2|2026-01-02|", "3|46024|c"));
    EXPECT_EQ(stored.rows.at(1, 0).type(), Cell::Type::text);
    EXPECT_EQ(stored.rows.at(2, 1).type(), Cell::Type::null);
    EXPECT_EQ(stored.rows.at(1, 2).type(), Cell::Type::integer);
}

TEST_F(SqliteTransactionTest, TellsTheColumnsOfAnEmptyResult) {
    const StoredRows stored = open()->query_stored("SELECT * FROM T WHERE id = 9");
    EXPECT_THAT(stored.columns, ElementsAre("id", "made", "data"));
    EXPECT_TRUE(stored.rows.empty());
}

TEST_F(SqliteTransactionTest, TellsHowManyRowsWentWithTheLastDeletion) {
    const auto database = open(SqliteAccess::read_write);
    database->execute("DELETE T WHERE id < 3");
    EXPECT_EQ(database->deleted_rows(), 2);
    database->execute("DELETE T WHERE id < 3");
    EXPECT_EQ(database->deleted_rows(), 0);
}

TEST_F(SqliteTransactionTest, KeepsWhatIsCommitted) {
    const auto database = open(SqliteAccess::read_write);
    database->begin_transaction();
    database->execute("DELETE T WHERE id = 1");
    EXPECT_THAT(ids(), ElementsAre("1", "2", "3")) << "nobody sees it before";
    database->commit();
    EXPECT_THAT(ids(), ElementsAre("2", "3"));
    database->begin_transaction();
    database->execute("DELETE T WHERE id = 2");
    database->commit();
    EXPECT_THAT(ids(), ElementsAre("3")) << "a second one after the first";
}

TEST_F(SqliteTransactionTest, UndoesWhatIsRolledBackOrNeverCommitted) {
    auto database = open(SqliteAccess::read_write);
    database->begin_transaction();
    database->execute("DELETE T WHERE id = 1");
    database->rollback();
    EXPECT_THAT(ids(), ElementsAre("1", "2", "3"));
    database->begin_transaction();
    database->execute("DELETE T WHERE id = 1");
    database.reset();
    EXPECT_THAT(ids(), ElementsAre("1", "2", "3"));
}

TEST_F(SqliteTransactionTest, KeepsOtherWritersOff) {
    const auto database = open(SqliteAccess::read_write);
    database->begin_transaction();
    const Other other(path(), "SELECT 1");
    EXPECT_EQ(sqlite3_exec(other.handle, "DELETE FROM T", nullptr, nullptr, nullptr), SQLITE_BUSY);
    database->rollback();
    EXPECT_EQ(sqlite3_exec(other.handle, "DELETE FROM T", nullptr, nullptr, nullptr), SQLITE_OK);
}

TEST_F(SqliteTransactionTest, DoesNotBeginWhereAnotherWrites) {
    const auto database = open(SqliteAccess::read_write);
    {
        const Other other(path(), "BEGIN IMMEDIATE");
        EXPECT_EQ(error_of([&] { database->begin_transaction(); }).description(),
                  "Die Datenbank ist gesperrt, ein anderes Programm schreibt gerade hinein");
    }
    EXPECT_NO_THROW(database->begin_transaction());
    database->rollback();
}

TEST_F(SqliteTransactionTest, UndoesWhatCannotBeCommitted) {
    const auto database = open(SqliteAccess::read_write);
    {
        const Other reader(path(), "BEGIN; SELECT * FROM T");
        database->begin_transaction();
        database->execute("DELETE T WHERE id = 1");
        bool known = false;
        try {
            database->commit();
        } catch (const UnknownOutcome&) {
            known = false;
        } catch (const AutomationError& error) {
            known = true;
            EXPECT_EQ(error.number() & 0xFF, SQLITE_BUSY);
        }
        EXPECT_TRUE(known) << "it failed, and nothing is gone";
    }
    EXPECT_THAT(ids(), ElementsAre("1", "2", "3"));
    EXPECT_NO_THROW(database->begin_transaction()) << "it has ended";
    database->rollback();
}

TEST_F(SqliteTransactionTest, DoesNotKnowWhatBecameOfATransactionThatIsGone) {
    const auto database = open(SqliteAccess::read_write);
    EXPECT_THROW(database->commit(), UnknownOutcome);
}

}  // namespace
}  // namespace prot
