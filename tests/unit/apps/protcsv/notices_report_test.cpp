#include "apps/protcsv/notices_report.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

TEST(NoticesReport, SaysNothingWhenNothingWasLeftOut) { EXPECT_EQ(NoticesReport().text(), ""); }

TEST(NoticesReport, CountsFieldsTheMostFrequentFirst) {
    NoticesReport report;
    report.field_without_caption("TDEVISENKURS", "dzBar");
    for (int i = 0; i < 2; ++i) report.field_without_caption("TDEVISENKURS", "dzFoo");
    EXPECT_EQ(report.text(),
              "3 Felder ohne Beschriftung blieben weg: TDEVISENKURS.dzFoo (2), TDEVISENKURS.dzBar (1)\n");
}

TEST(NoticesReport, ListsTheRecordsWhoseDocumentDoesNotLoad) {
    NoticesReport report;
    report.unreadable_document(17);
    report.unreadable_document(23);
    EXPECT_EQ(report.text(), "2 Protokollsätze mit unlesbarem Änderungsdokument: 17, 23\n");
}

TEST(NoticesReport, SpeaksOfOneInTheSingular) {
    NoticesReport report;
    report.field_without_caption("T", "a");
    report.unreadable_document(1);
    EXPECT_EQ(report.text(),
              "1 Feld ohne Beschriftung blieb weg: T.a (1)\n"
              "1 Protokollsatz mit unlesbarem Änderungsdokument: 1\n");
}

TEST(NoticesReport, TellsFailedLookupsApartFromMissingCaptions) {
    NoticesReport report;
    EXPECT_EQ(report.failures_text(), "");
    report.lookup_failed("Die Tabelle „tX“ gibt es nicht.");
    EXPECT_EQ(report.failures_text(),
              "Die Datei kann unvollständig sein: 1 Abfrage einer Beschriftung oder eines früheren Wertes "
              "schlug fehl, "
              "zuerst: Die Tabelle „tX“ gibt es nicht.\n");
    report.lookup_failed("etwas anderes");
    EXPECT_EQ(report.failures_text(),
              "Die Datei kann unvollständig sein: 2 Abfragen von Beschriftungen oder früheren Werten "
              "schlugen fehl, "
              "zuerst: Die Tabelle „tX“ gibt es nicht.\n");
    EXPECT_EQ(report.text(), "");
}

TEST(NoticesReport, ListsTwentyAndCountsTheRest) {
    NoticesReport report;
    for (int id = 1; id <= 25; ++id) report.unreadable_document(id);
    EXPECT_EQ(report.text(),
              "25 Protokollsätze mit unlesbarem Änderungsdokument: 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, "
              "13, 14, 15, "
              "16, 17, 18, 19, 20 und 5 weitere\n");
}

TEST(NoticesReport, ListsTwentyFieldsAndCountsTheOtherKinds) {
    const auto text_of = [](int kinds) {
        NoticesReport report;
        for (int i = 0; i < kinds; ++i) report.field_without_caption("T", std::to_string(100 + i));
        return report.text();
    };
    EXPECT_TRUE(text_of(20).ends_with(", T.118 (1), T.119 (1)\n")) << text_of(20);
    EXPECT_TRUE(text_of(22).ends_with(", T.118 (1), T.119 (1) und 2 weitere\n")) << text_of(22);
}

TEST(NoticesReport, CountsTimesNotKindsAndTellsEqualNamesOfTwoTablesApart) {
    NoticesReport report;
    report.field_without_caption("U", "a");
    report.field_without_caption("U", "a");
    EXPECT_EQ(report.text(), "2 Felder ohne Beschriftung blieben weg: U.a (2)\n");
    report.field_without_caption("T", "a");
    report.field_without_caption("T", "b");
    report.field_without_caption("T", "a");
    EXPECT_EQ(report.text(), "5 Felder ohne Beschriftung blieben weg: T.a (2), U.a (2), T.b (1)\n")
        << "as many times: by name";
}

}  // namespace
}  // namespace prot
