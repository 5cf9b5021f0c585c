#include "apps/protcsv/report/closing_text.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

using std::chrono::milliseconds;

TEST(ClosingText, GroupsDigitsByThree) {
    const struct {
        std::int64_t number;
        const char* text;
    } cases[] = {{0, "0"},          {999, "999"},  {1000, "1 000"}, {1048576, "1 048 576"},
                 {-1000, "-1 000"}, {-100, "-100"}};
    for (const auto& row : cases) EXPECT_EQ(grouped(row.number), row.text);
}

TEST(ClosingText, SaysWhatWasReadAndWrittenAndHowLongItTook) {
    NoticesReport notices;
    for (int id = 0; id < 1204; ++id) notices.record_read(id, 3, NoLine::none);
    EXPECT_EQ(closing_line(notices, milliseconds(899)),
              "1 204 Protokollsätze gelesen, 3 612 Zeilen geschrieben, 0,8 s\n");
    EXPECT_EQ(closing_line(notices, milliseconds(1'234'050)),
              "1 204 Protokollsätze gelesen, 3 612 Zeilen geschrieben, 1 234,0 s\n");
}

TEST(ClosingText, SaysWhyRecordsHaveNoLine) {
    NoticesReport notices;
    notices.record_read(1, 1, NoLine::none);
    notices.record_read(2, 0, NoLine::unreadable_document);
    EXPECT_EQ(closing_line(notices, milliseconds(0)),
              "2 Protokollsätze gelesen, 1 Zeile geschrieben, 1 Satz ohne Zeile (1 unlesbar), 0,0 s\n");
    for (int id = 3; id < 6; ++id) {
        notices.field_without_caption("T", "f");
        notices.record_read(id, 0, NoLine::no_field_exported);
    }
    notices.record_read(6, 0, NoLine::no_field_exported);
    notices.record_read(7, 0, NoLine::without_changes);
    notices.record_read(8, 0, NoLine::without_moment);
    notices.record_read(9, 0, NoLine::not_described);
    EXPECT_EQ(closing_line(notices, milliseconds(0)),
              "9 Protokollsätze gelesen, 1 Zeile geschrieben, 8 Sätze ohne Zeile (3 ohne Beschriftung, "
              "1 ohne auszugebendes Feld, 1 unlesbar, 1 ohne geändertes Feld, 1 ohne Zeitpunkt, 1 ohne "
              "Zuordnung), 0,0 s\n");
}

TEST(ClosingText, SpeaksOfOneRecordInTheSingular) {
    NoticesReport notices;
    notices.record_read(1, 2, NoLine::none);
    EXPECT_EQ(closing_line(notices, milliseconds(0)),
              "1 Protokollsatz gelesen, 2 Zeilen geschrieben, 0,0 s\n");
}

TEST(ClosingText, SaysWhereTheFirstCharactersWereReplaced) {
    ReplacedCharacters replaced;
    EXPECT_EQ(replaced_text(replaced, "a.csv"), "");
    const auto add = [&](std::int64_t line) {
        ++replaced.count;
        replaced.first.push_back({line, 7, "Ω"});
    };
    add(3);
    EXPECT_EQ(replaced_text(replaced, "a.csv"),
              "1 Zeichen, das die Kodierung nicht kennt, steht als ? in der Datei „a.csv“: Ω in Zeile 3, "
              "Spalte 7\n");
    for (std::int64_t line = 4; line < 25; ++line) add(line);
    const std::string text = replaced_text(replaced, "a.csv");
    EXPECT_TRUE(
        text.starts_with("22 Zeichen, die die Kodierung nicht kennt, stehen als ? in der Datei "
                         "„a.csv“: Ω in Zeile 3, Spalte 7; Ω in Zeile 4, Spalte 7; "))
        << text;
    EXPECT_TRUE(text.ends_with("Ω in Zeile 22, Spalte 7 und 2 weitere\n")) << text;
}

TEST(ClosingText, WarnsOfAFileThatNoSpreadsheetTakesWhole) {
    EXPECT_EQ(too_long_text(1'048'576), "");
    EXPECT_EQ(too_long_text(1'048'577),
              "Die Datei hat 1 048 577 Zeilen, ein Tabellenblatt fasst nur 1 048 576; --from und --to teilen "
              "den Export auf\n");
}

TEST(ClosingText, CountsWhatADeletionIsAbout) {
    EXPECT_EQ(amount_text(1, 1), "1 Protokollsatz und 1 Memotext");
    EXPECT_EQ(amount_text(0, 2), "0 Protokollsätze und 2 Memotexte");
    EXPECT_EQ(amount_text(1234567, 0), grouped(1234567) + " Protokollsätze und 0 Memotexte");
}

}  // namespace
}  // namespace prot
