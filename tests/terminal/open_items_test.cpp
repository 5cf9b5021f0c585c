#include <gtest/gtest.h>

#include "tests/terminal/section_form.h"

/// The form of the open items by a person at the keyboard: a client is picked, accounts are corrected.
namespace prot {
namespace {

class OpenItemsForm : public test::SectionForm {
protected:
    OpenItemsForm() : SectionForm("6", "OffenePosten") {}
};

TEST_F(OpenItemsForm, AClientPickedByItsNumberGivesTheFileOfAnUnattendedRun) {
    start_export_of_the_golden_sample();
    pane.expect_screen("items_form");
    pane.press({"123"});
    pane.expect_screen("items_client");
    pane.press({"Enter"});
    write_file("items_file_name");
    expect_golden_file("items_sample_client");
}

TEST_F(OpenItemsForm, AnOfficeIsPickedByAPartOfItsName) {
    start_export();
    pane.expect_screen("items_form");
    pane.press({"M-a", "Down", "M-k", "Steuer"});
    pane.expect_screen("items_offices");
    pane.press({"Down", "Down", "Up"});
    pane.expect_screen("items_office");
    pane.press({"M-v", "1", "Tab", "99999", "Enter"});
    write_file("items_file_name");
    expect_file("Kanzlei\\n7\\n\\n1\\n99999\\n\\n");
}

TEST_F(OpenItemsForm, AFiscalYearIsChosenAmongThoseOfTheClient) {
    start_export();
    pane.expect_screen("items_form");
    pane.press({"M-m", "öztürk", "Tab", "Down", "Down", "M-b", "10099"});
    pane.expect_screen("items_fiscal_year");
    pane.press({"Enter"});
    write_file("items_file_name");
    expect_file("\\n123\\n01.01.2025 - 31.12.2025\\n\\n10099\\n\\n");
}

TEST_F(OpenItemsForm, WithoutAClientThereIsNoOk) {
    start_export();
    pane.expect_screen("items_form");
    pane.press({"müll", "Enter"});
    pane.expect_text("Mandant: „müll“ passt auf 3 Einträge; bitte einen davon wählen.");
    pane.press({"Enter"});
    pane.expect_screen("items_several");
    pane.press({"x", "Enter"});
    pane.expect_text("Mandant: „müllx“ passt auf keinen Eintrag.");
    pane.press({"Enter"});
    pane.expect_screen("items_none");
    pane.press({"BSpace", "Up"});
    pane.expect_text("• 1002  Dr. Müller, Anna");
    pane.press({"Enter"});
    pane.expect_screen("items_file_name");
    pane.press({"Escape"});
    expect_no_file();
}

TEST_F(OpenItemsForm, AccountsThatCannotBeAreSaidAndCorrected) {
    start_export();
    pane.expect_screen("items_form");
    pane.press({"123", "M-v", "1o000", "Tab"});
    pane.expect_screen("items_not_numeric");
    pane.press({"Enter"});
    pane.expect_screen("items_not_numeric_focus");
    pane.press({"0", "Enter"});
    pane.expect_screen("items_not_positive");
    pane.press({"Enter"});
    pane.expect_screen("items_not_positive_focus");
    pane.press({"10100", "Enter"});
    pane.expect_screen("items_upside_down");
    pane.press({"Enter"});
    pane.expect_screen("items_upside_down_focus");
    pane.press({"10999", "M-v", "10000", "Enter"});
    write_file("items_file_name");
    expect_file("\\n123\\n\\n10000\\n10999\\n\\n");
}

TEST_F(OpenItemsForm, EscLeavesNothing) {
    start_export();
    pane.expect_screen("items_form");
    pane.press({"123"});
    pane.expect_screen("items_client");
    pane.press({"Escape"});
    expect_no_file();
}

TEST_F(OpenItemsForm, TheFiscalYearsAreOffWhereTheClientsAreChosenTogether) {
    pane.start("delete --db beispiel.db --section 6");
    pane.expect_text("1 bis 999999999: alle Konten");
    pane.press({"M-a", "End", "Tab"});
    pane.expect_screen("items_deletion_all");
    pane.press({"Escape"});
    expect_no_file();
}

TEST_F(OpenItemsForm, AFileNameThatIsRefusedIsSaidAndKept) {
    start_export();
    pane.expect_screen("items_form");
    pane.press({"123", "Enter"});
    pane.expect_screen("items_file_name");
    pane.press({"../beispiel.db", "Enter"});
    pane.expect_screen("items_file_name_refused");
    pane.press({"End", ".csv", "Enter"});
    EXPECT_EQ(pane.exit_status(), 0);
    EXPECT_EQ(pane.read("stdout.txt"), "beispiel.db.csv\n");
}

TEST_F(OpenItemsForm, MatchesUseTheLinesOfALargerTerminal) {
    start_export();
    pane.expect_screen("items_form");
    pane.resize(100, 40);
    pane.expect_screen("items_form_100x40");
    pane.press({"NPage", "NPage"});
    pane.expect_screen("items_second_page");
    pane.resize(80, 24);
    pane.expect_screen("items_second_page_80x24");
    pane.press({"Escape"});
    expect_no_file();
}

TEST_F(OpenItemsForm, LineByLineAPartOfANameAsksAgainUntilItMeansOneClient) {
    start_export(" --plain");
    pane.press({"Enter"});
    pane.expect_text("Mandant []:");
    pane.press({"mül", "Enter"});
    pane.expect_text("„mül“ passt auf mehrere: 100 Müller, 1001 Müller & Söhne, 1002 Dr. Müller, Anna");
    pane.press({"öztürk", "Enter"});
    pane.expect_text("Mandant: 123 ");
    pane.press({"Enter", "Enter", "Enter", "Enter"});
    EXPECT_EQ(pane.exit_status(), 0);
    expect_file("\\n123\\n\\n\\n\\n\\n");
}

}  // namespace
}  // namespace prot
