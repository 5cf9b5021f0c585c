#include "apps/protcsv/statement_log.h"

#include <gtest/gtest.h>

#include "tests/unit/support/fakes.h"
#include "tests/unit/support/full_disk.h"
#include "tests/unit/support/ordinary_user.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

TEST(StatementLogPosix, SaysWhenALineCouldNotBeWritten) {
    const TemporaryFolder folder;
    const std::string path = test::full_disk(folder.text("log"));
    if (path.empty()) GTEST_SKIP() << "the system has no /dev/full";
    const OrdinaryUser user;  // whom the system keeps from replacing a device, should the log try
    test::FakeDatabase database;
    StatementLog log(database, path);
    log.execute("DELETE x");
    try {
        log.close();
        FAIL() << "the line cannot have been written";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::file));
        EXPECT_EQ(error.description(), "Die Datei „" + path + "“ ist unvollständig geschrieben.");
    }
}

}  // namespace
}  // namespace prot
