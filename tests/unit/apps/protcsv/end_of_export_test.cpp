#include "tests/unit/apps/protcsv/program_fixture.h"

/// What an export says at its end, and its exit status.
namespace prot::test {
namespace {

class EndOfExport : public ProgramTest {
protected:
    int export_batch(const std::string& section, std::vector<std::string> more = {}) {
        more.insert(more.end(), {"--params", "/autostart", "--out", path("")});
        return run_section("export", section, more);
    }
};

TEST_F(EndOfExport, IsALineOfWhatWasReadAndWrittenUnlessQuiet) {
    EXPECT_EQ(export_batch("records"), 0);
    EXPECT_EQ(closing,
              "2 Protokollsätze gelesen, 3 Zeilen geschrieben, 1 Satz ohne Zeile (1 ohne geändertes Feld), "
              "$TIME");
    EXPECT_EQ(errors, "");
    EXPECT_EQ(export_batch("records", {"--quiet"}), 0);
    EXPECT_EQ(closing, "");
}

TEST_F(EndOfExport, IsThatLineWithoutDataToo) {
    EXPECT_EQ(export_batch("box"), 0);
    EXPECT_EQ(closing, "0 Protokollsätze gelesen, 0 Zeilen geschrieben, $TIME");
}

TEST_F(EndOfExport, IsNoSuchLineOfARunThatFailedOrWasCancelledNorOfADeletion) {
    EXPECT_EQ(export_batch("left-out"), 1);
    EXPECT_EQ(closing, "");
    EXPECT_EQ(run_section("export", "form", {"--out", path("")}), 2);
    EXPECT_EQ(closing, "");
    EXPECT_EQ(run_section("delete", "delete", {"--yes"}), 0);
    EXPECT_EQ(closing, "");
}

TEST_F(EndOfExport, HasStatusFourWhenALookupFailedAndThePathAllTheSame) {
    EXPECT_EQ(export_batch("lookups"), 4);
    EXPECT_EQ(output, path("Prot.csv") + "\n");
    EXPECT_EQ(
        run({"run", "--db", database(), "--params", "/sektion:14/autostart", "--out", path(""), "--quiet"}),
        4);
    EXPECT_EQ(output, path("Prot-2.csv") + "\n");
}

TEST_F(EndOfExport, HasStatusFourForMissingCaptionsAndDocumentsOnlyWhenStrict) {
    for (const char* section : {"caption", "document", "notices"}) {
        EXPECT_EQ(export_batch(section), 0) << section;
        EXPECT_EQ(export_batch(section, {"--strict"}), 4) << section;
        EXPECT_NE(output, "") << section;
    }
    EXPECT_EQ(export_batch("records", {"--strict"}), 0) << "what changes nothing lacks nothing";
}

TEST_F(EndOfExport, MentionsMissingCaptionsWhenQuietOnlyIfStrict) {
    export_batch("caption", {"--quiet"});
    EXPECT_EQ(errors, "");
    export_batch("caption", {"--quiet", "--strict"});
    EXPECT_EQ(errors, "1 Feld ohne Beschriftung blieb weg: T.f (1)\n");
}

TEST_F(EndOfExport, HasStatusFiveWithoutDataOnlyWhereThatIsAFailure) {
    EXPECT_EQ(export_batch("box"), 0);
    EXPECT_EQ(export_batch("box", {"--fail-on-empty"}), 5);
    EXPECT_EQ(export_batch("records", {"--fail-on-empty"}), 0);
    EXPECT_EQ(export_batch("error", {"--fail-on-empty"}), 1) << "an error is graver";
    EXPECT_EQ(run_section("export", "form", {"--out", path(""), "--fail-on-empty"}), 2);
}

TEST_F(EndOfExport, WarnsOfAFileThatNoSpreadsheetTakesWhole) {
    EXPECT_EQ(export_batch("full"), 0);
    EXPECT_EQ(errors, "");
    EXPECT_EQ(export_batch("too-full", {"--quiet"}), 0);
    EXPECT_EQ(errors,
              "Die Datei hat 1 048 577 Zeilen, ein Tabellenblatt fasst nur 1 048 576; --from und --to teilen "
              "den Export auf\n");
}

}  // namespace
}  // namespace prot::test
