#include "core/client_range_form.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/unit/support/batch_readings.h"
#include "tests/unit/support/fakes.h"
#include "tests/unit/support/statements.h"

namespace prot {
namespace {

using test::FakeDatabase;
using test::FakeHost;
using test::server_error;
using Texts = std::vector<std::string>;

constexpr KindChoice kinds[] = {
    {40, ClientKind::client},
    {20, ClientKind::office},
    {30, ClientKind::all_clients},
    {10, ClientKind::all_offices},
};

/// The form of a section that only remembers who was chosen.
class ScriptedForm : public ClientRangeForm {
public:
    ScriptedForm(Environment& environment, bool deleting)
        : ClientRangeForm(environment, "ScriptedForm", kinds), deleting_(deleting) {}

    Texts chosen_clients;
    Selection taken;

    Form described_form() override {
        Form form;
        form.fields = {kind_field(), client_field(), number_field(0, "&von"), number_field(1, "&bis")};
        add_buttons(form, [this] { cmdOK_Click(); });
        return form;
    }

private:
    void fill() override { offer(deleting_, "7", "7"); }
    void client_chosen(const Selection& selection) override {
        chosen_clients.push_back(std::to_string(selection.client.id));
    }
    std::string take_over(bool by_batch) override {
        taken = selection(by_batch);
        return text_of(taken);
    }

    bool deleting_;
};

const std::string clients = "array: " + test::picker_statement(test::are_clients);
const std::string offices = "array: " + test::picker_statement(test::are_offices);

std::string bare(const std::string& statement) { return statement.substr(std::string("array: ").size()); }

class RangeForm : public testing::Test {
protected:
    FakeHost host;
    FakeDatabase oDBU;
    ScriptedForm export_form{host.environment, false};
    ScriptedForm deletion_form{host.environment, true};
    std::string commandline;

    RangeForm() {
        oDBU.answers[bare(clients)] = {{std::int64_t{31}, std::int64_t{4711}, std::string("Maier")},
                                       {std::int64_t{29}, std::int64_t{4712}, std::string("Schulz")}};
        oDBU.answers[bare(offices)] = {{std::int64_t{50}, std::int64_t{123}, std::string("Nord")}};
        oDBU.answers[bare("array: " + test::find_client_statement(" = 0 ", "4711"))] = {
            {std::int64_t{31}, std::string("Maier")}};
        oDBU.answers[bare("array: " + test::find_client_statement(" <> 0 ", "123"))] = {
            {std::int64_t{50}, std::string("Nord")}};
    }
    bool ask(ScriptedForm& form, std::string parameters = {}) {
        commandline = std::move(parameters);
        return form.gbGetFilter(oDBU, commandline);
    }
    void open(ScriptedForm& form, std::function<void(Form&)> person) {
        host.person = [person = std::move(person)](Form& shown) {
            person(shown);
            shown.cancel.click();
        };
        ask(form);
        EXPECT_EQ(host.forms_shown, 1);
    }
    static void choose(Form& form, const char* field, std::optional<std::size_t> entry) {
        form.field(field).selected = entry;
        form.field(field).changed();
    }
};

TEST_F(RangeForm, OffersTheSectionsKindsByItsOwnKeys) {
    const auto keys = [](const Form& form) {
        std::vector<std::int64_t> found;
        for (const Entry& entry : form.field("cboMandant").entries) found.push_back(entry.key);
        return found;
    };
    open(export_form, [&](Form& form) {
        EXPECT_EQ(keys(form), (std::vector<std::int64_t>{40, 20}));
        EXPECT_EQ(form.field("cboMandant").selected_text(), "Mandant");
    });
    host.forms_shown = 0;
    open(deletion_form, [&](Form& form) {
        EXPECT_EQ(keys(form), (std::vector<std::int64_t>{40, 20, 30, 10}));
        EXPECT_EQ(form.field("cboMandant").entries[3].text, "Alle Kanzleien");
    });
}

TEST_F(RangeForm, NeedsAClientBeforeItCanBeAccepted) {
    open(export_form, [this](Form& form) {
        EXPECT_FALSE(form.ok.enabled);
        EXPECT_FALSE(form.field("ctlMandant").selected);
        choose(form, "ctlMandant", 1);
        EXPECT_TRUE(form.ok.enabled);
        choose(form, "ctlMandant", std::nullopt);
        EXPECT_FALSE(form.ok.enabled) << "the client was cleared again";
        choose(form, "ctlMandant", 0);
        EXPECT_TRUE(form.ok.enabled);
        EXPECT_EQ(export_form.chosen_clients, (Texts{"0", "29", "0", "31"}));
    });
    EXPECT_EQ(oDBU.statements, Texts{clients});
}

TEST_F(RangeForm, ForgetsTheClientWhenTheKindIsAnother) {
    open(export_form, [this](Form& form) {
        choose(form, "ctlMandant", 0);
        form.field("ctlMandant").text = "Mai";
        choose(form, "cboMandant", 1);
        const Field& picker = form.field("ctlMandant");
        EXPECT_FALSE(form.ok.enabled);
        EXPECT_FALSE(picker.selected);
        EXPECT_EQ(picker.text, "") << "nor is what was typed";
        EXPECT_EQ(picker.label, "&Kanzlei");
        EXPECT_TRUE(picker.enabled);
        ASSERT_EQ(picker.entries.size(), 1U);
        EXPECT_EQ(picker.entries[0].key, 50);
        EXPECT_EQ(export_form.chosen_clients, (Texts{"0", "31", "0"}));
        choose(form, "cboMandant", 0);
        EXPECT_EQ(form.field("ctlMandant").label, "&Mandant");
        EXPECT_EQ(form.field("ctlMandant").entries.size(), 2U);
    });
    EXPECT_EQ(oDBU.statements, (Texts{clients, offices, clients}));
}

TEST_F(RangeForm, NeedsNoChoiceForACollectiveKind) {
    open(deletion_form, [this](Form& form) {
        choose(form, "cboMandant", 1);
        choose(form, "ctlMandant", 0);
        for (const std::size_t collective : {std::size_t{2}, std::size_t{3}}) {
            choose(form, "cboMandant", collective);
            const Field& picker = form.field("ctlMandant");
            EXPECT_FALSE(picker.enabled);
            EXPECT_TRUE(picker.entries.empty());
            EXPECT_FALSE(picker.selected);
            EXPECT_EQ(picker.label, collective == 2 ? "&Mandant" : "&Kanzlei") << "whom the kind is about";
            EXPECT_TRUE(form.ok.enabled);
        }
        choose(form, "cboMandant", 0);
        EXPECT_TRUE(form.field("ctlMandant").enabled) << "on again";
        EXPECT_FALSE(form.ok.enabled) << "until a client is chosen";
        EXPECT_EQ(deletion_form.chosen_clients, (Texts{"0", "0", "50", "0", "0", "0"}));
    });
    EXPECT_EQ(oDBU.statements, (Texts{clients, offices, clients})) << "nothing is read for a collective kind";
}

TEST_F(RangeForm, TakesTheChosenKindClientAndRange) {
    host.person = [](Form& form) {
        choose(form, "cboMandant", 1);
        choose(form, "ctlMandant", 0);
        form.field("txtKLNr(0)").text = " 10 ";
        form.field("txtKLNr(1)").text = "20";
        form.ok.click();
    };
    EXPECT_TRUE(ask(export_form));
    EXPECT_EQ(export_form.sFilter(), "Kanzlei: 123 Nord");
    EXPECT_EQ(export_form.taken.kind, ClientKind::office);
    EXPECT_EQ(export_form.taken.client.id, 50);
    EXPECT_EQ(export_form.taken.range.from, 10);
    EXPECT_EQ(export_form.taken.range.to, 20);
}

TEST_F(RangeForm, TakesACollectiveKindWithoutAClient) {
    host.person = [](Form& form) {
        choose(form, "ctlMandant", 0);
        choose(form, "cboMandant", 2);
        form.ok.click();
    };
    EXPECT_TRUE(ask(deletion_form));
    EXPECT_EQ(deletion_form.sFilter(), "Alle Mandanten");
    EXPECT_EQ(deletion_form.taken.kind, ClientKind::all_clients);
    EXPECT_EQ(deletion_form.taken.client.id, 0);
}

TEST_F(RangeForm, TakesOneNumberAsARange) {
    host.person = [](Form& form) {
        EXPECT_EQ(form.field("txtKLNr(0)").text, "7");
        EXPECT_EQ(form.field("txtKLNr(1)").text, "7");
        choose(form, "ctlMandant", 0);
        form.ok.click();
        EXPECT_FALSE(form.shown);
    };
    EXPECT_TRUE(ask(export_form));
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(export_form.taken.range.from, 7);
    EXPECT_EQ(export_form.taken.range.to, 7);
}

TEST_F(RangeForm, RefusesEntriesInTheFieldThatHoldsThem) {
    open(export_form, [](Form& form) {
        for (const std::size_t bound : {std::size_t{0}, std::size_t{1}}) {
            Field& field = form.field(bound == 0 ? "txtKLNr(0)" : "txtKLNr(1)");
            EXPECT_EQ(field.longest, 9U);
            EXPECT_TRUE(field.validate());
            field.text = "1a";
            EXPECT_FALSE(field.validate());
            EXPECT_EQ(form.focus, 2 + bound);
            EXPECT_TRUE(form.select_focus);
            EXPECT_TRUE(form.shown);
            field.text = "8";
            EXPECT_TRUE(field.validate());
        }
    });
    EXPECT_EQ(host.boxes.size(), 2U);
}

TEST_F(RangeForm, StaysOpenWithTheFocusWhereTheRangeIsWrong) {
    const struct {
        const char *from, *to;
        std::size_t focus;
    } rows[] = {{"0", "5", 2}, {"5", "0", 3}, {"6", "5", 3}};
    for (const auto& row : rows) {
        host.forms_shown = 0;
        open(export_form, [&row](Form& form) {
            choose(form, "ctlMandant", 0);
            form.field("txtKLNr(0)").text = row.from;
            form.field("txtKLNr(1)").text = row.to;
            form.ok.click();
            EXPECT_TRUE(form.shown);
            EXPECT_EQ(form.focus, row.focus) << row.from << " to " << row.to;
        });
    }
}

TEST_F(RangeForm, OffersAPickerWithRoomForAName) {
    const Form form = export_form.described_form();
    EXPECT_EQ(form.field("ctlMandant").kind, FieldKind::picker);
    EXPECT_EQ(form.field("ctlMandant").longest, 60U);
    EXPECT_EQ(form.field("cboMandant").kind, FieldKind::list);
    EXPECT_EQ(form.field("txtKLNr(1)").label, "&bis");
}

TEST_F(RangeForm, ReadsTheBatchText) {
    const struct {
        const char* text;
        Texts statements;
        ClientKind kind;
        std::int32_t id;
        double from, to;
        const char* why;
    } rows[] = {
        {"/autostart", {}, ClientKind::client, 0, 7, 7, "the defaults"},
        {"/autostart/mandant:4711",
         {"array: " + test::find_client_statement(" = 0 ", "4711")},
         ClientKind::client,
         31,
         7,
         7,
         "a client"},
        {"/autostart/mandant:K123/vonkonto:5/biskonto:9",
         {"array: " + test::find_client_statement(" <> 0 ", "123")},
         ClientKind::office,
         50,
         5,
         9,
         "an office"},
        {"/autostart/mandant:k0", {}, ClientKind::office, 0, 7, 7, "0 is no number to look for"},
        {"/autostart/mandant:-4711", {}, ClientKind::client, 0, 7, 7, "nor is one below"},
        {"/autostart/mandant:", {}, ClientKind::client, 0, 7, 7, "nor nothing"},
        {"/autostart/mandant:4711/mandant:99",
         {"array: " + test::find_client_statement(" = 0 ", "4711"),
          "array: " + test::find_client_statement(" = 0 ", "99")},
         ClientKind::client,
         31,
         7,
         7,
         "nobody leaves the choice before"},
        {"/autostart/vonkonto:8", {}, ClientKind::client, 0, 8, 7, "one bound; the order is not checked"},
        {"/autostart/biskonto:0/vonkonto:-1", {}, ClientKind::client, 0, 7, 7, "bounds are positive"},
        {"/autostart/biskonto:3", {}, ClientKind::client, 0, 7, 3, "the upper bound"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        oDBU.statements.clear();
        EXPECT_TRUE(ask(export_form, row.text));
        EXPECT_EQ(oDBU.statements, row.statements);
        EXPECT_EQ(export_form.taken.kind, row.kind);
        EXPECT_EQ(export_form.taken.client.id, row.id);
        EXPECT_EQ(export_form.taken.range.from, row.from);
        EXPECT_EQ(export_form.taken.range.to, row.to);
    }
    EXPECT_EQ(host.forms_shown, 0);
}

TEST_F(RangeForm, TellsWhatItMakesOfAValue) {
    const struct {
        const char* item;
        const char* reading;
    } rows[] = {
        {"mandant:4711", "taken mandant:|mandant:4711|4711|Mandant: 4711 Maier"},
        {"mandant:M4711", "taken mandant:|mandant:M4711|M4711|Mandant: 4711 Maier"},
        {"mandant:k123,5", "taken mandant:|mandant:k123,5|k123|Kanzlei: 123 Nord"},
        {"mandant:4.711", "absent mandant:|mandant:4.711|4.711|Mandant"},
        {"mandant:k4711", "absent mandant:|mandant:k4711|k4711|Kanzlei"},
        {"mandant:0", "passed over mandant:|mandant:0||"},
        {"vonkonto:5", "taken vonkonto|vonkonto:5|5|"},
        {"biskonto:10.000", "taken biskonto|biskonto:10.000|10|"},
        {"biskonto:-5", "passed over biskonto|biskonto:-5||"},
        {"vonkonto", "passed over vonkonto|vonkonto||"},
    };
    for (const auto& row : rows) {
        host.readings.clear();
        ask(export_form, std::string("/autostart/") + row.item);
        ASSERT_EQ(host.readings.size(), 3U) << row.item;
        EXPECT_EQ(test::line_of(host.readings[2]), row.reading);
    }
}

TEST_F(RangeForm, TellsThatARangeBeginsBehindItsEnd) {
    ask(export_form, "/autostart/vonkonto:8");
    EXPECT_EQ(test::line_of(host.readings.back()), "crossed vonkonto||8|7");
    ask(export_form, "/autostart/vonkonto:7");
    EXPECT_EQ(test::line_of(host.readings.back()), "taken vonkonto|vonkonto:7|7|");
}

TEST_F(RangeForm, ReadsANumberBeyondAllNumbersWithoutAnError) {
    EXPECT_TRUE(ask(export_form, "/autostart/biskonto:1" + std::string(400, '0') + "/biskonto:9"));
    EXPECT_EQ(export_form.taken.range.to, 9);
    EXPECT_TRUE(host.errors.empty());
}

TEST_F(RangeForm, TellsTheSectionOfAClientThatABatchTextFound) {
    ask(export_form, "/autostart/mandant:4711/mandant:99");
    EXPECT_EQ(export_form.chosen_clients, Texts{"31"});
}

TEST_F(RangeForm, EndsWhenItCannotSayWhatIsWrong) {
    struct HostWithoutBoxes : FakeHost {
        BoxAnswer show(std::string_view, BoxStyle, std::string_view) override {
            throw server_error("kein Fenster");
        }
    } without_boxes;
    const struct {
        const char* procedure;
        std::function<void(Form&)> act;
    } rows[] = {
        {"cmdOK_Click", [](Form& form) { form.ok.click(); }},
        {"txtKLNr_Validate", [](Form& form) { EXPECT_FALSE(form.field("txtKLNr(0)").validate()); }},
    };
    for (const auto& row : rows) {
        without_boxes.errors.clear();
        without_boxes.person = [&row](Form& form) {
            form.field("txtKLNr(0)").text = "x";
            row.act(form);
            EXPECT_FALSE(form.shown);
        };
        ScriptedForm form(without_boxes.environment, false);
        EXPECT_FALSE(ask(form)) << row.procedure;
        ASSERT_EQ(without_boxes.errors.size(), 1U) << row.procedure;
        EXPECT_EQ(without_boxes.errors[0].source,
                  std::string(PROT_STAMP "|srvprotqrbcsv|Testserver\r\nScriptedForm.") + row.procedure);
    }
}

}  // namespace
}  // namespace prot
