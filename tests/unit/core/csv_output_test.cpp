#include <gtest/gtest.h>

#include "core/ProtQRBCsvBas.h"
#include "core/export_frame.h"
#include "tests/unit/support/fakes.h"

namespace prot {
namespace {

using test::FakeHost;
using test::server_error;
using Lines = std::vector<std::vector<std::string>>;

TEST(FileName, CarriesATimeStampInBatchModeOnly) {
    FakeHost host;
    host.time = {2026, 1, 2, 3, 4, 5};
    EXPECT_EQ(csv_file_name("Kunden", "", host.environment), "Prot_Kunden.csv");
    EXPECT_EQ(csv_file_name("Kunden", "/autostart", host.environment), "Prot_Kunden_20260102_030405.csv");
}

TEST(FileName, IsTheSameForTwoBatchRunsWithinASecond) {
    FakeHost host;
    EXPECT_EQ(gsDateiZeitstempel(host.environment), "_20261115_100715");
    EXPECT_EQ(gsDateiZeitstempel(host.environment), "_20261115_100715");
}

TEST(FileName, HasNoTimeStampWhenTheTimeCannotBeTold) {
    struct StoppedClock : Clock {
        CivilTime now() override { throw server_error("Uhr fehlt"); }
    } clock;
    FakeHost host;
    Environment environment{host, host, host, host, host, clock, host};
    EXPECT_EQ(csv_file_name("Kunden", "/autostart", environment), "Prot_Kunden.csv");
    EXPECT_TRUE(host.errors.empty());
}

class NoDataFile : public testing::Test {
protected:
    FakeHost host;
    void write(const std::string& file, std::string_view parameters) {
        gWriteCSVAutoStartOhneDaten(file, parameters, "Keine Daten vorhanden!", host.environment);
    }
};

TEST_F(NoDataFile, HoldsTheMessageAndOneParameterAColumn) {
    write("x.csv", "/sektion:15/autostart");
    ASSERT_EQ(host.written.files.size(), 1U);
    const auto& file = host.written.files[0];
    EXPECT_EQ(file.lines, (Lines{{"Keine Daten vorhanden!", ""}, {"", ""}, {"sektion", ""}, {"15", ""}}));
    EXPECT_FALSE(file.asked);
    EXPECT_TRUE(file.closed);
    EXPECT_FALSE(file.shown);
}

TEST_F(NoDataFile, HasOneCellALineForATextWithoutSlash) {
    write("x.csv", "autostart");
    EXPECT_EQ(host.written.files.at(0).lines, (Lines{{"Keine Daten vorhanden!"}, {""}, {""}, {""}}));
}

TEST_F(NoDataFile, ScansTheKeysOfAFrameworkText) {
    write("x.csv", "/autostart/auswertungsrahmen:A/B/sektion:10");
    EXPECT_EQ(
        host.written.files.at(0).lines,
        (Lines{{"Keine Daten vorhanden!", ""}, {"", ""}, {"sektion", "auswertungsrahmen"}, {"10", "A/B"}}));
}

TEST_F(NoDataFile, IsNotWrittenWithoutNameOrParameters) {
    write("", "/autostart");
    write("x.csv", "");
    EXPECT_TRUE(host.written.files.empty());
}

TEST_F(NoDataFile, ShowsAnError) {
    host.written.open_failure = server_error("Ordner fehlt");
    write("x.csv", "/autostart");
    ASSERT_EQ(host.errors.size(), 1U);
    EXPECT_EQ(host.errors[0].source,
              PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtQRBCsvBas.gWriteCSVAutoStartOhneDaten");
}

TEST_F(NoDataFile, IsReplacedByAMessageOfTheSectionsStyleInAnInteractiveRun) {
    for (const BoxStyle style : {BoxStyle::information, BoxStyle::exclamation}) {
        host.boxes.clear();
        report_no_data("x.csv", "", style, host.environment);
        EXPECT_EQ(host.boxes,
                  (std::vector<test::ShownBox>{{"Keine Daten vorhanden!", style, "Protokollierung"}}));
    }
    EXPECT_TRUE(host.written.files.empty());
}

TEST_F(NoDataFile, IsWrittenInABatchRunWithoutAMessage) {
    report_no_data("x.csv", "/autostart", BoxStyle::exclamation, host.environment);
    EXPECT_EQ(host.written.files.at(0).name, "x.csv");
    EXPECT_TRUE(host.boxes.empty());
}

}  // namespace
}  // namespace prot
