#include "core/filter_form.h"

#include <gtest/gtest.h>

#include "tests/unit/support/batch_readings.h"
#include "tests/unit/support/fakes.h"

namespace prot {
namespace {

using test::FakeHost;
using test::server_error;
using Calls = std::vector<std::string>;

/// A form with one field whose steps can be told to fail.
class ScriptedForm : public FilterForm {
public:
    explicit ScriptedForm(Environment& environment) : FilterForm(environment, "ScriptedForm") {}

    Calls calls;
    std::string failing;  ///< the step that fails
    bool batch_will_do = true;

    Form described_form() override {
        Form form;
        form.help_id = "HID_TEST";
        form.fields = {{.kind = FieldKind::text, .name = "txtFeld", .label = "&Feld", .changed = [this] {
                            guarded("changed");
                        }}};
        add_buttons(form, [this] { accept(); });
        return form;
    }

private:
    void step(const std::string& name) {
        calls.push_back(name);
        if (name == failing) throw server_error("kaputt");
    }
    void guarded(const std::string& name) try { step(name); } catch (...) {
        fail(name);
    }

    void fill() override { guarded("fill"); }
    void fill_for_person() override { guarded("fill_for_person"); }
    void begin_batch() override { step("begin_batch"); }
    std::span<const std::string_view> batch_keys() const override { return keys; }
    void start_batch() override { step("start_batch"); }
    BatchReading read_value(std::string_view key, const std::string& value) override {
        if (key == "geschützt:")
            guarded("geschützt " + value);
        else
            step("item " + value);
        if (value == "0") return BatchReading::passed_over();
        return BatchReading::taken(value);
    }

    static constexpr std::string_view keys[] = {"geschützt:", "davor", "a:", "b:"};
    bool end_batch() override {
        step("end_batch");
        return batch_will_do;
    }
    std::string take_over(bool by_batch) override {
        step(by_batch ? "take_over batch" : "take_over fields");
        return by_batch ? "Stapel" : "Felder";
    }
};

class OneForm : public testing::Test {
protected:
    FakeHost host;
    test::FakeDatabase oDBU;
    ScriptedForm form{host.environment};
    std::string commandline;

    bool ask(std::string parameters = {}) {
        form.calls.clear();
        host.errors.clear();
        host.forms_shown = 0;
        commandline = std::move(parameters);
        return form.gbGetFilter(oDBU, commandline);
    }
};

TEST_F(OneForm, IsFilledForAPersonAndShown) {
    EXPECT_TRUE(ask());
    EXPECT_EQ(form.calls, (Calls{"fill", "fill_for_person", "take_over fields"}));
    EXPECT_EQ(form.sFilter(), "Felder");
    EXPECT_EQ(host.forms_shown, 1);
}

TEST_F(OneForm, IsNotFilledForAPersonOrShownInABatchRun) {
    EXPECT_TRUE(ask("/davor:1/autostart/a:2/b:3"));
    EXPECT_EQ(form.calls, (Calls{"fill", "begin_batch", "start_batch", "item 2", "item 3", "end_batch",
                                 "take_over batch"}));
    EXPECT_EQ(form.sFilter(), "Stapel");
    EXPECT_EQ(host.forms_shown, 0);
    EXPECT_EQ(commandline, "/davor:1/autostart/a:2/b:3");
}

TEST_F(OneForm, TellsWhatBecomesOfEachItem) {
    ask("x:1/a:2/ Autostart /a:3/B:0/pwd:x/y");
    EXPECT_EQ(test::lines_of(host.readings),
              (Calls{"unknown |x:1||", "early a:|a:2||", "taken autostart|Autostart||", "taken a:|a:3|3|",
                     "passed over b:|B:0||", "unknown |pwd:x||", "unknown |y||"}));
    EXPECT_EQ(host.readings[3].value, "3");
    EXPECT_EQ(host.batch_keys_told, (std::vector<std::string_view>{"geschützt:", "davor", "a:", "b:"}));
}

TEST_F(OneForm, IsShownWhenTheBatchSelectionWillNotDo) {
    form.batch_will_do = false;
    EXPECT_TRUE(ask("/autostart/a:2"));
    EXPECT_EQ(form.calls.back(), "take_over fields");
    EXPECT_EQ(commandline, "");
    EXPECT_EQ(host.forms_shown, 1);
}

TEST_F(OneForm, IsShownWhenTheTextHasNoAutostart) {
    EXPECT_TRUE(ask("/a:2"));
    EXPECT_EQ(form.calls, (Calls{"fill", "begin_batch", "end_batch", "fill_for_person", "take_over fields"}));
    EXPECT_EQ(commandline, "");
}

TEST_F(OneForm, TakesNothingOverWhenThePersonCancels) {
    host.person = [](Form& shown) { shown.cancel.click(); };
    EXPECT_FALSE(ask());
    EXPECT_EQ(form.calls, (Calls{"fill", "fill_for_person"}));
}

TEST_F(OneForm, ThatFailsShowsTheErrorUnderItsProcedureAndIsFalse) {
    const struct {
        const char* failing;
        const char* parameters;
        const char* procedure;
        Calls calls;
        int shown;
    } rows[] = {
        {"fill", "", "fill", {"fill"}, 0},
        {"fill", "/autostart", "fill", {"fill"}, 0},
        {"fill_for_person", "", "fill_for_person", {"fill", "fill_for_person"}, 0},
        {"begin_batch", "/autostart", "mbCommandlineOk", {"fill", "begin_batch"}, 0},
        {"item 2", "/autostart/a:2", "mbCommandlineOk", {"fill", "begin_batch", "start_batch", "item 2"}, 0},
        {"geschützt 2",
         "/autostart/geschützt:2",
         "geschützt 2",
         {"fill", "begin_batch", "start_batch", "geschützt 2", "end_batch"},
         0},
        {"take_over batch",
         "/autostart",
         "gbGetFilter",
         {"fill", "begin_batch", "start_batch", "end_batch", "take_over batch"},
         0},
        {"take_over fields", "", "gbGetFilter", {"fill", "fill_for_person", "take_over fields"}, 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.failing) + " " + row.parameters);
        form.failing = row.failing;
        EXPECT_FALSE(ask(row.parameters));
        EXPECT_EQ(form.calls, row.calls);
        EXPECT_EQ(host.forms_shown, row.shown);
        ASSERT_EQ(host.errors.size(), 1U);
        EXPECT_EQ(host.errors[0].source,
                  std::string(PROT_STAMP "|srvprotqrbcsv|Testserver\r\nScriptedForm.") + row.procedure);
    }
}

TEST_F(OneForm, EndsWhenAnErrorComesWhileItIsOpen) {
    form.failing = "changed";
    host.person = [](Form& shown) {
        shown.field("txtFeld").changed();
        EXPECT_FALSE(shown.shown);
    };
    EXPECT_FALSE(ask());
    EXPECT_EQ(host.errors.size(), 1U);
}

TEST_F(OneForm, IsNotAcceptedOnceAnErrorWasShown) {
    form.failing = "changed";
    host.person = [](Form& shown) {
        shown.field("txtFeld").changed();
        shown.ok.click();  // a display may deliver a click that waited behind the error
    };
    EXPECT_FALSE(ask());
}

TEST_F(OneForm, MayBeAskedAgainAfterItFailedOrWasAccepted) {
    form.failing = "fill";
    EXPECT_FALSE(ask());
    form.failing.clear();
    EXPECT_TRUE(ask());
    host.person = [](Form& shown) { shown.cancel.click(); };
    EXPECT_FALSE(ask()) << "it was accepted the time before";
}

TEST_F(OneForm, StaysOpenWhenItsHelpIsMissing) {
    host.help_failure = server_error("keine Hilfe");
    host.person = [](Form& shown) {
        shown.key_down({.code = key_f1});
        EXPECT_TRUE(shown.shown);
        shown.ok.click();
    };
    EXPECT_TRUE(ask());
    EXPECT_EQ(host.errors.size(), 1U);
}

}  // namespace
}  // namespace prot
