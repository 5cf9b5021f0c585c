#include "platform/portable/files/private_folder.h"

#include <gtest/gtest.h>

#include "platform/automation/error.h"
#include "platform/portable/files/paths.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

namespace fs = std::filesystem;

TEST(PrivateFolder, GetsTheFirstNameThatIsFree) {
    const TemporaryFolder folder;
    const fs::path place = folder.path() / text_path("Archiv Ä");
    EXPECT_EQ(make_private_folder(place), place);
    write_file(folder.path() / text_path("Archiv Ä-2"), "eine Datei");
    EXPECT_EQ(make_private_folder(place), folder.path() / text_path("Archiv Ä-3"));
    EXPECT_TRUE(fs::is_directory(folder.path() / text_path("Archiv Ä-3")));
    EXPECT_TRUE(fs::is_regular_file(folder.path() / text_path("Archiv Ä-2")));
}

TEST(PrivateFolder, HoldsFilesThatItsOwnerCanUse) {
    const TemporaryFolder folder;
    const fs::path place = make_private_folder(folder.path() / "a");
    write_file(place / "x", "abc");
    make_private(place / "x");
    flush_file(place / "x");
    flush_folder(place);
    EXPECT_EQ(content_of(place / "x"), "abc");
}

TEST(PrivateFolder, FailsWithThePathWhereItCannotBe) {
    const TemporaryFolder folder;
    const auto description = [](auto call) {
        try {
            call();
        } catch (const AutomationError& error) {
            return error.description();
        }
        return std::string("kein Fehler");
    };
    EXPECT_NE(description([&] { make_private_folder(folder.path() / "fehlt" / "a"); }).find("fehlt"),
              std::string::npos);
    EXPECT_NE(description([&] { flush_file(folder.path() / "fehlt"); }).find("fehlt"), std::string::npos);
}

}  // namespace
}  // namespace prot
