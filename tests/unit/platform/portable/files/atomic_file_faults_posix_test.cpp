#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "tests/unit/platform/portable/files/atomic_file_fixture.h"
#include "tests/unit/platform/portable/files/system_calls.h"
#include "tests/unit/support/current_folder.h"

namespace prot {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

/// What the system may do to a file on its way.
class AtomicFileFaults : public AtomicFile {
protected:
    std::string failure_of(const std::string& content) {
        return description_of([&] { write_whole(folder / "a.csv", content); });
    }
};

TEST_F(AtomicFileFaults, AFailedStepLeavesTheEarlierFileAndNothingElse) {
    const struct {
        const char* call;
        int error;
        const char* reason;
        const char* why;
    } cases[] = {
        {"open", EROFS, "der Datenträger ist schreibgeschützt", "making the file"},
        {"open", EMFILE, "zu viele geöffnete Dateien", "making the file"},
        {"write", ENOSPC, "kein Platz mehr auf dem Datenträger", "the disk is full"},
        {"write", EFBIG, "die Datei würde zu groß", "a limit is reached"},
        {"write", EIO, "Ein-/Ausgabefehler des Datenträgers", "the disk fails"},
        {"fchmod", EPERM, "keine Berechtigung", "giving the permissions"},
        {"fsync", EIO, "Ein-/Ausgabefehler des Datenträgers", "the bytes do not reach the disk"},
        {"fsync", ENOSPC, "kein Platz mehr auf dem Datenträger", "a disk that finds out late"},
        {"close", EDQUOT, "das Speicherkontingent ist erschöpft", "a server that finds out last"},
        {"rename", EACCES, "keine Berechtigung", "taking the place"},
        {"rename", EBUSY, "die Datei wird gerade verwendet", "the place is taken"},
    };
    for (const auto& [call, error, reason, why] : cases) {
        SCOPED_TRACE(std::string(call) + ": " + why);
        write_file(folder / "a.csv", "earlier");
        SystemCalls calls;
        calls.fail(call, error);
        EXPECT_EQ(failure_of("new"),
                  "Die Datei „" + folder.text("a.csv") + "“ kann nicht geschrieben werden: " + reason + ".");
        EXPECT_EQ(content_of(folder / "a.csv"), "earlier");
        EXPECT_EQ(folder.entries(), 1U);
        EXPECT_EQ(calls.open_descriptors(), 0);
    }
}

TEST_F(AtomicFileFaults, AFileThatReplacesNothingFindsItsNameOnFileSystemsOfEveryKind) {
    const struct {
        int renaming;  // error of a renaming onto nothing
        int linking;   // error of a link
        std::vector<std::string> calls;
        const char* why;
    } cases[] = {
        {0, 0, {"renameat2", "renameat2"}, "most"},
        {EINVAL, 0, {"renameat2", "link", "renameat2", "link", "unlink"}, "one that cannot rename so"},
        {ENOSYS, 0, {"renameat2", "link", "renameat2", "link", "unlink"}, "a system that cannot"},
        {EINVAL,
         EPERM,
         {"renameat2", "link", "open", "renameat2", "link", "open", "close", "rename"},
         "one that knows no links either"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.why);
        write_file(folder / "a.csv", "earlier");
        const auto file = system_files().prepare(folder / "a.csv", Existing::kept);
        file->create();
        file->write("new");
        SystemCalls calls;
        for (int name = 1; name <= 2; ++name) {  // a failure counts calls that no earlier one took
            if (each.renaming != 0) calls.fail("renameat2", each.renaming);
            if (each.linking != 0) calls.fail("link", each.linking);
        }
        file->complete();
        std::vector<std::string> names = calls.names();
        const auto start = std::ranges::find(names, "renameat2");
        const auto end = std::find(start, names.end(), "fsync");  // of the folder
        // Opening the folder is not part of it.
        names.assign(start, end == names.end() ? end : end - 1);
        EXPECT_EQ(names, each.calls);
        EXPECT_EQ(file->place(), folder / "a-2.csv");
        EXPECT_EQ(content_of(folder / "a.csv"), "earlier");
        EXPECT_EQ(content_of(folder / "a-2.csv"), "new");
        EXPECT_EQ(folder.entries(), 2U);
        EXPECT_EQ(calls.open_descriptors(), -1) << "but for the file's own, opened before";
        fs::remove(folder / "a-2.csv");
    }
}

TEST_F(AtomicFileFaults, AFileThatReplacesNothingAndFindsNoNameLeavesNothing) {
    const struct {
        const char* call;
        int error;
    } cases[] = {{"renameat2", EACCES}, {"renameat2", EIO}};
    for (const auto& each : cases) {
        const auto file = system_files().prepare(folder / "a.csv", Existing::kept);
        file->create();
        SystemCalls calls;
        calls.fail(each.call, each.error);
        EXPECT_THAT(description_of([&] { file->complete(); }), HasSubstr(folder.text("a.csv")));
        file->discard();
        EXPECT_EQ(folder.entries(), 0U);
    }
}

TEST_F(AtomicFileFaults, AFullDiskMayShowAtAnyWrite) {
    write_file(folder / "a.csv", "earlier");
    SystemCalls calls;
    calls.write_at_most(4);
    calls.fail("write", ENOSPC, 3);
    EXPECT_THAT(failure_of("twelve bytes"), EndsWith("kein Platz mehr auf dem Datenträger."));
    EXPECT_EQ(content_of(folder / "a.csv"), "earlier");
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(AtomicFileFaults, ASystemThatTakesAFewBytesAtATimeGetsThemAll) {
    SystemCalls calls;
    calls.write_at_most(3);
    write_whole(folder / "a.csv", "ten bytes.");
    EXPECT_EQ(content_of(folder / "a.csv"), "ten bytes.");
}

TEST_F(AtomicFileFaults, AnInterruptionByASignalIsNone) {
    for (const char* const call : {"open", "write", "close"}) {
        SystemCalls calls;
        calls.fail(call, EINTR, 1);
        if (std::string(call) != "close") calls.fail(call, EINTR, 2);
        write_whole(folder / "a.csv", call);
        EXPECT_EQ(content_of(folder / "a.csv"), call);
        EXPECT_EQ(calls.open_descriptors(), 0) << "a descriptor is closed once: " << call;
    }
}

TEST_F(AtomicFileFaults, TheBytesReachTheDiskBeforeTheNameAndTheNameBeforeTheEnd) {
    SystemCalls calls;
    write_whole(folder / "a.csv", "x");
    EXPECT_THAT(calls.names(),
                ElementsAre("open", "write", "fchmod", "fsync", "close", "rename", "open", "fsync", "close"));
    EXPECT_EQ(calls.made()[3].descriptor, calls.made()[0].descriptor) << "the file";
    EXPECT_EQ(calls.made()[6].path, path_text(folder.path())) << "the folder, for the name";
    EXPECT_EQ(calls.made()[7].descriptor, calls.made()[6].descriptor);
    EXPECT_EQ(calls.open_descriptors(), 0);
}

TEST_F(AtomicFileFaults, TheCurrentFolderIsMadeSafeLikeAnyOther) {
    const CurrentFolder in(folder.path());
    SystemCalls calls;
    write_whole("a.csv", "x");
    EXPECT_THAT(calls.names(),
                ElementsAre("open", "write", "fchmod", "fsync", "close", "rename", "open", "fsync", "close"));
    EXPECT_EQ(calls.made()[6].path, ".");
    EXPECT_EQ(calls.made()[7].descriptor, calls.made()[6].descriptor);
}

TEST_F(AtomicFileFaults, TheFolderThatHoldsTheFileIsMadeSafeNotTheOneOfTheLinkToIt) {
    fs::create_directory(folder / "real");
    fs::create_symlink("real/a.csv", folder / "link");
    SystemCalls calls;
    write_whole(folder / "link", "x");
    ASSERT_EQ(calls.names().back(), "close");
    EXPECT_EQ(calls.made()[6].path, path_text(folder / "real"));
    EXPECT_EQ(calls.made()[7].descriptor, calls.made()[6].descriptor);
}

TEST_F(AtomicFileFaults, AFolderThatCannotBeMadeSafeHoldsTheFileAllTheSame) {
    for (const int nth : {2, 1}) {
        SystemCalls calls;
        nth == 2 ? calls.fail("open", EACCES, 2) : calls.fail("fsync", EINVAL, 2);
        write_whole(folder / "a.csv", "x");
        EXPECT_EQ(content_of(folder / "a.csv"), "x");
        EXPECT_EQ(calls.open_descriptors(), 0);
    }
}

TEST_F(AtomicFileFaults, AFileWrittenDirectlyIsNeitherRenamedNorRemoved) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    const int reader = ::open((folder / "pipe").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    for (const char* const call : {"", "write", "close"}) {
        SystemCalls calls;
        calls.fail(call, EIO);
        const std::string error = description_of([&] { write_whole(folder / "pipe", "x"); });
        EXPECT_EQ(error == "no error", std::string(call).empty()) << error;
        if (error == "no error") {
            EXPECT_THAT(calls.names(), ElementsAre("open", "write", "close"))
                << "permissions and syncing are the other side's affair";
        }
        EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
    }
    ::close(reader);
}

TEST_F(AtomicFileFaults, NoProgramThatIsStartedMeanwhileInheritsTheFile) {
    SystemCalls calls;
    const auto file = system_files().prepare(folder / "a.csv");
    file->create();
    EXPECT_NE(::fcntl(calls.made()[0].descriptor, F_GETFD) & FD_CLOEXEC, 0);
    file->complete();
    for (const SystemCalls::Call& call : calls.made()) {
        if (call.name == "open") {
            EXPECT_NE(call.flags & O_CLOEXEC, 0) << call.path;
        }
    }
}

TEST_F(AtomicFileFaults, ATemporaryNameThatIsTakenIsAnErrorAndStaysAsItIs) {
    const auto file = system_files().prepare(folder / "a.csv");
    write_file(file->temporary_path(), "somebody else's");
    EXPECT_THAT(description_of([&] { file->create(); }), HasSubstr("der Name ist schon vergeben"));
    file->discard();
    EXPECT_EQ(content_of(file->temporary_path()), "somebody else's");
}

TEST_F(AtomicFileFaults, NoLinkInPlaceOfTheTemporaryFileIsFollowed) {
    const auto file = system_files().prepare(folder / "a.csv");
    write_file(folder / "victim", "whole");
    fs::create_symlink(folder / "victim", file->temporary_path());
    EXPECT_THAT(description_of([&] { file->create(); }), HasSubstr("der Name ist schon vergeben"));
    EXPECT_EQ(content_of(folder / "victim"), "whole");
}

TEST_F(AtomicFileFaults, WhatAnOpenDescriptorHoldsAlreadyStays) {
    const int descriptor = ::open((folder / "out").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_EQ(::write(descriptor, "before ", 7), 7);
    write_whole("/proc/self/fd/" + std::to_string(descriptor), "and behind");
    ::close(descriptor);
    EXPECT_EQ(content_of(folder / "out"), "before and behind");
}

// A pseudo-terminal of the test's own is a device that nothing can take the place of.
TEST_F(AtomicFileFaults, ATerminalIsWrittenWithoutBecomingTheProgramsOwn) {
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (terminal < 0) GTEST_SKIP() << "the system has no pseudo-terminals";
    ASSERT_TRUE(::grantpt(terminal) == 0 && ::unlockpt(terminal) == 0);
    const std::string name = ::ptsname(terminal);
    EXPECT_EXIT(
        {
            ::setsid();
            const auto file = system_files().prepare(name);
            file->create();
            file->write("x");
            ::_exit(file->temporary_path().empty() && ::open("/dev/tty", O_RDWR | O_CLOEXEC) < 0 ? 7 : 1);
        },
        testing::ExitedWithCode(7), "");
    EXPECT_TRUE(fs::is_character_file(name));
    ::close(terminal);
}

TEST_F(AtomicFileFaults, LinksAreFollowedAsFarAsTheSystemFollowsThem) {
    write_file(folder / "0", "earlier");
    for (int link = 1; link <= 41; ++link)
        fs::create_symlink(std::to_string(link - 1), folder / std::to_string(link));
    write_whole(folder / "40", "new");
    EXPECT_EQ(content_of(folder / "0"), "new");
    EXPECT_THAT(description_of([&] { write_whole(folder / "41", "newer"); }), HasSubstr("führen im Kreis"));
    EXPECT_EQ(content_of(folder / "0"), "new");
}

TEST_F(AtomicFileFaults, TheErrorNamesTheLinkThatAPersonKnows) {
    fs::create_symlink(folder / "no" / "a.csv", folder / "link");
    EXPECT_EQ(description_of([&] { write_whole(folder / "link", ""); }),
              "Die Datei „" + folder.text("link") +
                  "“ kann nicht geschrieben werden: der Ordner ist nicht vorhanden.");
}

}  // namespace
}  // namespace prot
