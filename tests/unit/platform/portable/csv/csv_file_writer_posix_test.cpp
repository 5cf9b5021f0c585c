#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

#include "tests/unit/platform/portable/csv/csv_file_writer_fixture.h"
#include "tests/unit/platform/portable/files/system_calls.h"
#include "tests/unit/support/ordinary_user.h"

namespace prot {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using CsvFileWriterPosix = CsvFileWriterTest;

TEST_F(CsvFileWriterPosix, WritesADeviceWithoutATemporaryFile) {
    const OrdinaryUser user;  // whom the system keeps from replacing a device, should the writer try
    CsvFileWriter writer(options(), host);
    open(writer, "/dev/null");
    write(writer, {"x"});
    writer.close();
    EXPECT_THAT(host.told, ElementsAre("finished /dev/null"));
}

TEST_F(CsvFileWriterPosix, TellsThatTheDiskIsFullAtTheLatestAtClose) {
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "the system has no /dev/full";
    const OrdinaryUser user;
    CsvFileWriter writer(options(), host);
    open(writer, "/dev/full");
    write(writer, {"x"});
    EXPECT_EQ(error_of([&] { writer.close(); }),
              "Die Datei „/dev/full“ kann nicht geschrieben werden: kein Platz mehr auf dem Datenträger.");
    EXPECT_THAT(host.told, IsEmpty());
}

TEST_F(CsvFileWriterPosix, TellsThatTheDiskIsFullWhileWriting) {
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "the system has no /dev/full";
    const OrdinaryUser user;
    CsvFileWriter writer(options(), host);
    open(writer, "/dev/full");
    EXPECT_THAT(error_of([&] { write(writer, {std::string(1'000'000, 'x')}); }),
                HasSubstr("kein Platz mehr"));
    EXPECT_THAT(error_of([&] { write(writer, {"y"}); }), HasSubstr("/dev/full"));
    EXPECT_THAT(error_of([&] { writer.close(); }), HasSubstr("nicht geöffnet"));
}

TEST_F(CsvFileWriterPosix, EndsTheFileWhenTheDiskIsFull) {
    for (const std::size_t size : {std::size_t{1}, std::size_t{1'000'000}}) {
        write_file(folder / "a.csv", "earlier");
        host.told.clear();
        SystemCalls calls;
        calls.fail("write", ENOSPC);
        CsvFileWriter writer(options(), host);
        open(writer, "a.csv");
        EXPECT_EQ(error_of([&] {
                      write(writer, {std::string(size, 'x')});
                      writer.close();
                  }),
                  "Die Datei „" + folder.text("a.csv") +
                      "“ kann nicht geschrieben werden: kein Platz mehr auf dem Datenträger.");
        EXPECT_THAT(host.told, ElementsAre("unfinished file", "no unfinished file"));
        EXPECT_THAT(error_of([&] { writer.close(); }), HasSubstr("nicht geöffnet"));
        writer.show();
        EXPECT_EQ(host.told.size(), 2U) << "nothing to show";
        EXPECT_EQ(content_of(folder / "a.csv"), "earlier");
        EXPECT_EQ(folder.entries(), 1U);
        EXPECT_EQ(calls.open_descriptors(), 0);
    }
}

TEST_F(CsvFileWriterPosix, EndsTheFileWhenItCannotTakeItsPlace) {
    host.choice = "";  // a name that a person takes is replaced
    write_file(folder / "a.csv", "earlier");
    SystemCalls calls;
    calls.fail("rename", EACCES);
    CsvFileWriter writer(options(), host);
    open(writer, "a.csv", true);
    write(writer, {"x"});
    EXPECT_THAT(error_of([&] { writer.close(); }), HasSubstr("keine Berechtigung"));
    EXPECT_THAT(host.told, ElementsAre("ask a.csv", "unfinished file", "no unfinished file"));
    EXPECT_EQ(content_of(folder / "a.csv"), "earlier");
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(CsvFileWriterPosix, FailsAtCloseWhenTheFolderVanished) {
    CsvFileOptions sub = options();
    sub.folder = folder / "sub";
    CsvFileWriter writer(sub, host);
    open(writer, "a.csv");
    write(writer, {"x"});
    fs::remove_all(sub.folder);
    EXPECT_THAT(error_of([&] { writer.close(); }), HasSubstr(path_text(sub.folder / "a.csv")));
    EXPECT_THAT(host.told, ElementsAre("unfinished file", "no unfinished file"));
}

TEST_F(CsvFileWriterPosix, NeverReplacesAFileThatTheRunItselfNeedsByWayOfALink) {
    write_file(folder / "firma.db", "wichtig");
    fs::create_symlink(folder / "firma.db", folder / "link.csv");
    CsvFileOptions careful = options();
    careful.never_replaced = {folder / "firma.db"};
    CsvFileWriter writer(careful, host);
    std::string name = "link.csv";
    EXPECT_THAT(error_of([&] { writer.open(name, false); }), HasSubstr("braucht diese Datei"));
    EXPECT_EQ(content_of(folder / "firma.db"), "wichtig");
}

}  // namespace
}  // namespace prot
