#include <gtest/gtest.h>

#include <filesystem>

#include "apps/protcsv/database/database_address.h"
#include "apps/protcsv/options/usage_error.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

namespace fs = std::filesystem;

TEST(DatabaseAddressFilePosix, IsRefusedWhenOthersCanReadIt) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "ziel";
    write_file(file, "firma.db\n");
    for (const fs::perms others : {fs::perms::group_read, fs::perms::others_read, fs::perms::others_write}) {
        fs::permissions(file, fs::perms::owner_read | others);
        try {
            database_on_command_line("@" + file.string());
            ADD_FAILURE() << static_cast<int>(others);
        } catch (const UsageError& error) {
            EXPECT_EQ(std::string(error.what()),
                      "die Datei „" + file.string() +
                          "“ dürfen auch andere lesen; chmod 600 nimmt ihnen das Recht");
        }
    }
    fs::permissions(file, fs::perms::owner_read);
    EXPECT_EQ(database_on_command_line("@" + file.string()).file, "firma.db");
}

}  // namespace
}  // namespace prot
