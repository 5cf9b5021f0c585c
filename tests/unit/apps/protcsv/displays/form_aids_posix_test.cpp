#include <gtest/gtest.h>

#include "apps/protcsv/displays/form_aids.h"
#include "platform/portable/screen/form_layout.h"
#include "sections/section_table.h"
#include "tests/unit/sections/shown_form.h"

namespace prot {
namespace {

class NoForms : public FormDisplay {
public:
    void show_modal(Form&) override {}
};

TEST(FormAids, LeaveRoomOnTheSmallestScreenForWhatADeletionSays) {
    NoForms display;
    int labels = 0;
    for (const Section& section : section_table()) {
        std::optional<Form> form = test::shown_form(section);
        ASSERT_TRUE(form) << section.name;
        const std::size_t fields = form->fields.size();
        FormAids(display).standard_setup(*form, 1000);
        labels += static_cast<int>(form->fields.size() - fields);
        form->notice =
            "Die Protokollsätze, die hier gewählt werden, werden gelöscht.\n"
            "Zeitraum: 01.01.2015 bis 31.12.2015\nMitarbeiter: alle   Ereignisse: angelegt, geändert";
        const auto layout = lay_out(*form, largest_window(smallest_screen));
        ASSERT_TRUE(layout) << section.name;
        for (std::size_t i = 0; i < form->fields.size(); ++i)
            if (form->fields[i].kind == FieldKind::picker) {
                EXPECT_GE(layout->fields[i].value.height, 3) << section.name;
            }
    }
    EXPECT_EQ(labels, 1) << "the open items alone";
}

}  // namespace
}  // namespace prot
