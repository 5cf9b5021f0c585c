#include "sections/customers_suppliers/ProtKLCsvClass.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/event_names.h"
#include "tests/unit/support/fakes.h"
#include "tests/unit/support/statements.h"

namespace prot {
namespace {

using customers_suppliers::customers;
using customers_suppliers::Filter;
using customers_suppliers::Ledger;
using customers_suppliers::suppliers;
using test::FakeDatabase;
using test::FakeHost;
using test::Row;
using test::ShownBox;
using Lines = std::vector<std::vector<std::string>>;

const std::string client_query = test::find_client_statement(" = 0 ", "123");
constexpr const char* customer_31 =
    "SELECT KUNDEN_V4.KUN_NR, PERSONALIE.Pl_Bezeichnung FROM KUNDEN_V4 INNER JOIN PERSON_V4 ON "
    "KUNDEN_V4.Ps_Id_Kunde = PERSON_V4.PS_ID INNER JOIN PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID "
    "WHERE "
    "KUNDEN_V4.KUN_ID = 31";

class PartnerExport : public testing::Test {
protected:
    FakeHost host;
    FakeDatabase oDBU;
    customers_suppliers::ProtKLCsvClass exporter{host.environment};
    Value para;
    std::string condition, batch;  // of client 123 and the proposed customers

    PartnerExport() {
        fill_event_names();
        for (const char* section : {"8", "9", "7"})
            oDBU.answers[std::string("SELECT dcLogTable FROM tSysQuvoLogSections WHERE "
                                     "IDSysQuvoLogSections = ") +
                         section] = {{std::string("tProtokoll")}};
        oDBU.answers[client_query] = {{std::int64_t{4001}, std::string("Maier")}};
        oDBU.answers[customer_31] = {{std::int64_t{10000}, std::string("Becker GmbH")}};
        for (const char* column : {"KUN_RABATT", "MB_ID", "KUN_MEMO"})
            oDBU.answers[test::caption_statement("KUNDEN_V4", column)] = {{std::string("Feld ") + column}};
        host.documents["change"] = {
            {"KUN_RABATT", "2,5", "3"}, {"KUN_MEMO", "a", "b"}, {"MB_ID", "0", "NULL"}};
        host.documents["creation"] = {{"KUN_RABATT", "", "3"}};
        host.documents["deletion"] = {{"KUN_RABATT", "3", ""}};
        host.documents["unknown"] = {{"KUN_NEU", "1", "2"}};
        FakeDatabase none;
        condition = msWHERE4809(customers, {10000, 10001, 4001, ClientKind::client}, none, batch);
    }
    static std::string select(const std::string& where) {
        return "SELECT idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser, "
               "dcApplication, dlPrimaryKey1, dlSuchId1,  dlSuchId2,  dlSuchId3,  dlSuchId4 FROM tProtokoll "
               "WHERE " +
               where + " ORDER BY ddDatum";
    }
    static Row row(const std::string& document, std::int64_t event = 1,
                   const Value& moment = to_date(CivilTime{2026, 3, 5, 14, 7, 9})) {
        return {std::int64_t{900},
                std::string("KUNDEN_V4"),
                std::string("WS-07"),
                std::string("Müller"),
                moment,
                event,
                document,
                std::string("sa"),
                std::string("Stammdaten"),
                std::int64_t{31},
                std::int64_t{7},
                std::int64_t{4001},
                std::int64_t{3003},
                std::int64_t{10000}};
    }
    void log(std::vector<Row> rows) { oDBU.answers[select(condition)] = std::move(rows); }
    void run(const std::string& parameters = "/autostart/mandant:123", std::int32_t section = 9) {
        exporter.psCommandline = parameters;
        exporter.gCSVAusgabe(oDBU, section, "", {}, {}, 7, para);
    }
    const Lines& lines() { return host.written.files.at(0).lines; }
};

TEST_F(PartnerExport, NamesTheCustomerTheFieldAndTheValues) {
    log({row("change")});
    run();
    EXPECT_EQ(
        lines(),
        (Lines{{"Mandant: 123 Maier, von Kunden-Nr: 10000 bis Kunden-Nr: 10001", "", "", "", "", "", "", "",
                "", "", ""},
               {"Kunden-Nr", "Bezeichnung", "Datum der Änderung", "Mitarbeiter", "Feld der Änderung",
                "Aktion", "alter Wert", "neuer Wert", "Arbeitsstation", "Applikation", "Datenbankbenutzer"},
               {"10000", "Becker GmbH", "05.03.2026 14:07:09", "Müller", "Feld KUN_RABATT", "geändert", "2,5",
                "3", "WS-07", "Stammdaten", "Standardbenutzer"},
               {"10000", "Becker GmbH", "05.03.2026 14:07:09", "Müller", "Feld MB_ID", "geändert",
                "ohne Mahnbedingungen", "leer", "WS-07", "Stammdaten", "Standardbenutzer"}}));
    EXPECT_EQ(host.written.files.at(0).name, "Prot_Kunden_20261115_100715.csv");
    EXPECT_TRUE(host.written.files.at(0).closed);
}

TEST_F(PartnerExport, SendsTheBatchBeforeAnyOtherStatementOfTheSelection) {
    log({row("creation", 0)});
    run();
    EXPECT_EQ(std::vector(oDBU.statements.begin(), oDBU.statements.begin() + 4),
              (std::vector<std::string>{
                  "array: " + client_query, "execute: " + batch,
                  "value: SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 9",
                  "array: " + select(condition)}));
}

TEST_F(PartnerExport, AsksForClientsBeforeTheBatchThatNamesThem) {
    const std::string clients = test::clients_statement("Person_v4.Ps_Id", test::are_clients, "Ps_Id");
    oDBU.answers[clients] = {{std::int64_t{4001}}, {std::int64_t{4002}}};
    std::string all_batch;
    const std::string all =
        msWHERE4809(suppliers, {70000, 70001, 0, ClientKind::all_clients}, oDBU, all_batch);
    oDBU.answers["SELECT COUNT(*) FROM tProtokoll WHERE " + all] = {{std::int64_t{3}}};
    oDBU.statements.clear();
    host.answer = BoxAnswer::yes;
    host.person = [](Form& form) {
        form.field("cboMandant").selected = 2;
        form.field("cboMandant").changed();
        form.ok.click();
    };
    exporter.pbLoeschen = true;
    run("", 8);
    const std::string section =
        "value: SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 8";
    const auto selection = std::ranges::find(oDBU.statements, "array: " + clients);
    EXPECT_EQ(std::vector(selection, oDBU.statements.end()),
              (std::vector<std::string>{
                  "array: " + clients, "execute: " + all_batch, section, section,
                  "value: SELECT COUNT(*) FROM tProtokoll WHERE " + all,
                  "execute: DELETE tProtokollMemo WHERE flProtokoll in (SELECT idProtokoll FROM tProtokoll "
                  "WHERE " +
                      all + ")",
                  "execute: DELETE tProtokoll WHERE " + all}));
    EXPECT_TRUE(host.written.files.empty());
    EXPECT_EQ(host.boxes.size(), 1U) << "the question, and nothing about data";
}

TEST_F(PartnerExport, ADeletionThatFindsNothingSaysSoAndWritesNoFile) {
    exporter.pbLoeschen = true;
    oDBU.answers["SELECT COUNT(*) FROM tProtokoll WHERE " + condition] = {{std::int64_t{0}}};
    run();
    EXPECT_EQ(host.boxes.size(), 1U);
    EXPECT_EQ(host.boxes.at(0).title, "Löschen Stammdatenprotokoll");
    EXPECT_TRUE(host.written.files.empty());
}

TEST_F(PartnerExport, OfSuppliersHasItsOwnWords) {
    std::string supplier_batch;
    const std::string where =
        msWHERE4809(suppliers, {70000, 70001, 4001, ClientKind::client}, oDBU, supplier_batch);
    Row supplier = row("change");
    supplier[1] = std::string("PERSON_BANKKONTO");
    oDBU.answers[select(where)] = {supplier};
    run("/autostart/mandant:123", 8);
    EXPECT_EQ(lines().size(), 2U) << "links have no line";
    EXPECT_EQ(lines().at(0).at(0), "Mandant: 123 Maier, von Lieferanten-Nr: 70000 bis Lieferanten-Nr: 70001");
    EXPECT_EQ(lines().at(1).at(0), "Lieferanten-Nr");
    EXPECT_EQ(lines().at(1).at(1), "Bezeichnung");
    EXPECT_EQ(host.written.files.at(0).name, "Prot_Lieferanten_20261115_100715.csv");
}

TEST_F(PartnerExport, AnEmptyOldOrNewValueReadsLeer) {
    log({row("creation", 0), row("deletion", 2)});
    run();
    EXPECT_EQ(lines().at(2).at(6), "leer");
    EXPECT_EQ(lines().at(2).at(7), "3");
    EXPECT_EQ(lines().at(3).at(6), "3");
    EXPECT_EQ(lines().at(3).at(7), "leer");
}

TEST_F(PartnerExport, AFieldWithoutCaptionHasNoLine) {
    log({row("unknown")});
    run();
    EXPECT_EQ(lines().size(), 2U) << "the file has its two head lines all the same";
}

TEST_F(PartnerExport, ARecordWhoseDocumentDoesNotLoadHasNoLine) {
    log({row("broken"), row("creation", 0)});
    run();
    EXPECT_EQ(lines().size(), 3U);
    EXPECT_EQ(host.unreadable, std::vector<std::int64_t>{900});
}

TEST_F(PartnerExport, AnUnknownCustomerIsWrittenAllTheSame) {
    oDBU.answers.erase(customer_31);
    log({row("creation", 0)});
    run();
    EXPECT_EQ(lines().at(2).at(0), "");
    EXPECT_EQ(lines().at(2).at(1), "nicht gefunden!");
    EXPECT_EQ(lines().at(2).at(4), "Feld KUN_RABATT");
}

TEST_F(PartnerExport, AChangeWithoutMomentIsWrittenAsLogged) {
    log({row("change", 1, Value())});
    run();
    EXPECT_EQ(lines().at(2).at(1), "Becker GmbH");
    EXPECT_EQ(lines().at(2).at(2), "");
    EXPECT_EQ(lines().at(3).at(6), "0");
    EXPECT_EQ(lines().at(3).at(7), "leer");
}

TEST_F(PartnerExport, AMomentThatIsNoDateEndsTheRun) {
    log({row("change", 1, Value(std::string("gestern")))});
    try {
        run();
        FAIL();
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::type_mismatch));
    }
    EXPECT_FALSE(host.written.files.at(0).closed);
}

TEST_F(PartnerExport, AnEventBeyondTheThreeEndsTheRunByItsWriterLoop) {
    log({row("change", 3)});
    try {
        run();
        FAIL();
    } catch (const AutomationError& error) {
        EXPECT_TRUE(error.source().ends_with("\r\nProtKLCsvClass.mAusgabeCSV\r\nProtKLCsvClass.gCSVAusgabe"))
            << error.source();
    }
    EXPECT_EQ(std::ranges::count(oDBU.statements, std::string("array: ") + customer_31), 0)
        << "the event comes before the customer";
}

TEST_F(PartnerExport, WithoutDataShowsAPlainBoxToAPersonAndWritesAFileInBatchMode) {
    run();
    EXPECT_EQ(lines().at(0).at(0), "Keine Daten vorhanden!");
    EXPECT_EQ(host.written.files.at(0).name, "Prot_Kunden_20261115_100715.csv");
    host.written.files.clear();
    oDBU.answers[test::picker_statement(test::are_clients)] = {
        {std::int64_t{4001}, std::int64_t{123}, std::string("Maier")}};
    host.person = [](Form& form) {
        form.field("ctlMandant").selected = 0;
        form.field("ctlMandant").changed();
        form.ok.click();
    };
    run("");
    EXPECT_EQ(host.boxes,
              (std::vector<ShownBox>{{"Keine Daten vorhanden!", BoxStyle::plain, "Protokollierung"}}));
    EXPECT_TRUE(host.written.files.empty());
    EXPECT_EQ(exporter.gCSVFile, "Prot_Kunden.csv");
}

TEST_F(PartnerExport, ABatchThatFailsEndsTheRunWithoutAFile) {
    oDBU.failures.emplace(batch, test::server_error("kein Platz"));
    try {
        run();
        FAIL();
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.source(), PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtKLCsvClass.gCSVAusgabe");
    }
    EXPECT_TRUE(host.written.files.empty());
}

TEST_F(PartnerExport, OfAnotherSectionDoesWithoutTemporaryTables) {
    const std::string where = msWHERE(suppliers, {70000, 70001, 4001, ClientKind::client}, oDBU);
    oDBU.answers[select(where)] = {row("change")};
    run("/autostart/mandant:123", 7);
    EXPECT_EQ(host.written.files.at(0).name, "Prot_Lieferanten_20261115_100715.csv");
    EXPECT_TRUE(std::ranges::none_of(
        oDBU.statements, [](const std::string& statement) { return statement.starts_with("execute:"); }));
}

TEST_F(PartnerExport, TellsHowFarItIs) {
    test::FakeParent parent;
    exporter.poParent = &parent;
    log({row("change"), row("creation", 0)});
    run();
    EXPECT_EQ(parent.calls, (std::vector<std::string>{"gRefresh", "gRefresh", "gSetFortschritt 0/2",
                                                      "gSetFortschritt 1/2"}));
}

}  // namespace
}  // namespace prot
