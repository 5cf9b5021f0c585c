#include "apps/protcsv/statement_log.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "tests/unit/support/fakes.h"
#include "tests/unit/support/ordinary_user.h"

namespace prot {
namespace {

TEST(StatementLogPosix, SaysWhenALineCouldNotBeWritten) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "the system has no /dev/full";
    const OrdinaryUser user;  // whom the system keeps from replacing a device, should the log try
    test::FakeDatabase database;
    StatementLog log(database, "/dev/full");
    log.execute("DELETE x");
    EXPECT_THROW(log.close(), AutomationError);
}

}  // namespace
}  // namespace prot
