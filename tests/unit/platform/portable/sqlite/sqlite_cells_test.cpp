#include "platform/portable/sqlite/sqlite_cells.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

TEST(SqliteCells, KnowsTheDeclaredTypesOfDates) {
    for (const char* type :
         {"DATETIME", "DATE", "TIMESTAMP", "datetime", "Date", "TIMESTAMP(6)", "DATETIME (3)"})
        EXPECT_TRUE(is_date_type(type)) << type;
    for (const char* type : {"", "TEXT", "DATETIMES", "TIME", "DATETIME2", "(DATE)"})
        EXPECT_FALSE(is_date_type(type)) << type;
    EXPECT_FALSE(is_date_type(nullptr));
}

}  // namespace
}  // namespace prot
