#include "platform/portable/files/private_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/unit/support/database_answers.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

namespace fs = std::filesystem;

int permissions(const fs::path& path) { return static_cast<int>(fs::status(path).permissions()); }

class Umask {
public:
    explicit Umask(mode_t mask) : before_(::umask(mask)) {}
    ~Umask() { ::umask(before_); }
    Umask(const Umask&) = delete;
    Umask& operator=(const Umask&) = delete;

private:
    mode_t before_;
};

TEST(PrivateFolder, IsItsOwnersAloneWhateverTheUmask) {
    const TemporaryFolder folder;
    for (const mode_t mask : {0000U, 0022U, 0777U}) {
        const Umask umask(mask);
        EXPECT_EQ(permissions(make_private_folder(folder.path() / std::to_string(mask))), 0700) << mask;
    }
    write_file(folder.path() / "a", "x");
    fs::permissions(folder.path() / "a", fs::perms::all);
    make_private(folder.path() / "a");
    EXPECT_EQ(permissions(folder.path() / "a"), 0600);
}

}  // namespace
}  // namespace prot
