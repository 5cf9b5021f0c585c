#include "platform/portable/atomic_file.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <thread>

#include "tests/unit/platform/portable/temporary_folder.h"

namespace prot {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class AtomicFile : public testing::Test {
protected:
    void write_whole(const fs::path& target, const std::string& content) {
        const auto file = system_files().prepare(target);
        file->create();
        file->write(content);
        file->complete();
    }

    template <class Step>
    static std::string description_of(Step step) {
        try {
            step();
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::file));
            return error.description();
        }
        return "no error";
    }

    static mode_t mode_of(const fs::path& path) {
        struct stat status = {};
        EXPECT_EQ(::stat(path.c_str(), &status), 0);
        return status.st_mode & 07777;
    }

    TemporaryFolder folder;
};

TEST_F(AtomicFile, PutsTheFileInItsPlaceOnlyWhenComplete) {
    const auto file = system_files().prepare(folder / "a.csv");
    EXPECT_EQ(folder.entries(), 0U) << "preparing makes nothing";
    file->create();
    file->write("one ");
    file->write("two");
    EXPECT_FALSE(fs::exists(folder / "a.csv"));
    EXPECT_EQ(content_of(file->temporary_path()), "one two");
    file->complete();
    EXPECT_EQ(content_of(folder / "a.csv"), "one two");
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(AtomicFile, NamesTheTemporaryFileAfterTheTargetInItsFolder) {
    const fs::path temporary = system_files().prepare(folder / "a.csv")->temporary_path();
    EXPECT_EQ(temporary.parent_path(), folder.path());
    EXPECT_THAT(temporary.filename().string(), testing::MatchesRegex("a\\.csv\\.[0-9a-f]{16}\\.tmp"));
    EXPECT_NE(temporary, system_files().prepare(folder / "a.csv")->temporary_path());
}

TEST_F(AtomicFile, CutsTheTemporaryNameOfALongTargetAtACharacter) {
    std::string name = "x";
    for (int i = 0; i < 125; ++i) name += "ä";
    const std::string cut = system_files().prepare(folder / name)->temporary_path().filename().string();
    EXPECT_EQ(cut.substr(0, cut.find('.')), name.substr(0, 199));
    write_whole(folder / name, "long");
    EXPECT_EQ(content_of(folder / name), "long");
}

TEST_F(AtomicFile, KeepsTheEarlierFileWholeUntilComplete) {
    write_file(folder / "a.csv", "earlier");
    const auto file = system_files().prepare(folder / "a.csv");
    file->create();
    file->write("new");
    EXPECT_EQ(content_of(folder / "a.csv"), "earlier");
    file->complete();
    EXPECT_EQ(content_of(folder / "a.csv"), "new");
}

TEST_F(AtomicFile, RemovesTheTemporaryFileWhenDiscarded) {
    write_file(folder / "a.csv", "earlier");
    const auto file = system_files().prepare(folder / "a.csv");
    file->discard();
    file->create();
    file->write("new");
    file->discard();
    EXPECT_EQ(folder.entries(), 1U);
    file->discard();
    EXPECT_EQ(content_of(folder / "a.csv"), "earlier");
}

TEST_F(AtomicFile, RemovesTheTemporaryFileWhenDestroyed) {
    {
        const auto file = system_files().prepare(folder / "a.csv");
        file->create();
        EXPECT_EQ(folder.entries(), 1U);
    }
    EXPECT_EQ(folder.entries(), 0U);
}

TEST_F(AtomicFile, IsItsOwnersAloneUntilCompleteAndThenFollowsTheUmask) {
    const mode_t before = ::umask(027);
    const auto file = system_files().prepare(folder / "a.csv");
    file->create();
    EXPECT_EQ(mode_of(file->temporary_path()), 0600U);
    file->complete();
    EXPECT_EQ(mode_of(folder / "a.csv"), 0640U);
    EXPECT_EQ(::umask(before), 027U) << "the umask stays as it was";
}

TEST_F(AtomicFile, LetsTheLastCompletionOfTwoWin) {
    const auto first = system_files().prepare(folder / "a.csv");
    const auto second = system_files().prepare(folder / "a.csv");
    first->create();
    second->create();
    first->write("first");
    second->write("second");
    second->complete();
    EXPECT_EQ(content_of(folder / "a.csv"), "second");
    first->complete();
    EXPECT_EQ(content_of(folder / "a.csv"), "first");
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(AtomicFile, ReplacesTheFileBehindSymbolicLinks) {
    fs::create_directory(folder / "real");
    write_file(folder / "real" / "a.csv", "earlier");
    fs::create_symlink("real/a.csv", folder / "relative");
    fs::create_symlink(folder / "relative", folder / "link");
    EXPECT_EQ(system_files().prepare(folder / "link")->temporary_path().parent_path(), folder / "real");
    write_whole(folder / "link", "new");
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_TRUE(fs::is_symlink(folder / "relative"));
    EXPECT_EQ(content_of(folder / "real" / "a.csv"), "new");
    EXPECT_FALSE(fs::is_symlink(folder / "real" / "a.csv"));
}

TEST_F(AtomicFile, MakesTheFileThatADanglingLinkNames) {
    fs::create_symlink("a.csv", folder / "link");
    write_whole(folder / "link", "new");
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(content_of(folder / "a.csv"), "new");
}

TEST_F(AtomicFile, RefusesLinksInACircle) {
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("a", folder / "b");
    EXPECT_THAT(description_of([&] { write_whole(folder / "a", ""); }), HasSubstr("führen im Kreis"));
}

TEST_F(AtomicFile, WritesADeviceDirectly) {
    const auto file = system_files().prepare("/dev/null");
    EXPECT_TRUE(file->temporary_path().empty());
    write_whole("/dev/null", "gone");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(AtomicFile, WritesAPipeDirectly) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::string received;
    std::thread reader([&] { received = content_of(folder / "pipe"); });
    write_whole(folder / "pipe", "through");
    reader.join();
    EXPECT_EQ(received, "through");
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(AtomicFile, WritesAFileThatIsReachedAsAnOpenDescriptorDirectly) {
    const int descriptor = ::open((folder / "out").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_GE(descriptor, 0);
    const std::string path = "/proc/self/fd/" + std::to_string(descriptor);
    EXPECT_TRUE(system_files().prepare(path)->temporary_path().empty());
    write_whole(path, "direct");
    ::close(descriptor);
    EXPECT_EQ(content_of(folder / "out"), "direct");
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(AtomicFile, RefusesAFolderAndANamelessTarget) {
    for (const fs::path& target :
         {folder.path(), folder.path() / "", folder / "new" / "", fs::path(""), fs::path("..")}) {
        EXPECT_THAT(description_of([&] { system_files().prepare(target); }), HasSubstr("ist ein Ordner"))
            << target;
    }
}

TEST_F(AtomicFile, TellsThePathAndThatTheDiskIsFull) {
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "the system has no /dev/full";
    EXPECT_EQ(description_of([&] { write_whole("/dev/full", "x"); }),
              "Die Datei „/dev/full“ kann nicht geschrieben werden: kein Platz mehr auf dem Datenträger.");
}

TEST_F(AtomicFile, TellsThatTheFolderIsMissing) {
    EXPECT_EQ(description_of([&] { write_whole(folder / "no" / "." / "a.csv", ""); }),
              "Die Datei „" + (folder / "no" / "a.csv").string() +
                  "“ kann nicht geschrieben werden: der Ordner ist nicht vorhanden.");
}

TEST_F(AtomicFile, FailsWhenTheFolderVanishes) {
    fs::create_directory(folder / "sub");
    const auto file = system_files().prepare(folder / "sub" / "a.csv");
    file->create();
    fs::remove_all(folder / "sub");
    file->write("x");
    EXPECT_THAT(description_of([&] { file->complete(); }), HasSubstr("der Ordner ist nicht vorhanden"));
    file->discard();
}

TEST_F(AtomicFile, FailsWhenAFolderTookThePlace) {
    const auto file = system_files().prepare(folder / "a.csv");
    file->create();
    fs::create_directory(folder / "a.csv");
    EXPECT_THAT(description_of([&] { file->complete(); }), HasSubstr("ist ein Ordner"));
    file->discard();
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(AtomicFile, FailsInAFolderWithoutPermission) {
    fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
    {
        const OrdinaryUser user;
        EXPECT_THAT(description_of([&] { write_whole(folder / "a.csv", ""); }),
                    HasSubstr("keine Berechtigung"));
        EXPECT_THAT(description_of([&] { system_files().make_folder(folder.path()); }),
                    HasSubstr("keine Berechtigung"))
            << "told before anything is written";
    }
    fs::permissions(folder.path(), fs::perms::owner_all);
}

TEST_F(AtomicFile, MakesAFolderWithItsParents) {
    system_files().make_folder(folder / "a" / "b" / "");
    EXPECT_TRUE(fs::is_directory(folder / "a" / "b"));
    system_files().make_folder(folder / "a" / "b");
}

TEST_F(AtomicFile, TellsThatAFolderCannotBeMadeBelowAFile) {
    write_file(folder / "file", "");
    EXPECT_EQ(description_of([&] { system_files().make_folder(folder / "file" / "sub"); }),
              "Der Ordner „" + (folder / "file" / "sub").string() +
                  "“ kann nicht angelegt werden: ein Teil des Pfades ist kein Ordner.");
    EXPECT_THAT(description_of([&] { system_files().make_folder(folder / "file"); }),
                StartsWith("Der Ordner"));
}

TEST_F(AtomicFile, DescribesAnErrorInOneLine) {
    const std::string text =
        file_error("a\r\nb", std::error_code(EDQUOT, std::system_category())).description();
    EXPECT_EQ(text,
              "Die Datei „a??b“ kann nicht geschrieben werden: das Speicherkontingent ist erschöpft.");
    EXPECT_THAT(file_error("a", std::error_code(9999, std::system_category())).description(),
                AllOf(HasSubstr("Systemfehler 9999"), Not(HasSubstr("\n"))));
}

}  // namespace
}  // namespace prot
