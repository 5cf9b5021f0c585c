#include "platform/portable/files/atomic_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

#include "tests/unit/platform/portable/files/atomic_file_fixture.h"

namespace prot {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

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
    const std::regex name("a\\.csv\\.[0-9a-f]{16}\\.tmp");
    EXPECT_TRUE(std::regex_match(path_text(temporary.filename()), name)) << temporary;
    EXPECT_NE(temporary, system_files().prepare(folder / "a.csv")->temporary_path());
}

TEST_F(AtomicFile, CutsTheTemporaryNameOfALongTargetAtACharacter) {
    std::string name = "x";
    for (int i = 0; i < 125; ++i) name += "ä";
    const fs::path target = folder / text_path(name);
    const std::string cut = path_text(system_files().prepare(target)->temporary_path().filename());
    EXPECT_EQ(cut.substr(0, cut.find('.')), name.substr(0, 199));
    write_whole(target, "long");
    EXPECT_EQ(content_of(target), "long");
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

TEST_F(AtomicFile, GivesEachOfTwoThatReplaceNothingANameOfItsOwn) {
    const auto first = system_files().prepare(folder / "a.b.csv", Existing::kept);
    const auto second = system_files().prepare(folder / "a.b.csv", Existing::kept);
    first->create();
    second->create();
    first->write("first");
    second->write("second");
    second->complete();
    first->complete();
    EXPECT_EQ(second->place(), folder / "a.b.csv");
    EXPECT_EQ(first->place(), folder / "a.b-2.csv");
    EXPECT_EQ(content_of(folder / "a.b.csv"), "second");
    EXPECT_EQ(content_of(folder / "a.b-2.csv"), "first");
    EXPECT_EQ(folder.entries(), 2U);
}

TEST_F(AtomicFile, KeepsAFolderThatTookThePlaceMeanwhile) {
    const auto file = system_files().prepare(folder / "a", Existing::kept);
    file->create();
    fs::create_directory(folder / "a");
    fs::create_directory(folder / "a-2");
    file->complete();
    EXPECT_EQ(file->place(), folder / "a-3");
    EXPECT_EQ(folder.entries(), 3U);
}

TEST_F(AtomicFile, TellsItsPlaceWhenItReplaces) {
    const auto file = system_files().prepare(folder / "a.csv");
    file->create();
    file->complete();
    EXPECT_EQ(file->place(), folder / "a.csv");
}

TEST_F(AtomicFile, RefusesAFolderAndANamelessTarget) {
    for (const fs::path& target :
         {folder.path(), folder.path() / "", folder / "new" / "", fs::path(""), fs::path("..")}) {
        EXPECT_THAT(description_of([&] { system_files().prepare(target); }), HasSubstr("ist ein Ordner"))
            << target;
    }
}

TEST_F(AtomicFile, TellsThatTheFolderIsMissing) {
    EXPECT_EQ(description_of([&] { write_whole(folder / "no" / "." / "a.csv", ""); }),
              "Die Datei „" + path_text(folder / "no" / "a.csv") +
                  "“ kann nicht geschrieben werden: der Ordner ist nicht vorhanden.");
}

TEST_F(AtomicFile, FailsWhenAFolderTookThePlace) {
    const auto file = system_files().prepare(folder / "a.csv");
    file->create();
    fs::create_directory(folder / "a.csv");
    EXPECT_THAT(description_of([&] { file->complete(); }), HasSubstr("ist ein Ordner"));
    file->discard();
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(AtomicFile, MakesAFolderWithItsParents) {
    system_files().make_folder(folder / "a" / "b" / "");
    EXPECT_TRUE(fs::is_directory(folder / "a" / "b"));
    system_files().make_folder(folder / "a" / "b");
}

TEST_F(AtomicFile, TellsThatAFolderCannotBeMadeBelowAFile) {
    write_file(folder / "file", "");
    EXPECT_EQ(description_of([&] { system_files().make_folder(folder / "file" / "sub"); }),
              "Der Ordner „" + path_text(folder / "file" / "sub") +
                  "“ kann nicht angelegt werden: ein Teil des Pfades ist kein Ordner.");
    EXPECT_THAT(description_of([&] { system_files().make_folder(folder / "file"); }),
                StartsWith("Der Ordner"));
}

TEST_F(AtomicFile, DescribesAnErrorInOneLine) {
    EXPECT_EQ(file_error("a\r\nb", std::make_error_code(std::errc::file_exists)).description(),
              "Die Datei „a??b“ kann nicht geschrieben werden: der Name ist schon vergeben.");
    EXPECT_THAT(file_error("a", std::error_code(9999, std::system_category())).description(),
                AllOf(HasSubstr("Systemfehler 9999"), Not(HasSubstr("\n"))));
}

TEST_F(AtomicFile, TakesUmlautsInNames) {
    const fs::path target = folder / text_path("Ä/Übersicht äöüß €.csv");
    system_files().make_folder(target.parent_path());
    write_whole(target, "x");
    EXPECT_EQ(content_of(target), "x");
    EXPECT_EQ(path_text(target.filename()), "Übersicht äöüß €.csv");
    EXPECT_THAT(description_of([&] { write_whole(folder / text_path("Ö") / "a.csv", ""); }),
                HasSubstr(folder.text("Ö")));
}

}  // namespace
}  // namespace prot
