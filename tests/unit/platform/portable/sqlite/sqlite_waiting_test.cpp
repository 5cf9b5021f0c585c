#include <gmock/gmock.h>

#include <functional>

#include "tests/unit/platform/portable/sqlite/fake_sleep.h"
#include "tests/unit/platform/portable/sqlite/sqlite_fixture.h"

namespace prot {
namespace {

constexpr std::uint32_t base = 0x80040000;
constexpr int time_limit = 2000;  // milliseconds

/// Another program that writes into the database: it holds its lock until it is told to stop.
class OtherProgram {
public:
    explicit OtherProgram(const std::string& path) {
        EXPECT_EQ(sqlite3_open(path.c_str(), &handle_), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(handle_, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    }
    ~OtherProgram() { stop(); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    void stop() { sqlite3_close(std::exchange(handle_, nullptr)); }

private:
    sqlite3* handle_ = nullptr;
};

class SqliteWaiting : public SqliteFixture {
protected:
    SqliteWaiting() { write("CREATE TABLE T (a); INSERT INTO T VALUES (7)"); }

    FakeSleep sleep_;
};

TEST_F(SqliteWaiting, GivesUpTwoSecondsAfterTheStatementBegan) {
    const auto database = open(SqliteAccess::read_write);
    OtherProgram other(path());
    const struct {
        const char* why;
        std::function<void()> call;
    } cases[] = {
        {"a value", [&] { database->query_value("SELECT a FROM T"); }},
        {"rows", [&] { database->query_array("SELECT a FROM T"); }},
        {"a deletion", [&] { database->execute("DELETE T"); }},
        {"a temporary table", [&] { database->execute("SELECT a INTO #t FROM T"); }},
        {"look-ups", [&] { database->begin_lookups(); }},
        {"opening", [&] { open(SqliteAccess::read_only); }},
        {"opening for writing", [&] { open(SqliteAccess::read_write); }},
    };
    for (const auto& [why, call] : cases) {
        sleep_.reset();
        const AutomationError error = error_of(call);
        EXPECT_EQ(static_cast<std::uint32_t>(error.number()), base + SQLITE_BUSY) << why;
        EXPECT_EQ(sleep_.milliseconds(), time_limit) << why;
    }
    other.stop();
    EXPECT_NO_THROW(database->require_connection());
    EXPECT_EQ(database->query_value("SELECT a FROM T"), Value(std::int64_t{7}));
}

TEST_F(SqliteWaiting, GoesOnAsSoonAsTheLockIsGone) {
    for (const int release : {100, time_limit - 100}) {
        const auto database = open();
        OtherProgram other(path());
        sleep_.reset();
        sleep_.meanwhile([&](int passed) {
            if (passed >= release) other.stop();
        });
        EXPECT_EQ(database->query_value("SELECT a FROM T"), Value(std::int64_t{7}));
        EXPECT_GE(sleep_.milliseconds(), release);
        EXPECT_LE(sleep_.milliseconds(), release + 100);
        sleep_.meanwhile(nullptr);
    }
}

}  // namespace
}  // namespace prot
