#include "platform/portable/csv/csv_file_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/unit/platform/portable/csv/csv_file_writer_fixture.h"
#include "tests/unit/support/current_folder.h"

namespace prot {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(CsvFileWriterTest, WritesAFileWithAByteOrderMarkByDefault) {
    CsvFileOptions defaults;
    defaults.folder = folder.path();
    CsvFileWriter writer(defaults, host);
    EXPECT_EQ(open(writer, "a.csv"), "a.csv");
    write(writer, {"Währung", "=1", "a;b"});
    write(writer, {"-1,5", "", ""});
    writer.close();
    EXPECT_EQ(content_of(folder / "a.csv"), "\xEF\xBB\xBFWährung;'=1;\"a;b\"\r\n-1,5;;\r\n");
    EXPECT_THAT(host.told, ElementsAre("unfinished file", "no unfinished file",
                                       "finished " + path_text(folder / "a.csv")));
}

TEST_F(CsvFileWriterTest, WritesTheOptionsThatItIsGiven) {
    CsvFileOptions raw = options();
    raw.separator = '\t';
    raw.raw_cells = true;
    CsvFileWriter writer(raw, host);
    open(writer, "a.csv");
    write(writer, {"=1", "a\tb", "c;d"});
    writer.close();
    EXPECT_EQ(content_of(folder / "a.csv"), "=1\t\"a\tb\"\tc;d\r\n");
}

TEST_F(CsvFileWriterTest, NeverReplacesAFileThatTheRunItselfNeeds) {
    write_file(folder / "firma.db", "wichtig");
    CsvFileOptions careful = options();
    careful.never_replaced = {folder / "missing.db", folder / "firma.db"};
    CsvFileWriter writer(careful, host);
    std::string file_name = "firma.db";
    EXPECT_EQ(error_of([&] { writer.open(file_name, false); }),
              "Die Datei „" + folder.text("firma.db") +
                  "“ kann nicht geschrieben werden: der Lauf selbst braucht diese Datei.");
    EXPECT_EQ(content_of(folder / "firma.db"), "wichtig");
    EXPECT_EQ(open(writer, "a.csv"), "a.csv");
}

TEST_F(CsvFileWriterTest, NeverReplacesAFileThatTheRunItselfNeedsByWayOfAFolderStillToBeMade) {
    write_file(folder / "firma.db", "wichtig");
    CsvFileOptions careful = options();
    careful.folder = folder / "new";
    careful.never_replaced = {folder / "firma.db"};
    CsvFileWriter writer(careful, host);
    std::string file_name = "../firma.db";
    EXPECT_THAT(error_of([&] { writer.open(file_name, false); }), HasSubstr("braucht diese Datei"));
    EXPECT_EQ(content_of(folder / "firma.db"), "wichtig");
}

TEST_F(CsvFileWriterTest, LeavesTheEarlierFileUntilClose) {
    host.choice = "";  // a name that a person takes is replaced
    write_file(folder / "a.csv", "earlier");
    CsvFileWriter writer(options(), host);
    open(writer, "a.csv", true);
    write(writer, {"new"});
    EXPECT_EQ(content_of(folder / "a.csv"), "earlier");
    EXPECT_EQ(folder.entries(), 2U);
    writer.close();
    EXPECT_EQ(content_of(folder / "a.csv"), "new\r\n");
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(CsvFileWriterTest, ReplacesNothingUnderANameThatNobodyChose) {
    for (const char* name : {"a.csv", "a-2.csv", "a-3.csv"}) {
        CsvFileWriter writer(options(), host);
        EXPECT_EQ(open(writer, "a.csv"), "a.csv");
        write(writer, {name});
        writer.close();
        EXPECT_EQ(host.told.back(), "finished " + path_text(folder / name));
        writer.show();
        EXPECT_EQ(host.told.back(), "show " + path_text(folder / name));
    }
    for (const char* name : {"a.csv", "a-2.csv", "a-3.csv"})
        EXPECT_EQ(content_of(folder / name), std::string(name) + "\r\n");
    EXPECT_EQ(folder.entries(), 3U);
}

TEST_F(CsvFileWriterTest, LeavesNothingWhenDestroyedBeforeClose) {
    {
        CsvFileWriter writer(options(), host);
        open(writer, "a.csv");
        write(writer, {"x"});
    }
    EXPECT_EQ(folder.entries(), 0U);
    EXPECT_THAT(host.told, ElementsAre("unfinished file", "no unfinished file"));
}

TEST_F(CsvFileWriterTest, GivesUpAnUnfinishedFileAtTheNextOpen) {
    CsvFileWriter writer(options(), host);
    open(writer, "a.csv");
    write(writer, {"x"});
    open(writer, "b.csv");
    write(writer, {"y"});
    writer.close();
    EXPECT_EQ(folder.entries(), 1U);
    EXPECT_EQ(content_of(folder / "b.csv"), "y\r\n");
}

TEST_F(CsvFileWriterTest, WritesOneFileAfterAnother) {
    CsvFileWriter writer(options(), host);
    for (const char* name : {"a.csv", "b.csv", "a.csv"}) {
        open(writer, name);
        write(writer, {name});
        writer.close();
    }
    EXPECT_EQ(content_of(folder / "a.csv"), "a.csv\r\n");
    EXPECT_EQ(content_of(folder / "b.csv"), "b.csv\r\n");
}

TEST_F(CsvFileWriterTest, MakesTheFolderOnlyAtOpen) {
    CsvFileOptions deep = options();
    deep.folder = folder / "x" / "y";
    CsvFileWriter writer(deep, host);
    EXPECT_EQ(folder.entries(), 0U);
    open(writer, "a.csv");
    writer.close();
    EXPECT_EQ(content_of(folder / "x" / "y" / "a.csv"), "");
}

TEST_F(CsvFileWriterTest, TakesAnAbsoluteNameAsItStandsAndMakesNoFolder) {
    CsvFileOptions elsewhere = options();
    elsewhere.folder = folder / "unused";
    CsvFileWriter writer(elsewhere, host);
    open(writer, path_text(folder / "a.csv"));
    writer.close();
    EXPECT_TRUE(fs::exists(folder / "a.csv"));
    EXPECT_FALSE(fs::exists(folder / "unused"));
}

TEST_F(CsvFileWriterTest, TellsThePathInItsShortestForm) {
    CsvFileOptions winding = options();
    winding.folder = folder / "." / "x" / ".." / ".";
    fs::create_directory(folder / "x");
    CsvFileWriter writer(winding, host);
    open(writer, "./a.csv");
    writer.close();
    EXPECT_EQ(host.told.back(), "finished " + path_text(folder / "a.csv"));
}

TEST_F(CsvFileWriterTest, TellsOnlyTheNameInTheCurrentFolder) {
    host.choice = "";  // a name that a person takes is replaced
    const CurrentFolder in(folder.path());
    for (const char* current : {"", ".", "./"}) {
        CsvFileOptions here = options();
        here.folder = current;
        CsvFileWriter writer(here, host);
        open(writer, "a.csv", true);
        writer.close();
        EXPECT_EQ(host.told.back(), "finished a.csv");
    }
}

TEST_F(CsvFileWriterTest, WritesUnderTheNameThatThePersonChooses) {
    host.choice = "mine.csv";
    CsvFileWriter writer(options(), host);
    EXPECT_EQ(open(writer, "a.csv", true), "mine.csv");
    writer.close();
    EXPECT_TRUE(fs::exists(folder / "mine.csv"));
    EXPECT_EQ(host.told.front(), "ask a.csv");
}

TEST_F(CsvFileWriterTest, TakesTheSuggestionForAnEmptyChoice) {
    host.choice = "";
    CsvFileWriter writer(options(), host);
    EXPECT_EQ(open(writer, "a.csv", true), "a.csv");
    writer.close();
    EXPECT_TRUE(fs::exists(folder / "a.csv"));
}

TEST_F(CsvFileWriterTest, OpensNothingWhenThePersonCancels) {
    CsvFileOptions deep = options();
    deep.folder = folder / "x";
    CsvFileWriter writer(deep, host);
    std::string name = "a.csv";
    EXPECT_FALSE(writer.open(name, true));
    EXPECT_EQ(name, "a.csv");
    EXPECT_EQ(folder.entries(), 0U);
    EXPECT_THAT(host.told, ElementsAre("ask a.csv"));
}

TEST_F(CsvFileWriterTest, ShowsTheFinishedFileAndNoOther) {
    CsvFileWriter writer(options(), host);
    writer.show();
    open(writer, "a.csv");
    writer.show();
    writer.close();
    host.told.clear();
    writer.show();
    EXPECT_THAT(host.told, ElementsAre("show " + path_text(folder / "a.csv")));
    open(writer, "b.csv");
    host.told.clear();
    writer.show();
    EXPECT_THAT(host.told, IsEmpty()) << "the earlier one is not the file of this run";
}

TEST_F(CsvFileWriterTest, TellsOncePerFileThatCharactersWereReplaced) {
    CsvFileWriter writer(options(CsvEncoding::windows_1252), host);
    open(writer, "a.csv");
    write(writer, {"Łódź", "Ł"});
    write(writer, {"Ł"});
    writer.close();
    EXPECT_EQ(content_of(folder / "a.csv"),
              "?\xF3"
              "d?;?\r\n?\r\n");
    EXPECT_EQ(std::count(host.told.begin(), host.told.end(), "replaced " + path_text(folder / "a.csv")), 1);
    host.told.clear();
    open(writer, "b.csv");
    write(writer, {"ä"});
    writer.close();
    EXPECT_THAT(host.told, ElementsAre("unfinished file", "no unfinished file",
                                       "finished " + path_text(folder / "b.csv")));
}

TEST_F(CsvFileWriterTest, TellsWhichCharactersWereReplaced) {
    CsvFileWriter writer(options(CsvEncoding::windows_1252), host);
    open(writer, "a.csv");
    write(writer, {"a", "Ł"});
    writer.close();
    EXPECT_EQ(host.replaced.count, 1);
    EXPECT_EQ(host.replaced.first, (std::vector<ReplacedCharacters::Place>{{1, 2, "Ł"}}));
}

TEST_F(CsvFileWriterTest, HandsTheHostEveryByteOfAFile) {
    CsvFileWriter writer(options(CsvEncoding::utf8_bom), host);
    for (const char* name : {"a.csv", "b.csv"}) {
        open(writer, name);
        for (int i = 0; i < 1000; ++i) write(writer, {std::string(1000, 'x'), "ä"});
        writer.close();
        EXPECT_TRUE(host.bytes == content_of(folder / name)) << name;
    }
}

TEST_F(CsvFileWriterTest, GivesEveryFileTheNameThatWasChosenBefore) {
    CsvFileOptions chosen = options();
    chosen.output = text_path("gewählt.csv");
    write_file(folder / text_path("gewählt.csv"), "alt");
    CsvFileWriter writer(chosen, host);
    for (const bool ask_user : {true, false}) {
        EXPECT_EQ(open(writer, "vorschlag.csv", ask_user), "gewählt.csv");
        write(writer, {ask_user ? "gefragt" : "stumm"});
        writer.close();
        EXPECT_EQ(content_of(folder / text_path("gewählt.csv")), ask_user ? "gefragt\r\n" : "stumm\r\n");
    }
    EXPECT_EQ(std::count(host.told.begin(), host.told.end(), "ask vorschlag.csv"), 0);
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(CsvFileWriterTest, KeepsAnEarlierFileOfTheChosenNameWhereThatIsWanted) {
    CsvFileOptions chosen = options();
    chosen.output = "gewählt.csv";
    chosen.existing_output = Existing::kept;
    write_file(folder / "gewählt.csv", "alt");
    CsvFileWriter writer(chosen, host);
    open(writer, "vorschlag.csv", true);
    writer.close();
    EXPECT_EQ(content_of(folder / "gewählt.csv"), "alt");
    EXPECT_TRUE(std::filesystem::exists(folder / "gewählt-2.csv"));
}

TEST_F(CsvFileWriterTest, WritesNoFileWhereAnotherOfTheRunIsStillToBeMade) {
    CsvFileOptions careful = options();
    careful.never_replaced = {folder / "noch/../bericht.json"};
    CsvFileWriter writer(careful, host);
    EXPECT_NE(error_of([&] { open(writer, "bericht.json"); }), "no error");
    EXPECT_EQ(folder.entries(), 0U);
}

TEST_F(CsvFileWriterTest, WritesLinesAndCellsLargerThanItsBuffer) {
    CsvFileWriter writer(options(), host);
    open(writer, "a.csv");
    std::string expected;
    const std::string huge(5'000'000, 'x');
    for (int i = 0; i < 100'000; ++i) {
        const std::string number = std::to_string(i);
        write(writer, {number, "ä"});
        expected += number + ";ä\r\n";
        if (i == 50'000) {
            write(writer, {huge, huge});
            expected += huge + ";" + huge + "\r\n";
        }
    }
    writer.close();
    EXPECT_TRUE(content_of(folder / "a.csv") == expected);
}

}  // namespace
}  // namespace prot
