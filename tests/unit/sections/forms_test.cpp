#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include "platform/automation/utf8.h"
#include "sections/exchange_rates/ProtDevFrmFilter.h"
#include "sections/open_items/ProtOPFrmFilter.h"
#include "tests/unit/support/fakes.h"

/// What holds for every filter form, looked at in its description. A new form gets a row below.
namespace prot {
namespace {

Form rates_form(Environment& environment) {
    return exchange_rates::ProtDevFrmFilter(environment).described_form();
}

Form items_form(Environment& environment) {
    return open_items::ProtOPFrmFilter(environment, true).described_form();
}

struct FormRow {
    const char* name;
    Form (*described)(Environment& environment);
};
constexpr FormRow rows[] = {
    {"exchange_rates", rates_form},
    {"open_items", items_form},
};

constexpr std::size_t longest_label = 40;  // half a terminal's line
constexpr std::size_t longest_caption = 60;

class EveryForm : public testing::TestWithParam<FormRow> {
protected:
    test::FakeHost host;
    Form form = GetParam().described(host.environment);
};

std::size_t length(const std::string& text) { return decode_utf8(text).size(); }

std::string help_map() {
    std::ifstream file(std::filesystem::path(PROT_SOURCE_DIR) / "docs" / "hilfe" / "mivra_allgemein.xml",
                       std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

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

TEST_P(EveryForm, HasAHelpTopic) {
    EXPECT_NE(help_map().find("\"" + form.help_id + "\""), std::string::npos) << form.help_id;
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

INSTANTIATE_TEST_SUITE_P(Sections, EveryForm, testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace prot
