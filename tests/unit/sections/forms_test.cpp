#include <gtest/gtest.h>

#include <map>
#include <string>

#include "platform/automation/utf8.h"
#include "sections/section_table.h"
#include "tests/unit/sections/shown_form.h"

/// What holds for the filter form of every section.
namespace prot {
namespace {

constexpr std::size_t longest_label = 40;  // half a terminal's line
constexpr std::size_t longest_caption = 60;

class EveryForm : public testing::TestWithParam<Section> {
protected:
    void SetUp() override {
        const std::optional<Form> shown = test::shown_form(GetParam());
        ASSERT_TRUE(shown);
        form = *shown;
    }

    Form form;
};

std::size_t length(const std::string& text) { return decode_utf8(text).size(); }

TEST_P(EveryForm, HasALabelForEveryFieldThatTakesInput) {
    EXPECT_FALSE(form.fields.empty());
    for (const Field& field : form.fields) {
        EXPECT_FALSE(field.name.empty());
        EXPECT_FALSE(without_access_key(field.label).empty()) << field.name;
    }
}

TEST_P(EveryForm, GivesEachFieldAndButtonAnAccessKeyOfItsOwn) {
    std::map<char32_t, std::string> owners;
    const auto claim = [&owners](const std::string& label, const std::string& name) {
        const char32_t key = access_key(label);
        if (key == 0) return false;
        EXPECT_TRUE(owners.emplace(key, name).second) << name << " and " << owners[key];
        return true;
    };
    for (const Field& field : form.fields) {
        const bool has_key = field.kind == FieldKind::label || claim(field.label, field.name);
        EXPECT_TRUE(has_key) << field.name;
    }
    claim(form.ok.text, form.ok.name);
    claim(form.cancel.text, form.cancel.name);
}

TEST_P(EveryForm, NamesItsControlsApart) {
    std::map<std::string, int> names;
    for (const Field& field : form.fields) ++names[field.name];
    ++names[form.ok.name];
    ++names[form.cancel.name];
    for (const auto& [name, count] : names) EXPECT_EQ(count, 1) << name;
}

TEST_P(EveryForm, CanBeAcceptedCancelledAndAskedForHelp) {
    EXPECT_EQ(form.ok.text, "OK");
    EXPECT_EQ(form.cancel.text, "Abbrechen");
    ASSERT_TRUE(form.ok.click);
    ASSERT_TRUE(form.cancel.click);
    EXPECT_TRUE(form.key_down);
}

TEST_P(EveryForm, HasTextsThatFit) {
    EXPECT_FALSE(form.caption.empty());
    EXPECT_LE(length(form.caption), longest_caption);
    for (const Field& field : form.fields)
        EXPECT_LE(length(without_access_key(field.label)), longest_label) << field.label;
    for (const Group& group : form.groups) EXPECT_LE(length(group.caption), longest_caption) << group.caption;
}

TEST_P(EveryForm, GroupsLieSideBySideWithinItsFields) {
    std::size_t next = 0;
    for (const Group& group : form.groups) {
        EXPECT_GE(group.first, next) << group.caption;
        EXPECT_GT(group.count, 0U) << group.caption;
        next = group.first + group.count;
    }
    EXPECT_LE(next, form.fields.size());
}

INSTANTIATE_TEST_SUITE_P(Sections, EveryForm, testing::ValuesIn(section_table()),
                         [](const auto& section) { return test::test_name(section.param); });

}  // namespace
}  // namespace prot
