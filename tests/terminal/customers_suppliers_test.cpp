#include <gtest/gtest.h>

#include "tests/terminal/section_form.h"

/// The form of the customers, and that of the suppliers, by a person at the keyboard.
namespace prot {
namespace {

class CustomersForm : public test::SectionForm {
protected:
    CustomersForm() : SectionForm("9", "Kunden") {}
};

class SuppliersForm : public test::SectionForm {
protected:
    SuppliersForm() : SectionForm("8", "Lieferanten") {}
};

TEST_F(CustomersForm, AClientPickedByItsNumberGivesTheFileOfAnUnattendedRun) {
    start_export_of_the_golden_sample();
    pane.expect_screen("customers_form");
    pane.press({"1"});
    pane.expect_screen("customers_client");
    pane.press({"Enter"});
    write_file("customers_file_name");
    expect_golden_file("customers_sample_client");
}

TEST_F(CustomersForm, AnOfficeIsPickedAndTheRangeTyped) {
    start_export();
    pane.expect_screen("customers_form");
    pane.press({"M-a", "Down", "M-k", "süd", "M-v", "1", "Tab", "99999"});
    pane.expect_screen("customers_office");
    pane.press({"Enter"});
    write_file("customers_file_name");
    expect_file("Kanzlei\\n7\\n1\\n99999\\n\\n");
}

TEST_F(CustomersForm, ADeletionOfAllNeedsNobodyPicked) {
    pane.start("delete --db beispiel.db --section 9");
    pane.expect_screen("customers_deletion");
    pane.press({"M-a", "End"});
    pane.expect_screen("customers_deletion_all");
    pane.press({"Enter"});
    pane.expect_text("Sollen die Protokollsätze endgültig gelöscht werden?");
    pane.press({"Enter"});
    expect_no_file();
}

TEST_F(CustomersForm, ADeletionOfOneClientNeedsItPicked) {
    pane.start("delete --db beispiel.db --section 9");
    pane.expect_screen("customers_deletion");
    pane.press({"M-a", "Down", "Down", "Up", "Up", "Enter"});
    pane.expect_text("Mandant: Bitte eine Nummer oder einen Teil des Namens eingeben.");
    pane.press({"Enter"});
    pane.expect_screen("customers_deletion");
    pane.press({"Escape"});
    expect_no_file();
}

TEST_F(CustomersForm, NumbersThatCannotBeAreSaidAndCorrected) {
    start_export();
    pane.expect_screen("customers_form");
    pane.press({"123", "M-v", "1o000", "Tab"});
    pane.expect_screen("customers_not_numeric");
    pane.press({"Enter"});
    pane.expect_screen("customers_not_numeric_focus");
    pane.press({"0", "Enter"});
    pane.expect_screen("customers_not_positive");
    pane.press({"Enter"});
    pane.expect_screen("customers_not_positive_focus");
    pane.press({"10002", "Enter"});
    pane.expect_screen("customers_upside_down");
    pane.press({"Enter"});
    pane.expect_screen("customers_upside_down_focus");
    pane.press({"10023", "Enter"});
    write_file("customers_file_name");
    expect_file("\\n123\\n10002\\n10023\\n\\n");
}

TEST_F(CustomersForm, NoChangesInTheRangeAreSaid) {
    start_export();
    pane.expect_screen("customers_form");
    pane.press({"1", "M-v", "1", "Tab", "2", "Enter"});
    pane.expect_text("[Protokollierung] Keine Daten vorhanden!");
    pane.press({"Enter"});
    expect_no_file(0);
}

TEST_F(CustomersForm, F1ShowsItsHelp) {
    start_export();
    pane.expect_screen("customers_form");
    pane.press({"F1"});
    pane.expect_screen("customers_help");
    pane.press({"Escape"});
    pane.expect_screen("customers_form");
    pane.press({"Escape"});
    expect_no_file();
}

TEST_F(SuppliersForm, HasTextsAndHelpOfItsOwn) {
    start_export();
    pane.expect_screen("suppliers_form");
    pane.press({"F1"});
    pane.expect_text("Das Formular wählt Lieferanten");
    pane.press({"Escape"});
    pane.expect_screen("suppliers_form");
    pane.press({"1", "Enter"});
    write_file("suppliers_file_name");
    expect_file("\\n1\\n\\n\\n\\n");
}

}  // namespace
}  // namespace prot
