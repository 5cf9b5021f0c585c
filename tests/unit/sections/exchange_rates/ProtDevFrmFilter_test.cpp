#include "sections/exchange_rates/ProtDevFrmFilter.h"

#include <gtest/gtest.h>

#include "tests/unit/support/batch_readings.h"
#include "tests/unit/support/fakes.h"

namespace prot {
namespace {

using test::FakeDatabase;
using test::FakeHost;
using test::server_error;
using test::ShownBox;

constexpr const char* currencies = "SELECT idDevisenWaehr, dcISOKennz FROM tDevisenWaehr ORDER BY dcISOKennz";

class RateFilter : public testing::Test {
protected:
    FakeHost host;
    FakeDatabase oDBU;
    std::string where = "alt", filter = "alt", commandline;

    RateFilter() {
        oDBU.answers[currencies] = {{std::int64_t{4}, std::string("AUD")},
                                    {std::int64_t{2}, std::string("EUR")},
                                    {std::int64_t{9}, std::string("USD")}};
    }
    bool ask(std::string parameters = {}) {
        commandline = std::move(parameters);
        exchange_rates::ProtDevFrmFilter form(host.environment);
        if (!form.gbGetFilter(oDBU, commandline)) return false;
        where = form.sWhere();
        filter = form.sFilter();
        return true;
    }
    static void choose(Form& form, std::size_t from, std::size_t to) {
        form.fields[0].selected = from;
        form.fields[1].selected = to;
    }
};

TEST_F(RateFilter, OffersAllCurrenciesFromTheLowestToTheHighestCode) {
    host.person = [](Form& form) {
        EXPECT_EQ(form.caption, "Protokollausgabe Devisenkurse");
        ASSERT_EQ(form.fields.size(), 2U);
        for (const Field& field : form.fields) {
            ASSERT_EQ(field.entries.size(), 3U);
            EXPECT_EQ(field.entries[0].key, 4);
            EXPECT_EQ(field.entries[1].text, "EUR");
            EXPECT_TRUE(field.enabled);
        }
        EXPECT_EQ(form.fields[0].selected_text(), "AUD");
        EXPECT_EQ(form.fields[1].selected_text(), "USD");
        EXPECT_TRUE(form.key_preview);
        EXPECT_FALSE(form.cancel.causes_validation);
        form.ok.click();
    };
    EXPECT_TRUE(ask());
    EXPECT_EQ(where, " WHERE dcISOKennz BETWEEN 'AUD' AND 'USD'");
    EXPECT_EQ(filter, "Von ISO Währungscode: AUD bis ISO Währungscode: USD");
    EXPECT_EQ(host.setups, std::vector<int>{1000});
    EXPECT_EQ(oDBU.statements, std::vector<std::string>{std::string("array: ") + currencies});
    EXPECT_EQ(host.pointers, std::vector<Pointer>{Pointer::standard});
}

TEST_F(RateFilter, TellsEntriesApartByAnyKey) {
    oDBU.answers[currencies] = {{std::int64_t{1} << 40, std::string("AUD")}, {1e300, std::string("EUR")}};
    EXPECT_TRUE(ask("/autostart"));
    EXPECT_EQ(where, " WHERE dcISOKennz BETWEEN 'AUD' AND 'EUR'");
}

TEST_F(RateFilter, TakesWhatThePersonChose) {
    host.person = [](Form& form) {
        choose(form, 1, 2);
        form.ok.click();
    };
    EXPECT_TRUE(ask());
    EXPECT_EQ(where, " WHERE dcISOKennz BETWEEN 'EUR' AND 'USD'");
}

TEST_F(RateFilter, IsFalseWhenThePersonCancels) {
    host.person = [](Form& form) { form.cancel.click(); };
    EXPECT_FALSE(ask());
    EXPECT_EQ(where, "alt");
}

TEST_F(RateFilter, RefusesARangeThatRunsBackwardsAndStaysOpen) {
    host.person = [](Form& form) {
        choose(form, 2, 1);
        form.ok.click();
        EXPECT_TRUE(form.shown);
        EXPECT_EQ(form.focus, 1U);
        choose(form, 1, 2);
        form.ok.click();
        EXPECT_FALSE(form.shown);
    };
    EXPECT_TRUE(ask());
    EXPECT_EQ(host.boxes,
              (std::vector<ShownBox>{
                  {"Der Wert im Feld 'bis ISO Währungscode' darf nicht kleiner sein als der Wert im Feld "
                   "'von ISO Währungscode' !",
                   BoxStyle::exclamation, "Unzulässige Aktion"}}));
}

TEST_F(RateFilter, ComparesTheRangeWithLetterCase) {
    oDBU.answers[currencies] = {{std::int64_t{1}, std::string("aud")}, {std::int64_t{2}, std::string("EUR")}};
    host.person = [](Form& form) {
        form.ok.click();
        EXPECT_TRUE(form.shown) << "EUR is smaller than aud";
        form.cancel.click();
    };
    EXPECT_FALSE(ask());
}

TEST_F(RateFilter, AcceptsEqualCodes) {
    host.person = [](Form& form) {
        choose(form, 1, 1);
        form.ok.click();
    };
    EXPECT_TRUE(ask());
    EXPECT_EQ(where, " WHERE dcISOKennz BETWEEN 'EUR' AND 'EUR'");
}

TEST_F(RateFilter, BatchWithoutRangeKeysTakesAllCurrenciesAndShowsNoForm) {
    EXPECT_TRUE(ask("/sektion:15/autostart"));
    EXPECT_EQ(where, " WHERE dcISOKennz BETWEEN 'AUD' AND 'USD'");
    EXPECT_EQ(commandline, "/sektion:15/autostart");
    EXPECT_EQ(host.forms_shown, 0);
}

TEST_F(RateFilter, ReadsTheBatchRange) {
    const struct {
        const char* text;
        const char* condition;
        const char* why;
    } rows[] = {
        {"/autostart/vondevi:EUR/bisdevi:GBP", "'EUR' AND 'GBP'", "both bounds"},
        {"/vondevi:EUR/autostart/bisdevi:GBP", "'AUD' AND 'GBP'", "keys before autostart are ignored"},
        {"/AutoStart/VonDevi: chf ", "'chf' AND 'USD'",
         "keys without letter case, values trimmed, case kept"},
        {"/autostart/vondevi:/bisdevi: ", "'AUD' AND 'USD'", "empty values leave the default"},
        {"/autostart/vondevi:USD/bisdevi:AUD", "'USD' AND 'AUD'", "the order is not checked"},
        {"/autostart/vondevi:EUR/vondevi:GBP", "'GBP' AND 'USD'", "the last one holds"},
        {"/autostart:1/vondevisen:EUR", "'EUR' AND 'USD'", "a key is the start of an item"},
        {"autostart/vondevi:EUR", "'EUR' AND 'USD'", "the first item needs no slash"},
        {"/autostart/auswertungsrahmen:A/vondevi:EUR", "'EUR' AND 'USD'", "always split at every slash"},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(ask(row.text)) << row.why;
        EXPECT_EQ(where, std::string(" WHERE dcISOKennz BETWEEN ") + row.condition) << row.why;
    }
    EXPECT_EQ(host.forms_shown, 0);
}

TEST_F(RateFilter, ATextWithoutAutostartIsClearedAndTheFormShown) {
    EXPECT_TRUE(ask("/sektion:15/vondevi:EUR"));
    EXPECT_EQ(commandline, "");
    EXPECT_EQ(host.forms_shown, 1);
    EXPECT_EQ(where, " WHERE dcISOKennz BETWEEN 'AUD' AND 'USD'");
}

TEST_F(RateFilter, WithoutCurrenciesBothFieldsSayFehltAndAreOff) {
    oDBU.answers.clear();
    host.person = [](Form& form) {
        for (const Field& field : form.fields) {
            ASSERT_EQ(field.entries.size(), 1U);
            EXPECT_EQ(field.selected_text(), "Fehlt!");
            EXPECT_FALSE(field.enabled);
        }
        form.ok.click();
    };
    EXPECT_TRUE(ask());
    EXPECT_EQ(where, " WHERE dcISOKennz BETWEEN 'Fehlt!' AND 'Fehlt!'");
    EXPECT_TRUE(ask("/autostart"));
    EXPECT_EQ(where, " WHERE dcISOKennz BETWEEN 'Fehlt!' AND 'Fehlt!'") << "in batch mode too";
}

TEST_F(RateFilter, ShowsHelpOnF1Alone) {
    host.person = [](Form& form) {
        form.key_down({.code = key_f1, .shift = true});
        form.key_down({.code = key_f1, .control = true});
        form.key_down({.code = key_f1, .alt = true});
        form.key_down({.code = 113});
        form.key_down({.code = key_f1});
        form.ok.click();
    };
    ask();
    EXPECT_EQ(host.help_topics, std::vector<std::string>{
                                    "mivra_allgemein.xml#HID_MIVRA_ALLGEMEIN_PROTOKOLLIERUNG_DEVISENKURSE"});
}

TEST_F(RateFilter, CurrenciesWithoutCodeAreAnError) {
    oDBU.answers[currencies] = {{std::int64_t{1}}};
    EXPECT_FALSE(ask("/autostart"));
    ASSERT_EQ(host.errors.size(), 1U);
    EXPECT_EQ(host.errors[0].description, "Das Abfrageergebnis hat 1 Spalte statt 2.");
}

TEST_F(RateFilter, ShowsAnErrorAndIsFalse) {
    oDBU.failures.emplace(currencies, server_error("Tabelle fehlt"));
    EXPECT_FALSE(ask("/autostart"));
    ASSERT_EQ(host.errors.size(), 1U);
    EXPECT_EQ(host.errors[0].source,
              PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtDevFrmFilter.mIsoWaehrungLesen");
    EXPECT_EQ(host.forms_shown, 0);
}

TEST_F(RateFilter, TellsWhatItMakesOfABound) {
    const struct {
        const char* item;
        const char* reading;
    } rows[] = {
        {"vondevi: EUR ", "taken vondevi|vondevi: EUR|EUR|"},
        {"bisdevi:eur", "taken bisdevi|bisdevi:eur|eur|"},
        {"bisdevi:EURO", "taken bisdevi|bisdevi:EURO|EURO| (not listed)"},
        {"vondevi: ", "passed over vondevi|vondevi:||"},
        {"vondevi:ZAR", "crossed vondevi||ZAR|USD"},
    };
    for (const auto& row : rows) {
        host.readings.clear();
        EXPECT_TRUE(ask(std::string("/autostart/") + row.item));
        EXPECT_EQ(test::line_of(host.readings.back()), row.reading);
    }
}

}  // namespace
}  // namespace prot
