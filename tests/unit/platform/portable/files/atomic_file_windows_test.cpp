#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <optional>
#include <thread>

#include "platform/portable/files/windows_error.h"
#include "tests/unit/platform/portable/files/atomic_file_fixture.h"

namespace prot {
namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;

/// A file or folder that a program has open; what it shares with others is `share`.
class OpenFile {
public:
    OpenFile(const fs::path& path, DWORD share)
        : handle_(CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {
        EXPECT_NE(handle_, INVALID_HANDLE_VALUE);
    }
    ~OpenFile() { CloseHandle(handle_); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

private:
    HANDLE handle_;
};

constexpr DWORD disk_quota_exceeded = 1295;  // the compiler's headers lack its name

using AtomicFileWindows = AtomicFile;

TEST_F(AtomicFileWindows, TellsThatTheTargetIsOpenInAnotherProgramAndLeavesIt) {
    struct {
        DWORD share;
        const char* why;
    } const rows[] = {{0, "a program that shares nothing"}, {FILE_SHARE_READ, "as spreadsheets open files"}};
    write_file(folder / "a.csv", "earlier");
    for (const auto& row : rows) {
        {
            const OpenFile open(folder / "a.csv", row.share);
            EXPECT_EQ(description_of([&] { write_whole(folder / "a.csv", "new"); }),
                      "Die Datei „" + folder.text("a.csv") +
                          "“ kann nicht geschrieben werden: die Datei wird gerade verwendet.")
                << row.why;
        }
        EXPECT_EQ(content_of(folder / "a.csv"), "earlier") << row.why;
        EXPECT_EQ(folder.entries(), 1U) << row.why;
    }
}

TEST_F(AtomicFileWindows, WaitsForAProgramThatHasTheTargetOpenForAnInstant) {
    write_file(folder / "a.csv", "earlier");
    std::optional<OpenFile> scanner(std::in_place, folder / "a.csv", FILE_SHARE_READ);
    std::thread end_of_scan([&] {
        Sleep(200);
        scanner.reset();
    });
    EXPECT_EQ(description_of([&] { write_whole(folder / "a.csv", "new"); }), "no error");
    end_of_scan.join();
    EXPECT_EQ(content_of(folder / "a.csv"), "new");
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(AtomicFileWindows, WaitsForAProgramThatHasTheFolderOpenForAnInstant) {
    fs::create_directory(folder / "new");
    std::optional<OpenFile> scanner(std::in_place, folder / "new", FILE_SHARE_READ);
    std::thread end_of_scan([&] {
        Sleep(200);
        scanner.reset();
    });
    EXPECT_EQ(description_of([&] { system_files().make_folder(folder / "new"); }), "no error");
    end_of_scan.join();
}

TEST_F(AtomicFileWindows, TellsThatANameIsNotAllowed) {
    for (const char* name : {"a?b.csv", "a*.csv", "a|b.csv", "a<b>.csv"}) {
        EXPECT_THAT(description_of([&] { write_whole(folder / name, "x"); }),
                    EndsWith("der Name ist nicht zulässig."))
            << name;
    }
    EXPECT_EQ(folder.entries(), 0U);
}

TEST_F(AtomicFileWindows, WritesADeviceDirectly) {
    for (const char* device : {"NUL", "nul", R"(\\.\NUL)"}) {
        EXPECT_TRUE(system_files().prepare(device)->temporary_path().empty()) << device;
        EXPECT_EQ(description_of([&] { write_whole(device, "gone"); }), "no error") << device;
    }
}

TEST_F(AtomicFileWindows, WritesAPipeDirectly) {
    for (const char* pipe : {R"(\\.\pipe\prot)", R"(\\server\pipe\prot)", R"(\\server\PIPE\prot)"})
        EXPECT_TRUE(system_files().prepare(pipe)->temporary_path().empty()) << pipe;
    EXPECT_FALSE(system_files().prepare(R"(\\server\share\prot)")->temporary_path().empty());
}

TEST_F(AtomicFileWindows, TakesATargetWhoseTemporaryNameIsLongerThanAPathMayBe) {
    const std::size_t rest = MAX_PATH - 2 - folder.path().native().size();
    const fs::path target = folder / (std::string(rest - 4, 'x') + ".csv");
    ASSERT_EQ(target.native().size(), MAX_PATH - 1U);
    write_whole(target, "long");
    EXPECT_EQ(content_of(target), "long");
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(AtomicFileWindows, FailsWhenItsTemporaryFileVanishes) {
    write_file(folder / "a.csv", "earlier");
    const auto file = system_files().prepare(folder / "a.csv");
    file->create();
    file->write("new");
    DeleteFileW(file->temporary_path().c_str());
    EXPECT_THAT(description_of([&] { file->complete(); }), HasSubstr(folder.text("a.csv")));
    file->discard();
    EXPECT_EQ(content_of(folder / "a.csv"), "earlier");
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(AtomicFileWindows, CanBeRemovedWhileItIsWritten) {
    const auto file = system_files().prepare(folder / "a.csv");
    file->create();
    file->write("x");
    EXPECT_NE(DeleteFileW(file->temporary_path().c_str()), 0) << "as a program does that is stopped";
    file->discard();
    EXPECT_EQ(folder.entries(), 0U);
}

TEST(WindowsError, BecomesTheReasonThatAPersonReads) {
    struct {
        DWORD code;
        const char* reason;
    } const rows[] = {
        {ERROR_SHARING_VIOLATION, "die Datei wird gerade verwendet"},
        {ERROR_LOCK_VIOLATION, "die Datei wird gerade verwendet"},
        {ERROR_ACCESS_DENIED, "keine Berechtigung"},
        {ERROR_DISK_FULL, "kein Platz mehr auf dem Datenträger"},
        {ERROR_PATH_NOT_FOUND, "der Ordner ist nicht vorhanden"},
        {ERROR_BAD_NETPATH, "der Ordner ist nicht vorhanden"},
        {ERROR_INVALID_NAME, "der Name ist nicht zulässig"},
        {ERROR_FILENAME_EXCED_RANGE, "der Name ist zu lang"},
        {ERROR_WRITE_PROTECT, "der Datenträger ist schreibgeschützt"},
        {ERROR_NOT_READY, "das Gerät ist nicht vorhanden"},
        {ERROR_CRC, "Ein-/Ausgabefehler des Datenträgers"},
        {ERROR_NO_DATA, "der Empfänger hat die Verbindung beendet"},
        {disk_quota_exceeded, "das Speicherkontingent ist erschöpft"},
        {9999, "Systemfehler 9999"},
    };
    for (const auto& row : rows)
        EXPECT_THAT(file_error("a", windows_error(row.code)).description(),
                    EndsWith(": " + std::string(row.reason) + "."))
            << row.code;
}

}  // namespace
}  // namespace prot
