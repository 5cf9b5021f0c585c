#include "sections/exchange_rates/CProtDevCsv.h"

#include <gtest/gtest.h>

#include "core/event_names.h"
#include "tests/unit/support/fakes.h"
#include "tests/unit/support/statements.h"

namespace prot {
namespace {

using test::FakeDatabase;
using test::FakeHost;
using test::FakeParent;
using test::Row;
using test::server_error;
using Lines = std::vector<std::vector<std::string>>;

constexpr const char* main_query =
    "SELECT idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser, "
    "dcApplication, "
    "dlPrimaryKey1, dlSuchId1,  dlSuchId2,  dlSuchId3,  dlSuchId4 FROM tProtokoll WHERE  ((dcTable = "
    "'TDEVISENKURS' "
    "AND dlSuchId2 IN (SELECT idDevisenWaehr FROM tDevisenWaehr  WHERE dcISOKennz BETWEEN 'EUR' AND 'USD')) "
    ") "
    "ORDER BY ddDatum";

const std::vector<std::string> header = {
    "ISO Währungscode", "Bezeichnung",       "Gültig ab",   "Datum der Änderung",
    "Mitarbeiter",      "Feld der Änderung", "Aktion",      "alter Wert",
    "neuer Wert",       "Arbeitsstation",    "Applikation", "Datenbankbenutzer"};
const std::vector<std::string> filter_line = {
    "Von ISO Währungscode: EUR bis ISO Währungscode: USD", "", "", "", "", "", "", "", "", "", "", ""};

Row log_row(std::int64_t event, const std::string& document, std::int64_t rate = 71) {
    return {std::int64_t{1000 + rate},
            std::string("TDEVISENKURS"),
            std::string("WS-07"),
            std::string("Müller"),
            to_date(CivilTime{2026, 3, 5, 14, 7, 9}),
            event,
            document,
            std::string("sa"),
            std::string("srvKurse"),
            std::int64_t{3000},
            rate,
            std::int64_t{9},
            std::int64_t{3003},
            std::int64_t{3004}};
}

class RateExport : public testing::Test {
protected:
    FakeHost host;
    FakeDatabase oDBU;
    FakeParent parent;
    exchange_rates::CProtDevCsv exporter{host.environment};
    Value para;

    RateExport() {
        fill_event_names();
        oDBU.answers["SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 15"] = {
            {std::string("tProtokoll")}};
        oDBU.answers["SELECT idDevisenWaehr, dcISOKennz FROM tDevisenWaehr ORDER BY dcISOKennz"] = {
            {std::int64_t{2}, std::string("EUR")}, {std::int64_t{9}, std::string("USD")}};
        oDBU.answers["SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr WHERE idDevisenWaehr = 9"] = {
            {std::string("USD"), std::string("US-Dollar")}};
        oDBU.answers["SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 71"] = {
            {to_date(CivilTime{2026, 1, 1})}};
        oDBU.answers[test::caption_statement("TDEVISENKURS", "dzKursEURGeld")] = {
            {std::string("Kurs EUR Geld")}};
        oDBU.answers[test::caption_statement("TDEVISENKURS", "dzKursFremdGeld")] = {
            {std::string("Kurs Fremdwährung Geld")}};
        host.documents["two"] = {{"dzKursEURGeld", "1,08", "1,09"},
                                 {"ddDatumAend", "a", "b"},
                                 {"dzKursFremdGeld", "NULL", "0,92"}};
        host.documents["created"] = {{"dzKursEURGeld", "", "1,05"}};
        host.documents["only technical"] = {{"ddDatumAend", "a", "b"}, {"flMitarbeiter", "1", "2"}};
    }
    void log(std::vector<Row> rows) { oDBU.answers[main_query] = std::move(rows); }
    void run(const std::string& parameters = {}) {
        exporter.psCommandline = parameters;
        exporter.gCSVAusgabe(oDBU, 15, "", {}, {}, 7, para);
    }
    AutomationError error_of_run() {
        try {
            run("/autostart");
        } catch (const AutomationError& error) {
            return error;
        }
        ADD_FAILURE() << "no error";
        return {0, "", ""};
    }
    const test::WrittenFiles::File& file() { return host.written.files.at(0); }
};

TEST_F(RateExport, WritesOneLineForEachChangedFieldWithACaption) {
    log({log_row(1, "two")});
    run();
    EXPECT_EQ(
        file().lines,
        (Lines{filter_line,
               header,
               {"USD", "US-Dollar", "01.01.2026", "05.03.2026 14:07:09", "Müller", "Kurs EUR Geld",
                "geändert", "1,08", "1,09", "WS-07", "srvKurse", "Standardbenutzer"},
               {"USD", "US-Dollar", "01.01.2026", "05.03.2026 14:07:09", "Müller", "Kurs Fremdwährung Geld",
                "geändert", "", "0,92", "WS-07", "srvKurse", "Standardbenutzer"}}));
    EXPECT_TRUE(file().closed);
}

TEST_F(RateExport, AnInteractiveRunAsksForTheFileAndShowsIt) {
    log({log_row(1, "two")});
    host.written.chosen_name = "mein.csv";
    run();
    EXPECT_TRUE(file().asked);
    EXPECT_TRUE(file().shown);
    EXPECT_EQ(exporter.gCSVFile, "mein.csv");
}

TEST_F(RateExport, ABatchRunStampsTheFileNameAndDoesNotAsk) {
    log({log_row(1, "two")});
    run("/autostart");
    EXPECT_EQ(file().name, "Prot_Devisenkurse_20261115_100715.csv");
    EXPECT_FALSE(file().asked);
    EXPECT_FALSE(file().shown);
}

TEST_F(RateExport, ATextThatIsNoBatchTextMakesTheRunInteractive) {
    log({log_row(1, "two")});
    run("/sektion:15");
    EXPECT_EQ(file().name, "Prot_Devisenkurse.csv");
    EXPECT_TRUE(file().asked);
}

TEST_F(RateExport, SendsEachLookupOnceInARun) {
    log({log_row(1, "two"), log_row(1, "two"), log_row(0, "created")});
    run();
    EXPECT_EQ(oDBU.statements,
              (std::vector<std::string>{
                  "array: SELECT idDevisenWaehr, dcISOKennz FROM tDevisenWaehr ORDER BY dcISOKennz",
                  "value: SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 15",
                  std::string("array: ") + main_query,
                  "array: SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr WHERE idDevisenWaehr = 9",
                  "array: SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 71",
                  "value: " + test::caption_statement("TDEVISENKURS", "dzKursEURGeld"),
                  "value: " + test::caption_statement("TDEVISENKURS", "dzKursFremdGeld")}));
}

TEST_F(RateExport, DescribesEachRecordByItsOwnCurrencyAndRate) {
    oDBU.answers["SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 72"] = {
        {to_date(CivilTime{2026, 2, 1})}};
    oDBU.answers["SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr WHERE idDevisenWaehr = 4"] = {
        {std::string("CHF"), std::string("Franken")}};
    Row other = log_row(0, "created", 72);
    other[11] = std::int64_t{4};
    log({log_row(0, "created"), other, log_row(0, "created")});
    run();
    Lines described;
    for (std::size_t i = 2; i < file().lines.size(); ++i)
        described.emplace_back(file().lines[i].begin(), file().lines[i].begin() + 3);
    EXPECT_EQ(described, (Lines{{"USD", "US-Dollar", "01.01.2026"},
                                {"CHF", "Franken", "01.02.2026"},
                                {"USD", "US-Dollar", "01.01.2026"}}));
}

TEST_F(RateExport, KeepsAnEmptyOldValueOfACreationAndWritesValuesAsLogged) {
    log({log_row(0, "created")});
    run();
    ASSERT_EQ(file().lines.size(), 3U);
    EXPECT_EQ(file().lines[2][6], "angelegt");
    EXPECT_EQ(file().lines[2][7], "");
    EXPECT_EQ(file().lines[2][8], "1,05");
}

TEST_F(RateExport, ARecordOfTechnicalFieldsOnlyHasNoLineAndNoNotice) {
    log({log_row(1, "only technical")});
    run();
    EXPECT_EQ(file().lines, (Lines{filter_line, header}));
    EXPECT_TRUE(host.fields_without_caption.empty());
}

TEST_F(RateExport, SuppressesEachTechnicalFieldEvenWhereItHasACaption) {
    for (const char* field :
         {"ddDatumAend", "flMitarbeiter", "idDevisenKurs", "flDevisenWaehr", "ddGueltigAb"}) {
        host.written.files.clear();
        oDBU.answers[test::caption_statement("TDEVISENKURS", field)] = {{std::string("Technisch")}};
        host.documents["field"] = {{field, "1", "2"}};
        log({log_row(1, "field")});
        run();
        EXPECT_EQ(file().lines, (Lines{filter_line, header})) << field;
    }
}

TEST_F(RateExport, SuppressesTechnicalFieldsOnlyInTheirExactLetterCase) {
    host.documents["case"] = {{"DDDATUMAEND", "a", "b"}};
    oDBU.answers[test::caption_statement("TDEVISENKURS", "DDDATUMAEND")] = {{std::string("Änderungsdatum")}};
    log({log_row(1, "case")});
    run();
    ASSERT_EQ(file().lines.size(), 3U);
    EXPECT_EQ(file().lines[2][5], "Änderungsdatum");
}

TEST_F(RateExport, NeverTranslatesTheRatesOwnKeyBecauseItIsSuppressed) {
    host.documents["key"] = {{"IDDEVISENKURS", "0", "9"}};
    oDBU.answers[test::caption_statement("TDEVISENKURS", "IDDEVISENKURS")] = {{std::string("Schlüssel")}};
    log({log_row(1, "key")});
    run();
    ASSERT_EQ(file().lines.size(), 3U);
    EXPECT_EQ(file().lines[2][7], "0") << "the comparison with the mixed-case name never holds";
    EXPECT_EQ(file().lines[2][8], "9");
}

TEST_F(RateExport, NamesADeletedCurrencyAndADeletedRateAsGone) {
    oDBU.answers.erase("SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr WHERE idDevisenWaehr = 9");
    oDBU.answers.erase("SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 71");
    log({log_row(2, "created")});
    run();
    EXPECT_EQ(file().lines.at(2)[0], "nicht vorhanden");
    EXPECT_EQ(file().lines.at(2)[1], "");
    EXPECT_EQ(file().lines.at(2)[2], "nicht vorhanden");
    EXPECT_EQ(file().lines.at(2)[6], "gelöscht");
}

TEST_F(RateExport, TellsFieldsWithoutCaptionAndDocumentsThatDoNotLoad) {
    host.documents["unknown"] = {{"dzNeu", "1", "2"}, {"dzKursEURGeld", "1", "2"}};
    log({log_row(1, "unknown"), log_row(1, "broken"), log_row(1, "")});
    run();
    EXPECT_EQ(file().lines.size(), 3U);
    EXPECT_EQ(host.fields_without_caption, std::vector<std::string>{"TDEVISENKURS.dzNeu"});
    EXPECT_EQ(host.unreadable, std::vector<std::int64_t>{1071}) << "an empty document is none";
}

TEST_F(RateExport, EmptyDocumentsNeedNoXmlReader) {
    log({log_row(1, "")});
    run();
    EXPECT_EQ(host.readers_created, 0);
}

TEST_F(RateExport, WritesARecordWithoutDateWithAnEmptyDate) {
    Row row = log_row(1, "created");
    row[4] = Value();
    log({row});
    run();
    EXPECT_EQ(file().lines.at(2)[3], "");
}

TEST_F(RateExport, ReportsProgressForEachRecordBeforeItIsProcessed) {
    log({log_row(1, "two"), log_row(1, "broken")});
    exporter.poParent = &parent;
    run();
    EXPECT_EQ(parent.calls, (std::vector<std::string>{"gRefresh", "gRefresh", "gSetFortschritt 0/2",
                                                      "gSetFortschritt 1/2"}));
}

TEST_F(RateExport, RunsUnchangedWithoutAParent) {
    log({log_row(1, "two")});
    run();
    EXPECT_EQ(file().lines.size(), 4U);
    EXPECT_TRUE(parent.calls.empty());
}

TEST_F(RateExport, ShowsTheHourglassWhileLinesAreWritten) {
    log({log_row(1, "two")});
    run();
    EXPECT_EQ(host.pointers, (std::vector<Pointer>{Pointer::standard, Pointer::standard, Pointer::hourglass,
                                                   Pointer::standard}));
}

TEST_F(RateExport, WithoutRowsAnInteractiveRunSaysSo) {
    run();
    EXPECT_TRUE(host.written.files.empty());
    ASSERT_EQ(host.boxes.size(), 1U);
    EXPECT_EQ(host.boxes[0],
              (test::ShownBox{"Keine Daten vorhanden!", BoxStyle::information, "Protokollierung"}));
}

TEST_F(RateExport, WithoutRowsABatchRunLeavesAFileThatSaysSo) {
    run("/sektion:15/autostart");
    EXPECT_EQ(file().lines, (Lines{{"Keine Daten vorhanden!", ""}, {"", ""}, {"sektion", ""}, {"15", ""}}));
    EXPECT_EQ(file().name, "Prot_Devisenkurse_20261115_100715.csv");
}

TEST_F(RateExport, EndsSilentlyWhenThePersonCancels) {
    log({log_row(1, "two")});
    host.written.cancel = true;
    run();
    EXPECT_TRUE(host.written.files.empty());
    host.person = [](Form& form) { form.cancel.click(); };
    oDBU.statements.clear();
    run();
    EXPECT_EQ(oDBU.statements.size(), 1U) << "nothing but the currencies was read";
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(RateExport, DeletionOpensNoFileEvenWhenRowsExist) {
    log({log_row(1, "two")});
    const std::string deletion =
        "DELETE tProtokoll WHERE  ((dcTable = 'TDEVISENKURS' AND dlSuchId2 IN (SELECT idDevisenWaehr FROM "
        "tDevisenWaehr  WHERE dcISOKennz BETWEEN 'EUR' AND 'USD')) )";
    std::string count = deletion;
    count.replace(0, 6, "SELECT COUNT(*) FROM");
    oDBU.answers[count] = {{std::int64_t{1}}};
    host.answer = BoxAnswer::yes;
    exporter.pbLoeschen = true;
    run("/autostart");
    EXPECT_TRUE(host.written.files.empty());
    EXPECT_EQ(oDBU.statements.back(), "execute: " + deletion);
    EXPECT_EQ(host.boxes.size(), 1U) << "asked in batch mode too";
}

TEST_F(RateExport, AnUnknownEventEndsTheExportWithAnError) {
    log({log_row(1, "two"), log_row(3, "two")});
    const AutomationError error = error_of_run();
    EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::index_out_of_range));
    EXPECT_EQ(error.source(), PROT_STAMP
              "|srvprotqrbcsv|srvProtQRBCsv\r\nCProtDevCsv.mbAusgabeCSV\r\nCProtDevCsv.gCSVAusgabe");
    EXPECT_FALSE(file().closed);
}

TEST_F(RateExport, BothLookupsReportUnderOneName) {
    log({log_row(1, "two")});
    oDBU.failures.emplace("SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 71", server_error("x"));
    EXPECT_EQ(error_of_run().source(), PROT_STAMP
              "|srvprotqrbcsv|Testserver\r\nCProtDevCsv.mGetWaehrInfos\r\nCProtDevCsv.mbAusgabeCSV\r\n"
              "CProtDevCsv.gCSVAusgabe");
}

TEST_F(RateExport, ReportsAMissingXmlReaderWithTheFailingCommand) {
    log({log_row(1, "two")});
    host.reader_failure = AutomationError(429, "COM", "Objekterstellung nicht möglich");
    EXPECT_EQ(error_of_run().description(),
              "Objekterstellung nicht möglich\r\nFehler beim Zugriff auf die srvZQXml.dll\r\n"
              "Set oXML = New srvZQXml.DOMSelectClass");
}

TEST_F(RateExport, ALostConnectionDoesNotPassForAShortFile) {
    log({log_row(1, "two")});
    oDBU.connection_failure = server_error("Verbindung verloren");
    EXPECT_EQ(error_of_run().description(), "Verbindung verloren");
    EXPECT_FALSE(file().closed);
}

TEST_F(RateExport, TheSearchKeysNeedNotBeNumbers) {
    Row row = log_row(1, "created");
    row[10] = std::string("71 ");
    row[11] = Value();
    log({row});
    run();
    EXPECT_EQ(file().lines.at(2)[0], "nicht vorhanden") << "no key counts as 0";
    EXPECT_EQ(file().lines.at(2)[2], "01.01.2026");
}

TEST_F(RateExport, AKeyOutside32BitsIsAnOverflow) {
    Row row = log_row(1, "created");
    row[11] = std::int64_t{2147483648};
    log({row});
    EXPECT_EQ(error_of_run().number(), static_cast<std::int32_t>(ErrorNumber::overflow));
}

TEST_F(RateExport, AResultWithTooFewColumnsIsAnErrorAndNeverReadBeyondItsEnd) {
    const struct {
        const char* statement;
        Row row;
        const char* description;
    } cases[] = {
        {main_query,
         {std::int64_t{1}, std::string("TDEVISENKURS")},
         "Das Abfrageergebnis hat 2 Spalten statt 14."},
        {"SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr WHERE idDevisenWaehr = 9",
         {std::string("USD")},
         "Das Abfrageergebnis hat 1 Spalte statt 2."},
        {"SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 71",
         {},
         "Das Abfrageergebnis hat 0 Spalten statt 1."},
    };
    for (const auto& [statement, row, description] : cases) {
        log({log_row(1, "two")});
        const auto answers = oDBU.answers;
        oDBU.answers[statement] = {row};
        EXPECT_EQ(error_of_run().description(), description) << statement;
        oDBU.answers = answers;
    }
}

/// The cell "Aktion" that a host gets which creates the exporter directly.
std::string event_without_entry_class() {
    FakeHost host;
    FakeDatabase oDBU;
    oDBU.answers["SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 15"] = {
        {std::string("tProtokoll")}};
    oDBU.answers["SELECT idDevisenWaehr, dcISOKennz FROM tDevisenWaehr ORDER BY dcISOKennz"] = {
        {std::int64_t{2}, std::string("EUR")}, {std::int64_t{9}, std::string("USD")}};
    oDBU.answers[test::caption_statement("TDEVISENKURS", "dzKursEURGeld")] = {{std::string("Kurs EUR Geld")}};
    host.documents["created"] = {{"dzKursEURGeld", "", "1,05"}};
    oDBU.answers[main_query] = {log_row(0, "created")};
    exchange_rates::CProtDevCsv exporter(host.environment);
    Value para;
    exporter.gCSVAusgabe(oDBU, 15, "", {}, {}, 7, para);
    return host.written.files.at(0).lines.at(2).at(6);
}

/// In a process of its own, in which the entry class never ran.
TEST(RateExportWithoutEntryClassDeathTest, HasEmptyEventNames) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::exit(event_without_entry_class().empty() ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST_F(RateExport, ARangeWithoutCurrenciesHasNoData) {
    host.person = [](Form& form) {
        form.fields[1].selected = 0;
        form.ok.click();
    };
    log({log_row(1, "two")});
    run();
    EXPECT_NE(oDBU.statements.back().find("BETWEEN 'EUR' AND 'EUR'"), std::string::npos);
    ASSERT_EQ(host.boxes.size(), 1U);
    EXPECT_EQ(host.boxes[0].text, "Keine Daten vorhanden!");
}

}  // namespace
}  // namespace prot
