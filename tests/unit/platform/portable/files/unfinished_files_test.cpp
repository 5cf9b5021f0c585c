#include "platform/portable/files/unfinished_files.h"

#include <gtest/gtest.h>

#include <chrono>

#include "platform/portable/files/atomic_file.h"
#include "platform/portable/files/remove_if_free.h"
#include "platform/portable/files/temporary_name.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

namespace fs = std::filesystem;

class UnfinishedFiles : public testing::Test {
protected:
    /// A file of that name, not written to for so many hours.
    fs::path put(const fs::path& name, int hours) const {
        const fs::path file = folder_.path() / name;
        write_file(file, "halb");
        fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(hours));
        return file;
    }
    bool stays(const fs::path& file) const {
        remove_unfinished_files(folder_.path());
        return fs::exists(file);
    }

    TemporaryFolder folder_;
};

TEST_F(UnfinishedFiles, AreRemovedWhenTheyAreOlderThanADay) {
    EXPECT_FALSE(stays(put(temporary_name("Prot_Devisenkurse_20260101_021500.csv"), 25)));
    EXPECT_TRUE(stays(put(temporary_name("Prot_Devisenkurse_20260101_021501.csv"), 23)));
}

TEST_F(UnfinishedFiles, AreKnownByTheirNames) {
    EXPECT_TRUE(is_temporary_name(temporary_name("a")));
    EXPECT_TRUE(is_temporary_name(temporary_name(folder_.path() / "Kurse Ä.csv")));
    for (const char* name :
         {"Prot.csv", "Prot.csv.tmp", "Prot.csv.0123456789abcde.tmp", "Prot.csv.0123456789ABCDEF.tmp",
          "Prot.csv-0123456789abcdef.tmp", "Prot.csv.0123456789abcdef.tmp2", ".0123456789abcdef.tmp",
          "0123456789abcdef.tmp"}) {
        EXPECT_FALSE(is_temporary_name(name)) << name;
        EXPECT_TRUE(stays(put(name, 100))) << name;
    }
}

TEST_F(UnfinishedFiles, OfAProgramThatRunsStay) {
    const std::unique_ptr<PendingFile> pending = system_files().prepare(folder_.path() / "lang.csv");
    pending->create();
    remove_if_free(pending->temporary_path());
    EXPECT_TRUE(fs::exists(pending->temporary_path()));
    pending->complete();
    EXPECT_TRUE(fs::exists(folder_.path() / "lang.csv"));
    remove_if_free(folder_.path() / "lang.csv");
    EXPECT_FALSE(fs::exists(folder_.path() / "lang.csv")) << "nobody has it open any more";
}

TEST_F(UnfinishedFiles, AreLookedForInAFolderThatIsThere) {
    EXPECT_NO_THROW(remove_unfinished_files(folder_.path() / "fehlt"));
}

}  // namespace
}  // namespace prot
