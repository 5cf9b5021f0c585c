#include "sections/open_items/ProtOPFrmFilter.h"

#include <gtest/gtest.h>

#include "tests/unit/support/batch_readings.h"
#include "tests/unit/support/fakes.h"
#include "tests/unit/support/statements.h"

namespace prot {
namespace {

using test::FakeDatabase;
using test::FakeHost;
using test::Row;
using test::ShownBox;

std::string years_statement(const char* restriction) {
    return std::string(
               "SELECT     Person_Wirtschaftsjahr.WJ_Id,     Zeitraum.Zt_Von,     Zeitraum.Zt_Bis,     "
               "dlWJTyp,     Person_Wirtschaftsjahr.WJ_Bezeichnung,     Person_Wirtschaftsjahr.Ps_Id FROM "
               "Zeitraum      INNER JOIN Person_Wirtschaftsjahr ON Zeitraum.Zt_Id = "
               "Person_Wirtschaftsjahr.Zt_Id WHERE (Person_Wirtschaftsjahr.PS_Id ") +
           restriction + ")  Order By Person_Wirtschaftsjahr.Ps_id, dlWJTyp, Zeitraum.Zt_Bis DESC";
}

const std::string clients = test::picker_statement(test::are_clients);
const std::string offices = test::picker_statement(test::are_offices);
const std::string everyone = test::clients_statement("Person_v4.Ps_Id, Person_v4.Ps_nr", "", "Ps_Id");

Row year(std::int64_t id, int from, std::int64_t type, Value name = {}) {
    return {id,
            to_date(CivilTime{from, 1, 1}),
            to_date(CivilTime{from, 12, 31}),
            type,
            std::move(name),
            std::int64_t{7}};
}

class ItemFilter : public testing::Test {
protected:
    FakeHost host;
    FakeDatabase oDBU;
    std::string where = "alt", filter = "alt", commandline;
    bool deleting = false;

    ItemFilter() {
        oDBU.answers[test::find_client_statement(" = 0 ", "10001")] = {
            {std::int64_t{7}, std::string("Maier")}};
        oDBU.answers[test::find_client_statement(" <> 0 ", "123")] = {
            {std::int64_t{8}, std::string("Kanzlei Nord")}};
        oDBU.answers[years_statement(" = 7")] = {year(31, 2026, 1), year(30, 2025, 1),
                                                 year(32, 2027, 2, std::string("Plan A")), year(33, 2028, 2),
                                                 year(34, 2026, 4)};
        oDBU.answers[years_statement(" = 9")] = {
            {std::int64_t{51}, Date{45658}, Date{46022}, std::int64_t{1}, Value(), std::int64_t{9}}};
        oDBU.answers[clients] = {{std::int64_t{7}, std::int64_t{10001}, std::string("Maier")},
                                 {std::int64_t{9}, std::int64_t{10002}, std::string("Schulz")}};
        oDBU.answers[offices] = {{std::int64_t{8}, std::int64_t{123}, std::string("Kanzlei Nord")}};
        oDBU.answers[everyone] = {{std::int64_t{7}, std::int64_t{10001}},
                                  {std::int64_t{8}, std::int64_t{123}}};
    }
    bool ask(std::string parameters = {}) {
        commandline = std::move(parameters);
        open_items::ProtOPFrmFilter form(host.environment, deleting);
        if (!form.gbGetFilter(oDBU, commandline)) return false;
        where = form.sWhere();
        filter = form.sFilter();
        return true;
    }
    static void choose(Form& form, const char* field, std::optional<std::size_t> entry) {
        form.field(field).selected = entry;
        if (form.field(field).changed) form.field(field).changed();
    }
    static std::vector<std::string> year_texts(const Form& form) {
        std::vector<std::string> texts;
        for (const Entry& entry : form.field("cboWirtschaftsjahr").entries) texts.push_back(entry.text);
        return texts;
    }
    static void enter(Form& form, const char* from, const char* to) {
        form.field("txtKLNr(0)").text = from;
        form.field("txtKLNr(1)").text = to;
    }
};

TEST_F(ItemFilter, OffersAllCollectivelyToADeletionOnly) {
    host.person = [this](Form& form) {
        EXPECT_EQ(form.caption, "Protokollausgabe Offene Posten");
        EXPECT_EQ(form.field("cboMandant").entries.size(), deleting ? 3U : 2U);
        EXPECT_EQ(form.field("cboMandant").selected_text(), "Mandant");
        form.cancel.click();
    };
    EXPECT_FALSE(ask());
    deleting = true;
    EXPECT_FALSE(ask());
    EXPECT_EQ(host.forms_shown, 2);
}

TEST_F(ItemFilter, StartsWithAccounts10000To10001AndNoClient) {
    host.person = [](Form& form) {
        EXPECT_EQ(form.field("txtKLNr(0)").text, "10000");
        EXPECT_EQ(form.field("txtKLNr(1)").text, "10001");
        EXPECT_FALSE(form.field("ctlMandant").selected);
        EXPECT_FALSE(form.ok.enabled) << "a client has to be chosen";
        form.cancel.click();
    };
    ask();
}

TEST_F(ItemFilter, TakesTheChosenClientWithAllItsFiscalYears) {
    host.person = [](Form& form) {
        choose(form, "ctlMandant", 0);
        EXPECT_TRUE(form.ok.enabled);
        EXPECT_EQ(year_texts(form),
                  (std::vector<std::string>{"Alle Wirtschaftsjahre", "01.01.2026 - 31.12.2026",
                                            "01.01.2025 - 31.12.2025", "01.01.2027 - 31.12.2027 (Plan A)",
                                            "01.01.2028 - 31.12.2028 (Planjahr)",
                                            "01.01.2026 - 31.12.2026 (Konz)"}));
        form.ok.click();
    };
    EXPECT_TRUE(ask());
    EXPECT_EQ(where, " WHERE OP_SkNr BETWEEN 10000 AND 10001 AND  WJ_ID IN (31, 30, 32, 33, 34)");
    EXPECT_EQ(filter, "Mandant: 10001 Maier, von Konto: 10000 bis Konto: 10001");
}

TEST_F(ItemFilter, AChosenFiscalYearStandsAlone) {
    host.person = [](Form& form) {
        choose(form, "ctlMandant", 0);
        choose(form, "cboWirtschaftsjahr", 2);
        enter(form, "1", "999999999");
        form.ok.click();
    };
    EXPECT_TRUE(ask());
    EXPECT_EQ(where, " WHERE  WJ_ID = 30") << "the full range is no condition";
}

TEST_F(ItemFilter, AnotherKindOffersItsOwnAndForgetsTheClient) {
    host.person = [](Form& form) {
        choose(form, "ctlMandant", 0);
        choose(form, "cboMandant", 1);
        EXPECT_EQ(form.field("ctlMandant").entries.size(), 1U);
        EXPECT_EQ(form.field("ctlMandant").label, "&Kanzlei");
        EXPECT_FALSE(form.field("ctlMandant").selected);
        EXPECT_FALSE(form.ok.enabled);
        EXPECT_EQ(form.field("cboWirtschaftsjahr").entries.size(), 1U);
        form.cancel.click();
    };
    ask();
}

TEST_F(ItemFilter, AnotherClientHasItsOwnFiscalYears) {
    host.person = [](Form& form) {
        choose(form, "ctlMandant", 0);
        choose(form, "cboWirtschaftsjahr", 2);
        choose(form, "ctlMandant", 1);
        EXPECT_EQ(year_texts(form),
                  (std::vector<std::string>{"Alle Wirtschaftsjahre", "01.01.2025 - 31.12.2025"}));
        EXPECT_EQ(form.field("cboWirtschaftsjahr").selected, 0U) << "the year of the client before is gone";
        form.ok.click();
    };
    EXPECT_TRUE(ask());
    EXPECT_EQ(where, " WHERE OP_SkNr BETWEEN 10000 AND 10001 AND  WJ_ID IN (51)");
    EXPECT_EQ(filter, "Mandant: 10002 Schulz, von Konto: 10000 bis Konto: 10001");
}

TEST_F(ItemFilter, AClientClearedAgainLeavesNoFiscalYears) {
    host.person = [](Form& form) {
        choose(form, "ctlMandant", 0);
        choose(form, "cboWirtschaftsjahr", 1);
        choose(form, "ctlMandant", std::nullopt);
        EXPECT_EQ(year_texts(form), std::vector<std::string>{"Alle Wirtschaftsjahre"});
        EXPECT_EQ(form.field("cboWirtschaftsjahr").selected, 0U);
        EXPECT_FALSE(form.ok.enabled);
        form.cancel.click();
    };
    EXPECT_FALSE(ask());
}

TEST_F(ItemFilter, AKindSwitchedBehindAClientLeavesNoFiscalYears) {
    host.person = [](Form& form) {
        choose(form, "ctlMandant", 0);
        choose(form, "cboWirtschaftsjahr", 3);
        choose(form, "cboMandant", 1);
        EXPECT_EQ(year_texts(form), std::vector<std::string>{"Alle Wirtschaftsjahre"});
        EXPECT_EQ(form.field("cboWirtschaftsjahr").selected, 0U);
        form.cancel.click();
    };
    EXPECT_FALSE(ask());
}

TEST_F(ItemFilter, AnAccountAloneIsARangeOfOne) {
    host.person = [](Form& form) {
        choose(form, "ctlMandant", 1);
        enter(form, "10000", "10000");
        form.ok.click();
        EXPECT_FALSE(form.shown);
    };
    EXPECT_TRUE(ask());
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(where, " WHERE OP_SkNr BETWEEN 10000 AND 10000 AND  WJ_ID IN (51)");
    EXPECT_TRUE(ask("/autostart/vonkonto:5/biskonto:5"));
    EXPECT_EQ(where, " WHERE OP_SkNr BETWEEN 5 AND 5");
    EXPECT_TRUE(ask("/autostart/vonkonto:1/biskonto:1"));
    EXPECT_EQ(where, " WHERE OP_SkNr BETWEEN 1 AND 1");
    EXPECT_TRUE(ask("/autostart/vonkonto:999999999/biskonto:999999999"));
    EXPECT_EQ(where, " WHERE OP_SkNr BETWEEN 999999999 AND 999999999");
}

TEST_F(ItemFilter, AllTogetherOfNobodyAsksForNoFiscalYears) {
    deleting = true;
    oDBU.answers.erase(everyone);
    host.person = [](Form& form) {
        choose(form, "cboMandant", 2);
        EXPECT_EQ(year_texts(form), std::vector<std::string>{"Alle Wirtschaftsjahre"});
        form.ok.click();
    };
    EXPECT_TRUE(ask());
    EXPECT_EQ(oDBU.statements, (std::vector<std::string>{"array: " + clients, "array: " + everyone}));
    EXPECT_EQ(where, " WHERE OP_SkNr BETWEEN 10000 AND 10001");
}

TEST_F(ItemFilter, AFormAskedAgainForgetsTheBatchTextBefore) {
    open_items::ProtOPFrmFilter form(host.environment, false);
    const auto ask_again = [&](const char* text) {
        commandline = text;
        EXPECT_TRUE(form.gbGetFilter(oDBU, commandline)) << text;
        return form.sWhere();
    };
    EXPECT_EQ(ask_again("/autostart/mandant:10001/wirtschaftsjahr:01.01.2025 - 31.12.2025"),
              " WHERE OP_SkNr BETWEEN 10000 AND 10001 AND  WJ_ID = 30");
    EXPECT_EQ(ask_again("/autostart/mandant:10001"),
              " WHERE OP_SkNr BETWEEN 10000 AND 10001 AND  WJ_ID IN (31, 30, 32, 33, 34)");
    EXPECT_EQ(ask_again("/autostart/vonkonto:5"), " WHERE OP_SkNr BETWEEN 5 AND 10001");
}

TEST_F(ItemFilter, WritesFiscalYearsByTheirDaysTypeAndName) {
    const struct {
        Value from, to;
        std::int64_t type;
        Value name;
        const char* text;
        const char* why;
    } rows[] = {
        {Date{45658.5}, Date{46022.75}, 1, {}, "01.01.2025 - 31.12.2025", "the time of day does not count"},
        {std::string("01.01.2025 08:30:00"),
         std::string("31.12.2025"),
         1,
         {},
         "01.01.2025 - 31.12.2025",
         "days may be texts"},
        {Value(), std::string(), 1, {}, " - ", "days that are missing"},
        {Date{45658}, Value(), 1, std::string("Name"), "01.01.2025 - ",
         "a name counts for a planned year only"},
        {Date{45658}, Date{46022}, 2, std::string("Plan"), "01.01.2025 - 31.12.2025 (Plan)", "planned"},
        {Date{45658}, Date{46022}, 2, std::string(), "01.01.2025 - 31.12.2025 (Planjahr)",
         "planned, no name"},
        {Date{45658}, Date{46022}, 3, {}, "01.01.2025 - 31.12.2025", "any other type"},
        {Date{45658}, Date{46022}, 4, std::string("x"), "01.01.2025 - 31.12.2025 (Konz)", "of a group"},
    };
    for (const auto& row : rows) {
        oDBU.answers[years_statement(" = 9")] = {
            {std::int64_t{51}, row.from, row.to, row.type, row.name, std::int64_t{9}}};
        host.person = [&row](Form& form) {
            choose(form, "ctlMandant", 1);
            ASSERT_EQ(year_texts(form).size(), 2U) << row.why;
            EXPECT_EQ(year_texts(form)[1], row.text) << row.why;
            form.cancel.click();
        };
        ask();
    }
}

TEST_F(ItemFilter, FiscalYearsThatCannotBeReadAreAnErrorInBatchAndInTheForm) {
    const auto refused_by = [this](const std::string& parameters) {
        host.errors.clear();
        EXPECT_FALSE(ask(parameters)) << parameters;
        EXPECT_EQ(host.errors.size(), 1U);
        return host.errors.empty() ? "" : host.errors[0].description + " " + host.errors[0].source;
    };
    host.person = [](Form& form) {
        choose(form, "ctlMandant", 0);
        EXPECT_FALSE(form.shown);
    };
    const std::string chain = "\r\nProtOPFrmFilter.mFuelleWJListe";
    for (const char* parameters : {"", "/autostart/mandant:10001"}) {
        oDBU.failures.clear();
        oDBU.answers[years_statement(" = 7")] = {{std::int64_t{31}}};
        EXPECT_EQ(refused_by(parameters), "Das Abfrageergebnis hat 1 Spalte statt 6. " PROT_STAMP
                                          "|srvprotqrbcsv|srvProtQRBCsv" +
                                              chain);
        oDBU.failures.emplace(years_statement(" = 7"), test::server_error("Tabelle fehlt"));
        EXPECT_EQ(refused_by(parameters), "Tabelle fehlt " PROT_STAMP "|srvprotqrbcsv|Testserver" + chain);
    }
}

TEST_F(ItemFilter, AllTogetherSwitchThePickerOffAndNeedNoChoice) {
    deleting = true;
    oDBU.answers[years_statement(" IN (7, 8)")] = {year(31, 2026, 1)};
    host.person = [](Form& form) {
        choose(form, "cboMandant", 2);
        EXPECT_FALSE(form.field("ctlMandant").enabled);
        EXPECT_TRUE(form.ok.enabled);
        EXPECT_EQ(form.field("cboWirtschaftsjahr").entries.size(), 2U);
        form.ok.click();
    };
    EXPECT_TRUE(ask());
    EXPECT_EQ(where, " WHERE OP_SkNr BETWEEN 10000 AND 10001");
    EXPECT_EQ(filter, "Alle Mandanten/Kanzleien, von Konto: 10000 bis Konto: 10001");
}

TEST_F(ItemFilter, RefusesARangeInTheOrderOfItsChecks) {
    const struct {
        const char* from;
        const char* to;
        const char* text;
        std::size_t focus;
    } rows[] = {
        {"0", "5", "Die Werte in den Eingabefeldern 'von/bis Nummer' müssen größer 0 sein!", 3},
        {"", "", "Die Werte in den Eingabefeldern 'von/bis Nummer' müssen größer 0 sein!", 3},
        {"5", "-1", "Die Werte in den Eingabefeldern 'von/bis Nummer' müssen größer 0 sein!", 4},
        {"6", "5",
         "Der Wert im Feld 'bis Nummer' darf nicht kleiner sein als der Wert im Feld 'von Nummer' !", 4},
    };
    for (const auto& row : rows) {
        host.boxes.clear();
        host.person = [&row](Form& form) {
            choose(form, "ctlMandant", 0);
            enter(form, row.from, row.to);
            form.ok.click();
            EXPECT_TRUE(form.shown);
            EXPECT_EQ(form.focus, row.focus);
            EXPECT_TRUE(form.select_focus);
            form.cancel.click();
        };
        EXPECT_FALSE(ask());
        EXPECT_EQ(host.boxes,
                  (std::vector<ShownBox>{{row.text, BoxStyle::exclamation, "Unzulässige Aktion"}}));
    }
}

TEST_F(ItemFilter, RefusesAnEntryThatIsNoNumber) {
    const struct {
        const char* text;
        bool accepted;
        const char* why;
    } rows[] = {
        {"10000", true, "a number"},       {" 7 ", true, "with blanks around"},
        {"", true, "empty: said by OK"},   {"-5", true, "a sign"},
        {"12a", false, "a letter"},        {"10.000", false, "a mark of thousands"},
        {"1,5", false, "no whole number"}, {"-", false, "a sign alone"},
    };
    for (const auto& row : rows) {
        host.boxes.clear();
        host.person = [&row](Form& form) {
            form.field("txtKLNr(1)").text = row.text;
            EXPECT_EQ(form.field("txtKLNr(1)").validate(), row.accepted) << row.why;
            EXPECT_TRUE(row.accepted || form.focus == 4U);
            form.cancel.click();
        };
        ask();
        if (row.accepted) continue;
        EXPECT_EQ(host.boxes,
                  (std::vector<ShownBox>{{"Das Eingabefeld darf keine alphanumerischen Zeichen enthalten!",
                                          BoxStyle::exclamation, "Eingabefehler"}}))
            << row.why;
    }
}

TEST_F(ItemFilter, ReadsTheBatchText) {
    const struct {
        const char* text;
        const char* where;
        const char* filter;
        const char* why;
    } rows[] = {
        {"/autostart", " WHERE OP_SkNr BETWEEN 10000 AND 10001",
         "Mandant:  , von Konto: 10000 bis Konto: 10001", "without a client"},
        {"/mandant:10001/autostart", " WHERE OP_SkNr BETWEEN 10000 AND 10001",
         "Mandant:  , von Konto: 10000 bis Konto: 10001", "keys before autostart are ignored"},
        {"/autostart/mandant:M10001/vonkonto:1/biskonto:999999999", " WHERE  WJ_ID IN (31, 30, 32, 33, 34)",
         "Mandant: 10001 Maier, von Konto: 1 bis Konto: 999999999", "the full range"},
        {"/autostart/mandant:10001/wirtschaftsjahr:01.01.2025 - 31.12.2025",
         " WHERE OP_SkNr BETWEEN 10000 AND 10001 AND  WJ_ID = 30",
         "Mandant: 10001 Maier, von Konto: 10000 bis Konto: 10001", "a year by its exact text"},
        {"/autostart/wirtschaftsjahr:01.01.2025 - 31.12.2025/mandant:10001",
         " WHERE OP_SkNr BETWEEN 10000 AND 10001 AND  WJ_ID = 30",
         "Mandant: 10001 Maier, von Konto: 10000 bis Konto: 10001", "the year is looked for at the end"},
        {"/autostart/mandant:10001/wirtschaftsjahr:2025",
         " WHERE OP_SkNr BETWEEN 10000 AND 10001 AND  WJ_ID IN (31, 30, 32, 33, 34)",
         "Mandant: 10001 Maier, von Konto: 10000 bis Konto: 10001", "an unknown year is all years"},
        {"/autostart/mandant:k123/vonkonto:5", " WHERE OP_SkNr BETWEEN 5 AND 10001 AND  WJ_ID IN ()",
         "Kanzlei: 123 Kanzlei Nord, von Konto: 5 bis Konto: 10001", "an office without fiscal years"},
        {"/autostart/mandant:99", " WHERE OP_SkNr BETWEEN 10000 AND 10001",
         "Mandant:  , von Konto: 10000 bis Konto: 10001", "an unknown client"},
        {"/autostart/mandant:k", " WHERE OP_SkNr BETWEEN 10000 AND 10001",
         "Kanzlei:  , von Konto: 10000 bis Konto: 10001", "the kind without a number"},
        {"/autostart/vonkonto:0/biskonto:abc", " WHERE OP_SkNr BETWEEN 10000 AND 10001",
         "Mandant:  , von Konto: 10000 bis Konto: 10001", "values that are no positive numbers"},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(ask(row.text)) << row.why;
        EXPECT_EQ(where, row.where) << row.why;
        EXPECT_EQ(filter, row.filter) << row.why;
        EXPECT_EQ(commandline, row.text) << row.why;
    }
    EXPECT_EQ(host.forms_shown, 0);
}

TEST_F(ItemFilter, ARangeOf1To999999999OrWiderHasNoAccountCondition) {
    const struct {
        const char* from;
        const char* to;
        bool all;
    } rows[] = {
        {"1", "999999999", true},  {"0.5", "999999999", true}, {"1", "1000000000", true},
        {"2", "999999999", false}, {"1", "999999998", false},
    };
    for (const auto& row : rows) {
        const std::string range = std::string("/vonkonto:") + row.from + "/biskonto:" + row.to;
        EXPECT_TRUE(ask("/autostart" + range));
        EXPECT_EQ(where, row.all ? "" : std::string(" WHERE OP_SkNr BETWEEN ") + row.from + " AND " + row.to);
        EXPECT_EQ(filter, std::string("Mandant:  , von Konto: ") + row.from + " bis Konto: " + row.to);
    }
}

TEST_F(ItemFilter, ABatchClientIsAnOfficeBehindKAndAClientBehindMOrAlone) {
    const struct {
        const char* value;
        const char* kind;
    } rows[] = {
        {"k123", " <> 0 "}, {"K123", " <> 0 "}, {"m123", " = 0 "}, {"M123", " = 0 "}, {"123", " = 0 "},
    };
    for (const auto& row : rows) {
        oDBU.statements.clear();
        EXPECT_TRUE(ask(std::string("/autostart/mandant:") + row.value));
        ASSERT_FALSE(oDBU.statements.empty()) << row.value;
        EXPECT_EQ(oDBU.statements[0], "array: " + test::find_client_statement(row.kind, "123")) << row.value;
    }
}

TEST_F(ItemFilter, AnAccountBeyondAllNumbersIsAnOverflow) {
    for (const char* key : {"vonkonto", "biskonto", "mandant"}) {
        host.errors.clear();
        EXPECT_FALSE(ask(std::string("/autostart/") + key + ":1e999")) << key;
        ASSERT_EQ(host.errors.size(), 1U) << key;
        EXPECT_EQ(host.errors[0].number, static_cast<std::int32_t>(0x800A0006)) << key;
    }
}

TEST_F(ItemFilter, ABatchTextSendsNoMoreThanItNeeds) {
    ask("/autostart/mandant:10001");
    EXPECT_EQ(oDBU.statements,
              (std::vector<std::string>{"array: " + test::find_client_statement(" = 0 ", "10001"),
                                        "array: " + years_statement(" = 7")}));
}

TEST_F(ItemFilter, ATextWithoutAutostartShowsTheForm) {
    host.person = [](Form& form) { form.cancel.click(); };
    EXPECT_FALSE(ask("/mandant:10001"));
    EXPECT_EQ(commandline, "");
    EXPECT_EQ(host.forms_shown, 1);
}

TEST_F(ItemFilter, ShowsItsHelpTopic) {
    host.person = [](Form& form) {
        form.key_down({.code = key_f1});
        form.cancel.click();
    };
    ask();
    EXPECT_EQ(host.help_topics, std::vector<std::string>{"mivra_allgemein.xml#HID_MIVRA_ALLGEMEIN_"
                                                         "PROTOKOLLIERUNG_OFFENE_POSTEN"});
}

TEST_F(ItemFilter, ShowsAnErrorAndIsFalse) {
    oDBU.failures.emplace(clients, test::server_error("Tabelle fehlt"));
    EXPECT_FALSE(ask());
    ASSERT_EQ(host.errors.size(), 1U);
    EXPECT_EQ(host.errors[0].source,
              PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtOPFrmFilter.mMandantAuswahl");
    EXPECT_EQ(host.forms_shown, 0);
}

TEST_F(ItemFilter, TellsWhatBecomesOfAFiscalYear) {
    const struct {
        const char* text;
        const char* reading;  ///< the last one
    } rows[] = {
        {"/autostart/mandant:10001/wirtschaftsjahr:01.01.2025 - 31.12.2025",
         "taken wirtschaftsjahr:|wirtschaftsjahr:01.01.2025 - 31.12.2025|01.01.2025 - 31.12.2025|"},
        {"/autostart/mandant:10001/wirtschaftsjahr:2025", "absent wirtschaftsjahr:|||"},
        {"/autostart/wirtschaftsjahr:01.01.2025 - 31.12.2025", "idle wirtschaftsjahr:|||"},
        {"/autostart/wirtschaftsjahr:x/vonkonto:20000", "idle wirtschaftsjahr:|||"},
    };
    for (const auto& row : rows) {
        host.readings.clear();
        EXPECT_TRUE(ask(row.text));
        EXPECT_EQ(test::line_of(host.readings.back()), row.reading);
    }
    EXPECT_EQ(test::line_of(host.readings[host.readings.size() - 2]), "crossed vonkonto||20000|10001");
}

}  // namespace
}  // namespace prot
