#include "sections/open_items/ProtOPCsvClass.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/event_names.h"
#include "sections/open_items/item_lines.h"
#include "sections/open_items/item_selection.h"
#include "tests/unit/support/fakes.h"
#include "tests/unit/support/log_record.h"
#include "tests/unit/support/statements.h"

namespace prot {
namespace {

using test::FakeDatabase;
using test::FakeHost;
using test::Row;
using Lines = std::vector<std::vector<std::string>>;

const std::string client_query = test::find_client_statement(" = 0 ", "10001");
constexpr const char* main_query =
    "SELECT idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser, "
    "dcApplication, dlPrimaryKey1, dlSuchId1,  dlSuchId2,  dlSuchId3,  dlSuchId4 FROM tProtokoll WHERE  "
    "((dcTable = 'OFFENER_POSTEN' AND dlPrimaryKey1 IN (SELECT OP_ID FROM OFFENER_POSTEN  WHERE OP_SkNr "
    "BETWEEN 10000 AND 10001)) ) ORDER BY ddDatum";
constexpr const char* item_query =
    "SELECT OP_SKNR, OP_BELEG2, OP_DATUM_BELEG FROM OFFENER_POSTEN WHERE OP_ID = 5";

class ItemExport : public testing::Test {
protected:
    FakeHost host;
    FakeDatabase oDBU;
    open_items::ProtOPCsvClass exporter{host.environment};
    Value para;

    ItemExport() {
        fill_event_names();
        oDBU.answers["SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 6"] = {
            {std::string("tProtokoll")}};
        oDBU.answers[item_query] = {
            {std::int64_t{10000}, std::string("RE-17"), to_date(CivilTime{2026, 1, 15})}};
        for (const char* column : {"OP_ART", "OP_SPERR_KZ", "op_art", "OP_BETRAG"})
            oDBU.answers[test::caption_statement("OFFENER_POSTEN", column)] = {
                {std::string("Feld ") + column}};
        host.documents["kind"] = {{"OP_ART", "1", "2"}, {"OP_SPERR_KZ", "0", "2"}};
        host.documents["suppressed"] = {{"op_datum", "a", "b"}, {"BU_ID", "1", "2"}};
        host.documents["large"] = {{"OP_ART", "99999999999", ""}, {"OP_BETRAG", "99999999999", "x"}};
        log("kind");
    }
    void log(const std::string& document, std::int64_t event = 1,
             const Value& moment = to_date(CivilTime{2026, 3, 5, 14, 7, 9})) {
        oDBU.answers[main_query] = {row(5, document, event, moment)};
    }
    static Row row(std::int64_t item, const std::string& document, std::int64_t event = 1,
                   const Value& moment = to_date(CivilTime{2026, 3, 5, 14, 7, 9})) {
        return {std::int64_t{900},
                std::string("OFFENER_POSTEN"),
                std::string("WS-07"),
                std::string("Müller"),
                moment,
                event,
                document,
                std::string("sa"),
                std::string("srvOp"),
                item,
                std::int64_t{3001},
                std::int64_t{3002},
                std::int64_t{3003},
                std::int64_t{3004}};
    }
    void run(const std::string& parameters = "/autostart") {
        exporter.psCommandline = parameters;
        exporter.gCSVAusgabe(oDBU, 6, "", {}, {}, 7, para);
    }
    const Lines& lines() { return host.written.files.at(0).lines; }
};

TEST_F(ItemExport, NamesTheItemAndPutsKindAndDunningBlockIntoWords) {
    run();
    EXPECT_EQ(
        lines(),
        (Lines{{"Mandant:  , von Konto: 10000 bis Konto: 10001", "", "", "", "", "", "", "", "", "", "", ""},
               {"Konto", "Op-Nr", "Belegdatum", "Datum der Änderung", "Mitarbeiter", "Feld der Änderung",
                "Aktion", "alter Wert", "neuer Wert", "Arbeitsstation", "Applikation", "Datenbankbenutzer"},
               {"10000", "RE-17", "15.01.2026", "05.03.2026 14:07:09", "Müller", "Feld OP_ART", "geändert",
                "Rechnung", "Zahlung", "WS-07", "srvOp", "Standardbenutzer"},
               {"10000", "RE-17", "15.01.2026", "05.03.2026 14:07:09", "Müller", "Feld OP_SPERR_KZ",
                "geändert", "keine Sperrung", "2 mal gesperrt", "WS-07", "srvOp", "Standardbenutzer"}}));
    EXPECT_EQ(host.written.files.at(0).name, "Prot_OffenePosten_20261115_100715.csv");
}

TEST_F(ItemExport, AnItemDeletedSinceShowsNichtVorhanden) {
    oDBU.answers.erase(item_query);
    run();
    EXPECT_EQ(lines().at(2)[0], "nicht vorhanden");
    EXPECT_EQ(lines().at(2)[1], "");
    EXPECT_EQ(lines().at(2)[2], "");
}

TEST_F(ItemExport, SuppressedFieldsStaySuppressedInLowerCase) {
    log("suppressed");
    run();
    EXPECT_EQ(lines().size(), 2U);
}

TEST_F(ItemExport, SuppressesEachTechnicalFieldEvenWhereItHasACaption) {
    for (const char* field :
         {"BU_ID", "BUS_ID", "OP_ID", "WJ_ID", "OP_DATUM", "OP_MITARBEITER", "OP_AUSGLEICH_NR"}) {
        host.written.files.clear();
        oDBU.answers[test::caption_statement("OFFENER_POSTEN", field)] = {{std::string("Technisch")}};
        host.documents["field"] = {{field, "1", "2"}};
        log("field");
        run();
        EXPECT_EQ(lines().size(), 2U) << field;
    }
}

TEST_F(ItemExport, AsksForEachItemOnceInARun) {
    const std::string other_item =
        "SELECT OP_SKNR, OP_BELEG2, OP_DATUM_BELEG FROM OFFENER_POSTEN WHERE OP_ID = 6";
    oDBU.answers[other_item] = {{std::int64_t{10001}, std::string("RE-18"), to_date(CivilTime{2026, 1, 16})}};
    oDBU.answers[main_query] = {row(5, "large"), row(6, "large"), row(5, "large"), row(6, "large")};
    run();
    Lines described;
    for (std::size_t i = 2; i < lines().size(); i += 2)
        described.emplace_back(lines()[i].begin(), lines()[i].begin() + 3);
    EXPECT_EQ(described, (Lines{{"10000", "RE-17", "15.01.2026"},
                                {"10001", "RE-18", "16.01.2026"},
                                {"10000", "RE-17", "15.01.2026"},
                                {"10001", "RE-18", "16.01.2026"}}));
    EXPECT_EQ(std::ranges::count(oDBU.statements, std::string("array: ") + item_query), 1);
    EXPECT_EQ(std::ranges::count(oDBU.statements, "array: " + other_item), 1);
}

TEST_F(ItemExport, AnItemWithTooFewColumnsIsAnError) {
    oDBU.answers[item_query] = {{std::int64_t{10000}, std::string("RE-17")}};
    try {
        run();
        FAIL();
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.description(), "Das Abfrageergebnis hat 2 Spalten statt 3.");
        EXPECT_EQ(error.source(), PROT_STAMP
                  "|srvprotqrbcsv|srvProtQRBCsv\r\nProtOPCsvClass.mGetOPInfos\r\n"
                  "ProtOPCsvClass.mbAusgabeCSV\r\nProtOPCsvClass.gCSVAusgabe");
    }
}

TEST_F(ItemExport, ItsFormOffersAllCollectivelyToADeletionOnly) {
    for (const bool deletion : {false, true}) {
        host.person = [deletion](Form& form) {
            EXPECT_EQ(form.field("cboMandant").entries.size(), deletion ? 3U : 2U);
            form.cancel.click();
        };
        exporter.pbLoeschen = deletion;
        run("");
    }
    EXPECT_EQ(host.forms_shown, 2);
}

TEST_F(ItemExport, AValueOutside32BitsStaysAsLogged) {
    log("large");
    run();
    EXPECT_EQ(lines().at(2)[7], "99999999999");
    EXPECT_EQ(lines().at(3)[7], "99999999999");
}

TEST_F(ItemExport, AChangeWithoutMomentIsWrittenAsLogged) {
    log("kind", 1, Value());
    run();
    EXPECT_EQ(lines().at(2)[3], "");
    EXPECT_EQ(lines().at(2)[7], "1");
    EXPECT_EQ(lines().at(2)[8], "2");
    host.written.files.clear();
    log("kind", 1, std::string());
    run();
    EXPECT_EQ(lines().at(2)[7], "1") << "an empty text is no moment either";
}

TEST_F(ItemExport, AnEventOutside0To2EndsTheRun) {
    log("kind", 3);
    EXPECT_THROW(run(), AutomationError);
    EXPECT_FALSE(host.written.files.at(0).closed);
}

TEST_F(ItemExport, ADeletionCountsAndDeletesByTheSameCondition) {
    const std::string condition =
        " tProtokoll WHERE  ((dcTable = 'OFFENER_POSTEN' AND dlPrimaryKey1 IN (SELECT OP_ID FROM "
        "OFFENER_POSTEN  WHERE OP_SkNr BETWEEN 10000 AND 10001)) )";
    oDBU.answers["SELECT COUNT(*) FROM" + condition] = {{std::int64_t{3}}};
    host.answer = BoxAnswer::yes;
    exporter.pbLoeschen = true;
    run();
    EXPECT_EQ(oDBU.statements.back(), "execute: DELETE" + condition);
    EXPECT_TRUE(host.written.files.empty());
}

TEST(ItemCondition, AnEmptyConditionSelectsEveryLoggedItem) {
    EXPECT_EQ(open_items::msWHERE(""), " ((dcTable = 'OFFENER_POSTEN'))");
    EXPECT_EQ(open_items::msWHERE(" WHERE  WJ_ID = 5"),
              " ((dcTable = 'OFFENER_POSTEN' AND dlPrimaryKey1 IN (SELECT OP_ID FROM OFFENER_POSTEN  WHERE  "
              "WJ_ID = 5)) )");
}

/// The words for a value of a record that has a moment.
std::string translated(std::string_view value, std::string_view field) {
    const test::LogRecord record({.date = Date{46000}});
    return open_items::msTranslateID(value, record.field(field));
}

TEST(ItemValues, AreTranslatedByField) {
    const struct {
        const char* field;
        const char* value;
        const char* text;
        const char* why;
    } rows[] = {
        {"OP_ART", "0", "", "no kind"},
        {"OP_ART", "1", "Rechnung", "an invoice"},
        {"OP_ART", "2", "Zahlung", "a payment"},
        {"OP_ART", "3", "", "no kind"},
        {"op_art", "1", "Rechnung", "names are compared without letter case"},
        {"OP_ART", "1,9", "Rechnung", "the number at the start, up to the comma"},
        {"OP_ART", "1.5", "Zahlung", "rounded to the even one"},
        {"OP_ART", "abc", "", "no number counts as 0"},
        {"OP_SPERR_KZ", "-1", "", "below 0"},
        {"OP_SPERR_KZ", "0", "keine Sperrung", "none"},
        {"OP_SPERR_KZ", "1", "1 mal gesperrt", "once"},
        {"OP_SPERR_KZ", "9", "9 mal gesperrt", "the most"},
        {"OP_SPERR_KZ", "10", "", "above 9"},
        {"OP_SPERR_KZ", "11", "", "above 9"},
        {"OP_SPERR_KZ", "abc", "keine Sperrung", "no number counts as 0"},
        {"OP_SPERR_KZ", "2147483648", "", "outside 32 bits"},
        {"OP_BETRAG", "1", "", "any other field"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(translated(row.value, row.field), row.text)
            << row.field << " " << row.value << ": " << row.why;
}

TEST(ItemValues, ADunningBlockIsCountedInWordsFrom0To9AndElseStaysAsLogged) {
    for (int count = -1; count <= 11; ++count) {
        const std::string value = std::to_string(count);
        const std::string expected = count == 0                 ? "keine Sperrung"
                                     : count >= 1 && count <= 9 ? value + " mal gesperrt"
                                                                : "";
        EXPECT_EQ(translated(value, "OP_SPERR_KZ"), expected) << value;
    }
}

TEST_F(ItemExport, ReadsTheClientOfTheBatchTextOnce) {
    oDBU.answers[client_query] = {{std::int64_t{7}, std::string("Maier")}};
    run("/autostart/mandant:10001/vonkonto:1/biskonto:999999999");
    EXPECT_NE(std::ranges::find(oDBU.statements, "array: " + client_query), oDBU.statements.end());
    EXPECT_TRUE(std::ranges::any_of(oDBU.statements, [](const std::string& statement) {
        return statement.find("FROM OFFENER_POSTEN  WHERE  WJ_ID IN ())) ) ORDER BY ddDatum") !=
               std::string::npos;
    })) << "a client without fiscal years gives an empty list, and the server says so";
}

}  // namespace
}  // namespace prot
