#include "sections/customers_suppliers/ProtKLFrmFilter.h"

#include <gtest/gtest.h>

#include "tests/unit/support/batch_readings.h"
#include "tests/unit/support/fakes.h"
#include "tests/unit/support/statements.h"

namespace prot {
namespace {

using test::FakeDatabase;
using test::FakeHost;
using test::ShownBox;

constexpr std::int32_t customers = 9, suppliers = 8;

class PartnerFilter : public testing::Test {
protected:
    FakeHost host;
    FakeDatabase oDBU;
    customers_suppliers::Filter taken;
    std::string filter_text, commandline;
    bool deleting = false;

    PartnerFilter() {
        oDBU.answers[test::find_client_statement(" = 0 ", "123")] = {
            {std::int64_t{4001}, std::string("Maier")}};
        oDBU.answers[test::find_client_statement(" <> 0 ", "123")] = {
            {std::int64_t{4005}, std::string("Kanzlei Nord")}};
        oDBU.answers[test::picker_statement(test::are_clients)] = {
            {std::int64_t{4001}, std::int64_t{123}, std::string("Maier")},
            {std::int64_t{4002}, std::int64_t{124}, std::string("Schulz")}};
        oDBU.answers[test::picker_statement(test::are_offices)] = {
            {std::int64_t{4005}, std::int64_t{123}, std::string("Kanzlei Nord")}};
    }
    bool ask(std::int32_t section, std::string parameters = {}) {
        commandline = std::move(parameters);
        customers_suppliers::ProtKLFrmFilter form(host.environment, section, deleting);
        if (!form.gbGetFilter(oDBU, commandline)) return false;
        taken = form.filter();
        filter_text = form.sFilter();
        return true;
    }
    /// Whether the batch text is accepted; the person cancels a form that is shown.
    bool accepts(std::int32_t section, const std::string& parameters) {
        host.person = [](Form& form) { form.cancel.click(); };
        const int shown = host.forms_shown;
        const bool accepted = ask(section, parameters);
        EXPECT_EQ(host.forms_shown, shown + (accepted ? 0 : 1)) << parameters;
        EXPECT_EQ(commandline, accepted ? parameters : "") << "a refused text is emptied";
        return accepted;
    }
    static void choose(Form& form, const char* field, std::optional<std::size_t> entry) {
        form.field(field).selected = entry;
        form.field(field).changed();
    }
    static void enter(Form& form, const char* from, const char* to) {
        form.field("txtKLNr(0)").text = from;
        form.field("txtKLNr(1)").text = to;
    }
    static std::vector<std::pair<std::int64_t, std::string>> kinds(const Form& form) {
        std::vector<std::pair<std::int64_t, std::string>> kinds;
        for (const Entry& entry : form.field("cboMandant").entries) kinds.emplace_back(entry.key, entry.text);
        return kinds;
    }
};

TEST_F(PartnerFilter, SaysOfEachSectionWhatItIsAbout) {
    const struct {
        std::int32_t section;
        const char *caption, *group, *from_label, *to_label, *from, *to, *help;
    } rows[] = {
        {customers, "Protokollausgabe Kunden", "Kunden", "&von Kunden-Nr.", "&bis Kunden-Nr.", "10000",
         "10001", "mivra_allgemein.xml#HID_MIVRA_ALLGEMEIN_PROTOKOLLIERUNG_KUNDEN"},
        {suppliers, "Protokollausgabe Lieferanten", "Lieferanten", "&von Lieferanten-Nr.",
         "&bis Lieferanten-Nr.", "70000", "70001",
         "mivra_allgemein.xml#HID_MIVRA_ALLGEMEIN_PROTOKOLLIERUNG_LIEFERANTEN"},
    };
    for (const auto& row : rows) {
        host.person = [&](Form& form) {
            EXPECT_EQ(form.caption, row.caption);
            ASSERT_EQ(form.groups.size(), 2U);
            EXPECT_EQ(form.groups[0].caption, "Mandant oder Kanzlei");
            EXPECT_EQ(form.groups[1].caption, row.group);
            EXPECT_EQ(form.field("txtKLNr(0)").label, row.from_label);
            EXPECT_EQ(form.field("txtKLNr(1)").label, row.to_label);
            EXPECT_EQ(form.field("txtKLNr(0)").text, row.from);
            EXPECT_EQ(form.field("txtKLNr(1)").text, row.to);
            EXPECT_FALSE(form.ok.enabled) << "a client has to be chosen";
            form.key_down({.code = key_f1});
            form.key_down({.code = key_f1, .shift = true});
            form.cancel.click();
        };
        EXPECT_FALSE(ask(row.section));
        EXPECT_EQ(host.help_topics, std::vector<std::string>{row.help});
        host.help_topics.clear();
    }
}

TEST_F(PartnerFilter, OffersAllOfAKindToADeletionOnly) {
    using Kinds = std::vector<std::pair<std::int64_t, std::string>>;
    const Kinds single = {{1, "Mandant"}, {2, "Kanzlei"}};
    const Kinds all = {{1, "Mandant"},
                       {2, "Kanzlei"},
                       {3, "Alle Mandanten"},
                       {4, "Alle Kanzleien"},
                       {5, "Alle Mandanten/Kanzleien"}};
    for (const bool deletion : {false, true}) {
        deleting = deletion;
        host.person = [&](Form& form) {
            EXPECT_EQ(kinds(form), deletion ? all : single);
            EXPECT_EQ(form.field("cboMandant").selected_text(), "Mandant");
            form.cancel.click();
        };
        ask(customers);
    }
    EXPECT_EQ(host.forms_shown, 2);
}

TEST_F(PartnerFilter, TakesTheClientThatIsPicked) {
    host.person = [](Form& form) {
        choose(form, "ctlMandant", 1);
        enter(form, "10050", "10060");
        EXPECT_TRUE(form.ok.enabled);
        form.ok.click();
    };
    ASSERT_TRUE(ask(customers));
    EXPECT_EQ(taken.mlMandantId, 4002);
    EXPECT_EQ(taken.mlMandantModus, ClientKind::client);
    EXPECT_EQ(taken.mdVonNr, 10050);
    EXPECT_EQ(taken.mdBisNr, 10060);
    EXPECT_EQ(filter_text, "Mandant: 124 Schulz, von Kunden-Nr: 10050 bis Kunden-Nr: 10060");
}

TEST_F(PartnerFilter, TakesTheOfficeThatIsPicked) {
    host.person = [](Form& form) {
        choose(form, "ctlMandant", 0);
        choose(form, "cboMandant", 1);
        EXPECT_FALSE(form.field("ctlMandant").selected) << "a client is no office";
        EXPECT_FALSE(form.ok.enabled);
        choose(form, "ctlMandant", 0);
        form.ok.click();
    };
    ASSERT_TRUE(ask(suppliers));
    EXPECT_EQ(taken.mlMandantId, 4005);
    EXPECT_EQ(taken.mlMandantModus, ClientKind::office);
    EXPECT_EQ(filter_text, "Kanzlei: 123 Kanzlei Nord, von Lieferanten-Nr: 70000 bis Lieferanten-Nr: 70001");
}

TEST_F(PartnerFilter, ACollectiveModeNeedsNobodyAndItsPickerIsOff) {
    const struct {
        std::size_t entry;
        ClientKind mode;
        const char* text;
    } rows[] = {
        {2, ClientKind::all_clients, "Alle Mandanten"},
        {3, ClientKind::all_offices, "Alle Kanzleien"},
        {4, ClientKind::all, "Alle Mandanten/Kanzleien"},
    };
    deleting = true;
    for (const auto& row : rows) {
        host.person = [&](Form& form) {
            choose(form, "ctlMandant", 0);
            choose(form, "cboMandant", row.entry);
            EXPECT_FALSE(form.field("ctlMandant").enabled);
            EXPECT_TRUE(form.ok.enabled);
            form.ok.click();
        };
        ASSERT_TRUE(ask(customers));
        EXPECT_EQ(taken.mlMandantId, 0) << "the client picked before counts no more";
        EXPECT_EQ(taken.mlMandantModus, row.mode);
        EXPECT_EQ(filter_text, std::string(row.text) + ", von Kunden-Nr: 10000 bis Kunden-Nr: 10001");
    }
}

TEST_F(PartnerFilter, AClientClearedAgainTurnsOkOff) {
    host.person = [](Form& form) {
        choose(form, "ctlMandant", 0);
        choose(form, "ctlMandant", std::nullopt);
        EXPECT_FALSE(form.ok.enabled);
        form.cancel.click();
    };
    EXPECT_FALSE(ask(customers));
}

TEST_F(PartnerFilter, RefusesARangeThatIsNone) {
    const char* const positive = "Die Werte in den Eingabefeldern 'von/bis Nummer' müssen größer 0 sein!";
    const char* const order =
        "Der Wert im Feld 'bis Nummer' darf nicht kleiner sein als der Wert im Feld 'von Nummer' !";
    const struct {
        const char *from, *to, *text;
        std::size_t focus;
    } rows[] = {
        {"0", "5", positive, 2}, {"-1", "5", positive, 2}, {"", "5", positive, 2},
        {"5", "0", positive, 3}, {"5", "", positive, 3},   {"10001", "10000", order, 3},
    };
    for (const auto& row : rows) {
        host.boxes.clear();
        host.person = [&](Form& form) {
            choose(form, "ctlMandant", 0);
            enter(form, row.from, row.to);
            form.ok.click();
            EXPECT_TRUE(form.shown);
            EXPECT_EQ(form.focus, row.focus);
            EXPECT_TRUE(form.select_focus);
            form.cancel.click();
        };
        EXPECT_FALSE(ask(suppliers));
        EXPECT_EQ(host.boxes,
                  (std::vector<ShownBox>{{row.text, BoxStyle::exclamation, "Unzulässige Aktion"}}))
            << row.from << " " << row.to;
    }
}

TEST_F(PartnerFilter, TakesARangeOfOneNumber) {
    host.person = [](Form& form) {
        choose(form, "ctlMandant", 0);
        enter(form, "10007", "10007");
        form.ok.click();
    };
    EXPECT_TRUE(ask(customers));
    EXPECT_EQ(taken.mdVonNr, taken.mdBisNr);
}

TEST_F(PartnerFilter, RefusesAnEntryThatIsNoNumber) {
    host.person = [](Form& form) {
        form.field("txtKLNr(1)").text = "10x";
        EXPECT_FALSE(form.field("txtKLNr(1)").validate());
        EXPECT_EQ(form.focus, 3U);
        form.cancel.click();
    };
    EXPECT_FALSE(ask(customers));
    EXPECT_EQ(host.boxes,
              (std::vector<ShownBox>{{"Das Eingabefeld darf keine alphanumerischen Zeichen enthalten!",
                                      BoxStyle::exclamation, "Eingabefehler"}}));
}

TEST_F(PartnerFilter, ABatchTextWithAutostartAndAClientNeedsNoForm) {
    EXPECT_TRUE(accepts(customers, "/autostart/mandant:123/vonkonto:10010/biskonto:10020"));
    EXPECT_EQ(taken.mlMandantId, 4001);
    EXPECT_EQ(taken.mlMandantModus, ClientKind::client);
    EXPECT_EQ(filter_text, "Mandant: 123 Maier, von Kunden-Nr: 10010 bis Kunden-Nr: 10020");
    EXPECT_EQ(oDBU.statements,
              (std::vector<std::string>{"array: " + test::find_client_statement(" = 0 ", "123")}));
}

TEST_F(PartnerFilter, TheLettersMAndKOfABatchTextTellClientsFromOffices) {
    const struct {
        const char* value;
        std::int32_t id;
        ClientKind mode;
        const char* text;
    } rows[] = {
        {"123", 4001, ClientKind::client, "Mandant: 123 Maier"},
        {"m123", 4001, ClientKind::client, "Mandant: 123 Maier"},
        {"M123", 4001, ClientKind::client, "Mandant: 123 Maier"},
        {"k123", 4005, ClientKind::office, "Kanzlei: 123 Kanzlei Nord"},
        {"K123", 4005, ClientKind::office, "Kanzlei: 123 Kanzlei Nord"},
    };
    for (const auto& row : rows) {
        ASSERT_TRUE(accepts(suppliers, std::string("/autostart/mandant:") + row.value)) << row.value;
        EXPECT_EQ(taken.mlMandantId, row.id) << row.value;
        EXPECT_EQ(taken.mlMandantModus, row.mode) << row.value;
        EXPECT_EQ(filter_text,
                  row.text + std::string(", von Lieferanten-Nr: 70000 bis Lieferanten-Nr: 70001"));
    }
}

TEST_F(PartnerFilter, ABatchTextWithoutAKnownClientOpensTheForm) {
    for (const char* text :
         {"/autostart", "/autostart/mandant:", "/autostart/mandant:0", "/autostart/mandant:-1",
          "/autostart/mandant:999", "/autostart/mandant:Maier", "/autostart/mandant:k999", "/mandant:123",
          "/mandant:123/autostart", "autostart/mandant:123", "/vonkonto:1"})
        EXPECT_FALSE(accepts(customers, text)) << text;
}

TEST_F(PartnerFilter, ABatchTextWithDsgvoOpensTheFormWhereverItStands) {
    for (const char* text :
         {"/dsgvo/autostart/mandant:123", "/autostart/dsgvo/mandant:123", "/autostart/mandant:123/dsgvo",
          "/DSGVO/mandant:123", "/autostart/mandant:123/Dsgvo"})
        EXPECT_FALSE(accepts(customers, text)) << text;
}

TEST_F(PartnerFilter, KeysBeforeAutostartAreIgnored) {
    EXPECT_TRUE(accepts(customers, "/vonkonto:5/biskonto:6/autostart/mandant:123/biskonto:10009"));
    EXPECT_EQ(filter_text, "Mandant: 123 Maier, von Kunden-Nr: 10000 bis Kunden-Nr: 10009");
}

TEST_F(PartnerFilter, ABoundThatIsNoNumberAboveZeroLeavesTheDefault) {
    for (const char* value : {"0", "-5", "abc", ""}) {
        EXPECT_TRUE(accepts(customers, std::string("/autostart/mandant:123/vonkonto:") + value)) << value;
        EXPECT_EQ(filter_text, "Mandant: 123 Maier, von Kunden-Nr: 10000 bis Kunden-Nr: 10001") << value;
    }
}

TEST_F(PartnerFilter, ATextThatNamesAReportFrameworkIsScannedForItsKeys) {
    EXPECT_TRUE(accepts(customers, "/autostart/biskonto:10005/mandant:123/auswertungsrahmen:A/B"))
        << "the scan finds autostart first";
    EXPECT_EQ(taken.mdBisNr, 10005);
}

TEST_F(PartnerFilter, ShowsItsOwnErrorsAndEndsWithoutASelection) {
    oDBU.failures.emplace(test::find_client_statement(" = 0 ", "123"), test::server_error("kein Zugriff"));
    EXPECT_FALSE(ask(customers, "/autostart/mandant:123"));
    ASSERT_EQ(host.errors.size(), 1U);
    EXPECT_EQ(host.errors[0].source,
              PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtKLFrmFilter.mbCommandlineOk");
    EXPECT_EQ(host.forms_shown, 0);
}

TEST_F(PartnerFilter, TellsWhatItReadsAndWhatNot) {
    accepts(customers, "autostart/x/autostart/mandant:123/vonkonto:20000");
    EXPECT_EQ(test::lines_of(host.readings),
              (std::vector<std::string>{"unknown |x||", "taken autostart|autostart||",
                                        "taken mandant:|mandant:123|123|Mandant: 123 Maier",
                                        "taken vonkonto|vonkonto:20000|20000|", "unread |autostart||",
                                        "crossed vonkonto||20000|10001"}));
}

}  // namespace
}  // namespace prot
