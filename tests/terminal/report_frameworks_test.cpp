#include <gtest/gtest.h>

#include "tests/terminal/section_form.h"

/// The form of the report frameworks by a person at the keyboard: its lists follow what is chosen.
namespace prot {
namespace {

class ReportFrameworksForm : public test::SectionForm {
protected:
    ReportFrameworksForm() : SectionForm("10", "Bilanz_Rahmen") { use_database_of("frameworks_interactive"); }
};

TEST_F(ReportFrameworksForm, AFrameworkOfTheOfficeAndAChartGiveTheFileOfTheSameAnswers) {
    start_export();
    pane.expect_screen("frameworks_form");
    pane.press({"Down", "M-a", "bi"});
    pane.expect_screen("frameworks_of_office");
    pane.press({"Tab", "Down", "M-u", "ko", "M-k", "skr"});
    pane.expect_screen("frameworks_chart");
    pane.press({"Enter"});
    write_file("frameworks_file_name");
    expect_golden_file("frameworks_interactive");
}

TEST_F(ReportFrameworksForm, WhoeverChoosesAnotherKindOrTypeIsOfferedAllFrameworksAgain) {
    start_export();
    pane.expect_screen("frameworks_form");
    pane.press({"M-a", "bi", "M-r", "End"});
    pane.expect_screen("frameworks_deleted");
    pane.press({"M-h", "Down"});
    pane.expect_screen("frameworks_other_kind");
    pane.press({"M-r", "End", "M-h", "Up", "Tab", "End"});
    pane.expect_screen("frameworks_other_type");
    pane.press({"Home"});
    pane.expect_screen("frameworks_no_type");
    pane.press({"Enter"});
    pane.expect_text("Prot_Auswertungs_Rahmen.csv");
    pane.press({"Escape"});
    expect_no_file();
}

TEST_F(ReportFrameworksForm, ADeletedFrameworkIsExportedToo) {
    start_export();
    pane.expect_screen("frameworks_form");
    pane.press({"M-a", "bi", "M-r", "End"});
    pane.expect_screen("frameworks_deleted");
    pane.press({"Enter"});
    write_file("frameworks_file_name");
    expect_file("\\nBilanz\\nBilanz/alt (gelöscht)\\n\\n\\n\\n");
}

TEST_F(ReportFrameworksForm, TheChartGoesAwayWithPositionsAndComesBackWithAccountAssignments) {
    start_export();
    pane.expect_screen("frameworks_form");
    pane.press({"M-a", "bi", "M-k", "skr", "M-u", "po"});
    pane.expect_screen("frameworks_positions");
    pane.press({"M-k", "Home", "ko"});
    pane.expect_screen("frameworks_assignments");
    pane.press({"Enter"});
    write_file("frameworks_file_name");
    expect_file("\\nBilanz\\n\\nKontozuordnungen\\nSKR 03\\n\\n");
}

TEST_F(ReportFrameworksForm, ADeletionSaysHowManyRecordsItTakes) {
    pane.start("delete --db beispiel.db --section 10");
    pane.expect_screen("frameworks_deletion");
    pane.press({"M-u", "sp", "Enter"});
    pane.expect_text("wurden 9 Protokol");
    pane.press({"Enter"});
    expect_no_file();
}

TEST_F(ReportFrameworksForm, NoChangesOfATypeAreSaid) {
    start_export();
    pane.expect_screen("frameworks_form");
    pane.press({"M-a", "ra", "Enter"});
    pane.expect_text("[Protokollierung] Keine Daten vorhanden!");
    pane.press({"Enter"});
    expect_no_file(0);
}

TEST_F(ReportFrameworksForm, F1ShowsItsHelp) {
    start_export();
    pane.expect_screen("frameworks_form");
    pane.press({"F1"});
    pane.expect_screen("frameworks_help");
    pane.press({"Escape"});
    pane.expect_screen("frameworks_form");
    pane.press({"Escape"});
    expect_no_file();
}

}  // namespace
}  // namespace prot
