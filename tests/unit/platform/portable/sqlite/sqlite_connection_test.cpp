#include "platform/portable/sqlite/sqlite_connection.h"

#include <gmock/gmock.h>

#include "tests/unit/platform/portable/sqlite/sqlite_fixture.h"

namespace prot {
namespace {

using testing::HasSubstr;

/// fail(code): a statement's own way to fail as SQLite does with that result code.
void fail(sqlite3_context* context, int, sqlite3_value** values) {
    sqlite3_result_error(context, "SQLite's own text", -1);
    sqlite3_result_error_code(context, sqlite3_value_int(values[0]));
}

int count_calls(sqlite3* handle, const char* name, int* calls) {
    const auto count = [](sqlite3_context* context, int, sqlite3_value**) {
        ++*static_cast<int*>(sqlite3_user_data(context));
    };
    return sqlite3_create_function(handle, name, 0, SQLITE_UTF8, calls, count, nullptr, nullptr);
}

class SqliteConnectionTest : public SqliteFixture {
protected:
    SqliteConnectionTest() {
        write("CREATE TABLE T (a, b); INSERT INTO T VALUES (1, 2); CREATE VIEW V AS SELECT probe() AS p");
    }

    static int run(SqliteConnection& connection, const std::string& sql) {
        return sqlite3_exec(connection.handle(), sql.c_str(), nullptr, nullptr, nullptr);
    }

    /// The error that the connection raises for a statement that came to this result code.
    static AutomationError error_at(SqliteConnection& connection, int code) {
        sqlite3_create_function(connection.handle(), "fail", 1, SQLITE_UTF8, nullptr, fail, nullptr, nullptr);
        EXPECT_NE(run(connection, "SELECT fail(" + std::to_string(code) + ")"), SQLITE_OK);
        return error_of([&] { connection.raise("SELECT x"); });
    }
};

struct Failure {
    int code;
    bool ends_connection;
    const char* text;
    const char* why;
};
const Failure failures[] = {
    {SQLITE_BUSY, false, "Die Datenbank ist gesperrt, ein anderes Programm schreibt gerade hinein",
     "a lock passes"},
    {SQLITE_BUSY_SNAPSHOT, false, "Die Datenbank ist gesperrt, ein anderes Programm schreibt gerade hinein",
     "each kind of lock"},
    {SQLITE_LOCKED, false, "Die Datenbank ist gesperrt, ein anderes Programm schreibt gerade hinein",
     "a lock of the same program"},
    {SQLITE_CORRUPT, true, "Die Datenbank ist beschädigt", "no answer can be trusted"},
    {SQLITE_CORRUPT_INDEX, true, "Die Datenbank ist beschädigt", "an extended code"},
    {SQLITE_NOTADB, true, "Die Datei ist keine SQLite-Datenbank", "another file took its place"},
    {SQLITE_IOERR_READ, true, "Die Datenbank lässt sich nicht lesen oder schreiben, Fehler des Datenträgers",
     "a disk or a network that fails"},
    {SQLITE_IOERR_FSYNC, true, "Die Datenbank lässt sich nicht lesen oder schreiben, Fehler des Datenträgers",
     "likewise while writing"},
    {SQLITE_FULL, true, "Der Datenträger ist voll", "nothing more can be written"},
    {SQLITE_CANTOPEN, true, "Die Datenbank lässt sich nicht öffnen", "a file that went away"},
    {SQLITE_NOMEM, true, "Der Arbeitsspeicher reicht nicht aus", "answers may come without their texts"},
    {SQLITE_READONLY, false, "Die Datenbank ist schreibgeschützt", "reading goes on"},
    {SQLITE_READONLY_DBMOVED, false, "Die Datenbank ist schreibgeschützt", "an extended code"},
    {SQLITE_INTERRUPT, false, "Die Anweisung wurde abgebrochen", "the next one may run"},
    {SQLITE_ERROR, false, "SQLite meldet: SQLite's own text", "a mistake in a statement"},
    {SQLITE_CONSTRAINT_UNIQUE, false, "SQLite meldet: SQLite's own text", "a code without words of ours"},
};

TEST_F(SqliteConnectionTest, TellsWhatFailedAndFailsForGoodWhenNothingCanBeTrusted) {
    for (const auto& [code, ends_connection, text, why] : failures) {
        SCOPED_TRACE(why);
        SqliteConnection connection(path(), SqliteAccess::read_only);
        const AutomationError error = error_at(connection, code);
        EXPECT_EQ(static_cast<std::uint32_t>(error.number()), 0x80040000U + static_cast<std::uint32_t>(code));
        EXPECT_EQ(error.source(), "SQLite");
        EXPECT_EQ(error.description(), std::string(text) + ". Anweisung: SELECT x");
        const AutomationError later = error_of([&] { connection.require(); });
        EXPECT_EQ(later.number(), ends_connection ? error.number() : 0);
        if (ends_connection) {
            EXPECT_EQ(later.description(), error.description());
        }
    }
}

TEST_F(SqliteConnectionTest, AnswersWithTheErrorThatEndedItAlsoAfterOthers) {
    SqliteConnection connection(path(), SqliteAccess::read_only);
    error_at(connection, SQLITE_BUSY);
    EXPECT_NO_THROW(connection.require());
    const AutomationError end = error_at(connection, SQLITE_IOERR_READ);
    error_at(connection, SQLITE_ERROR);
    EXPECT_EQ(error_of([&] { connection.require(); }).number(), end.number());
}

TEST_F(SqliteConnectionTest, TellsInGermanWhatAStatementNamesWrongly) {
    const auto database = open();
    const struct {
        const char* sql;
        const char* text;
    } cases[] = {
        {"SELECT a FROM Fehlt", "Die Tabelle „Fehlt“ gibt es nicht"},
        {"SELECT a FROM #fehlt", "Die Tabelle „#fehlt“ gibt es nicht"},
        {"SELECT c FROM T", "Die Spalte „c“ gibt es nicht"},
        {"SELECT T.c FROM T", "Die Spalte „T.c“ gibt es nicht"},
        {"SELECT a FROM T, T t2", "Die Spalte „a“ ist nicht eindeutig"},
        {"SELECT a FROM T UNION SELECT a, b FROM T",
         "SQLite meldet: SELECTs to the left and right of UNION do not have the same number of result "
         "columns"},
    };
    for (const auto& [sql, text] : cases)
        EXPECT_EQ(error_of([&, sql = sql] { database->query_array(sql); }).description(),
                  std::string(text) + ". Anweisung: " + sql);
}

TEST_F(SqliteConnectionTest, LetsAForeignFileRunNoFunctionOfItsChoice) {
    SqliteConnection connection(path(), SqliteAccess::read_only);
    int calls = 0;
    ASSERT_EQ(count_calls(connection.handle(), "probe", &calls), SQLITE_OK);
    EXPECT_NE(run(connection, "SELECT p FROM V"), SQLITE_OK) << "a view may call what is harmless only";
    EXPECT_THAT(sqlite3_errmsg(connection.handle()), HasSubstr("unsafe use"));
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(run(connection, "SELECT probe()"), SQLITE_OK) << "a statement may call all";
    EXPECT_EQ(calls, 1);
}

TEST_F(SqliteConnectionTest, LetsNoStatementDamageTheFile) {
    SqliteConnection connection(path(), SqliteAccess::read_write);
    run(connection, "PRAGMA writable_schema=ON");
    EXPECT_NE(run(connection, "DELETE FROM sqlite_master"), SQLITE_OK);
    EXPECT_EQ(open()->query_value("SELECT a FROM T"), Value(std::int64_t{1}));
}

TEST_F(SqliteConnectionTest, TakesNoUnknownNameForATextInADefinitionEither) {
    SqliteConnection connection(path(), SqliteAccess::read_write);
    EXPECT_NE(run(connection, "CREATE INDEX i ON T (\"nothing\")"), SQLITE_OK);
}

TEST_F(SqliteConnectionTest, ReadsOnlyOrWritesAsItWasOpened) {
    SqliteConnection reader(path(), SqliteAccess::read_only);
    EXPECT_EQ(sqlite3_db_readonly(reader.handle(), "main"), 1);
    EXPECT_EQ(run(reader, "INSERT INTO T VALUES (2, 3)"), SQLITE_READONLY);
    SqliteConnection writer(path(), SqliteAccess::read_write);
    EXPECT_EQ(sqlite3_db_readonly(writer.handle(), "main"), 0);
    EXPECT_EQ(run(writer, "INSERT INTO T VALUES (2, 3)"), SQLITE_OK);
    EXPECT_EQ(open()->query_value("SELECT COUNT(*) FROM T"), Value(std::int64_t{2}));
}

}  // namespace
}  // namespace prot
