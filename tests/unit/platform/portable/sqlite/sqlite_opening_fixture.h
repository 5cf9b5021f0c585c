#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "platform/portable/sqlite/sqlite_opening.h"
#include "tests/unit/platform/portable/sqlite/sqlite_fixture.h"

namespace prot {

class SqliteOpening : public SqliteFixture {
protected:
    void expect_problem(const std::string& file, int code, const std::string& text,
                        SqliteAccess access = SqliteAccess::read_only) const {
        const AutomationError error = error_of([&] { open_sqlite_database(file, access); });
        EXPECT_EQ(static_cast<std::uint32_t>(error.number()), 0x80040000U + static_cast<std::uint32_t>(code));
        EXPECT_EQ(error.source(), "SQLite");
        EXPECT_THAT(error.description(), testing::StartsWith("Die Datenbank „" + file + "“ " + text));
        EXPECT_THAT(error.description(), testing::Not(testing::HasSubstr("\n")));
    }
};

}  // namespace prot
