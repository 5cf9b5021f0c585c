#include "platform/forms/form.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

TEST(Form, ALabelReadsWithoutTheMarkOfItsAccessKey) {
    const struct {
        const char* label;
        const char* text;
        char32_t key;
        const char* why;
    } rows[] = {
        {"&von", "von", U'v', "at the start"},
        {"bis &ISO", "bis ISO", U'i', "the key is in lower case"},
        {"Gr&Öße", "GrÖße", U'ö', "a letter of two bytes"},
        {"A && B", "A & B", 0, "a doubled mark is the character itself"},
        {"A && &B", "A & B", U'b', "a doubled mark before the key"},
        {"ohne", "ohne", 0, "no key"},
        {"am Ende &", "am Ende &", 0, "a mark of nothing"},
        {"", "", 0, "empty"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(without_access_key(row.label), row.text) << row.why;
        EXPECT_EQ(access_key(row.label), row.key) << row.why;
    }
}

TEST(Form, FindsAFieldByItsName) {
    Form form;
    form.fields = {{.name = "a"}, {.name = "b"}};
    EXPECT_EQ(&form.field("b"), &form.fields[1]);
    EXPECT_THROW(form.field("c"), std::out_of_range);
}

TEST(Form, SelectingAKeyThatIsNotThereChangesNothing) {
    Field field;
    field.add(7, "x");
    field.add(8, "y");
    field.select_key(8);
    field.select_key(9);
    EXPECT_EQ(field.selected_text(), "y");
}

TEST(Form, HearsOfAChoiceOnlyWhenItIsAnotherEntry) {
    int changes = 0;
    Field field{.entries = {{1, "a"}, {2, "b"}}, .changed = [&] { ++changes; }};
    field.choose(1);
    EXPECT_EQ(field.selected, 1U);
    field.choose(1);
    EXPECT_EQ(changes, 1);
    field.choose(std::nullopt);
    EXPECT_EQ(changes, 2);
    field.changed = nullptr;
    EXPECT_NO_THROW(field.choose(0));
}

}  // namespace
}  // namespace prot
