#include "apps/protcsv/notices_report.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

void unreadable(NoticesReport& report, std::int64_t log_id) {
    report.record_read(log_id, 0, NoLine::unreadable_document);
}

/// All that is told but for failures.
std::string text_of(const NoticesReport& report) { return report.fields_text() + report.documents_text(); }

TEST(NoticesReport, SaysNothingWhenNothingWasLeftOut) { EXPECT_EQ(text_of(NoticesReport()), ""); }

TEST(NoticesReport, CountsFieldsTheMostFrequentFirst) {
    NoticesReport report;
    report.field_without_caption("TDEVISENKURS", "dzBar");
    for (int i = 0; i < 2; ++i) report.field_without_caption("TDEVISENKURS", "dzFoo");
    EXPECT_EQ(text_of(report),
              "3 Felder ohne Beschriftung blieben weg: TDEVISENKURS.dzFoo (2), TDEVISENKURS.dzBar (1)\n");
}

TEST(NoticesReport, ListsTheRecordsWhoseDocumentDoesNotLoad) {
    NoticesReport report;
    unreadable(report, 17);
    unreadable(report, 23);
    EXPECT_EQ(text_of(report), "2 Protokollsätze mit unlesbarem Änderungsdokument: 17, 23\n");
}

TEST(NoticesReport, SpeaksOfOneInTheSingular) {
    NoticesReport report;
    report.field_without_caption("T", "a");
    unreadable(report, 1);
    EXPECT_EQ(text_of(report),
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
    EXPECT_EQ(text_of(report), "");
}

TEST(NoticesReport, ListsTwentyAndCountsTheRest) {
    NoticesReport report;
    for (int id = 1; id <= 25; ++id) unreadable(report, id);
    EXPECT_EQ(text_of(report),
              "25 Protokollsätze mit unlesbarem Änderungsdokument: 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, "
              "13, 14, 15, "
              "16, 17, 18, 19, 20 und 5 weitere\n");
}

TEST(NoticesReport, ListsTwentyFieldsAndCountsTheOtherKinds) {
    const auto text_of_kinds = [](int kinds) {
        NoticesReport report;
        for (int i = 0; i < kinds; ++i) report.field_without_caption("T", std::to_string(100 + i));
        return text_of(report);
    };
    EXPECT_TRUE(text_of_kinds(20).ends_with(", T.118 (1), T.119 (1)\n")) << text_of_kinds(20);
    EXPECT_TRUE(text_of_kinds(22).ends_with(", T.118 (1), T.119 (1) und 2 weitere\n")) << text_of_kinds(22);
}

TEST(NoticesReport, CountsTimesNotKindsAndTellsEqualNamesOfTwoTablesApart) {
    NoticesReport report;
    report.field_without_caption("U", "a");
    report.field_without_caption("U", "a");
    EXPECT_EQ(text_of(report), "2 Felder ohne Beschriftung blieben weg: U.a (2)\n");
    report.field_without_caption("T", "a");
    report.field_without_caption("T", "b");
    report.field_without_caption("T", "a");
    EXPECT_EQ(text_of(report), "5 Felder ohne Beschriftung blieben weg: T.a (2), U.a (2), T.b (1)\n")
        << "as many times: by name";
}

TEST(NoticesReport, TellsWhyRecordsHaveNoLine) {
    const struct {
        const char* why;
        NoLine told;
        bool lacks_caption;
        LeftOut reason;
    } cases[] = {
        {"a caption is missing", NoLine::no_field_exported, true, LeftOut::without_caption},
        {"its fields are never exported", NoLine::no_field_exported, false, LeftOut::not_exported},
        {"its document does not load", NoLine::unreadable_document, false, LeftOut::unreadable_document},
        {"nothing changed", NoLine::without_changes, false, LeftOut::without_changes},
        {"no moment", NoLine::without_moment, false, LeftOut::without_moment},
        {"no description", NoLine::not_described, true, LeftOut::not_described},
    };
    for (const auto& row : cases) {
        NoticesReport report;
        if (row.lacks_caption) report.field_without_caption("T", "f");
        report.record_read(7, 0, row.told);
        EXPECT_EQ(report.left_out(row.reason).first, std::vector<std::int64_t>{7}) << row.why;
        EXPECT_EQ(report.left_out(row.reason).count, 1) << row.why;
        EXPECT_EQ(report.left_out(), 1) << row.why;
    }
}

TEST(NoticesReport, KeepsAMissingCaptionToTheRecordThatLacksIt) {
    NoticesReport report;
    report.field_without_caption("T", "f");
    report.record_read(1, 2, NoLine::none);
    report.record_read(2, 0, NoLine::no_field_exported);
    EXPECT_EQ(report.left_out(LeftOut::without_caption).count, 0);
    EXPECT_EQ(report.left_out(LeftOut::not_exported).count, 1);
    EXPECT_EQ(report.records(), 2);
    EXPECT_EQ(report.lines(), 2);
}

TEST(NoticesReport, ListsAThousandRecordsAndCountsTheRest) {
    NoticesReport report;
    for (int id = 1; id <= 1001; ++id) unreadable(report, id);
    EXPECT_EQ(report.left_out(LeftOut::unreadable_document).first.size(), 1000U);
    EXPECT_EQ(report.left_out(LeftOut::unreadable_document).first.back(), 1000);
    EXPECT_EQ(report.left_out(LeftOut::unreadable_document).count, 1001);
}

}  // namespace
}  // namespace prot
