#include <gtest/gtest.h>

#include "core/ProtQRBCsvBas.h"
#include "tests/unit/support/fakes.h"

namespace prot {
namespace {

using test::FakeDatabase;
using test::FakeHost;
using test::server_error;

const Date moment = to_date(CivilTime{2026, 3, 5, 14, 0, 0});

class ValueByDate : public testing::Test {
protected:
    FakeHost host;
    FakeDatabase oDBU;
    prot::Run run{host.environment, oDBU};

    const std::string later_change =
        "SELECT TOP 1 dmData FROM tProtokoll WHERE dcTable = 'TBANK' AND dlPrimaryKey1 = 7 AND ddDatum >= "
        "<05.03.2026 13:59:59> AND dmData LIKE '%Name=\"dcBLZ\"><OldValue>%' ORDER BY ddDatum ASC";
    const std::string live = "SELECT [dcBLZ] FROM [TBANK] WHERE [idBank] = 7";
    const std::string deletion =
        "SELECT TOP 1 dmData FROM tProtokoll WHERE dcTable = 'TBANK' AND dlPrimaryKey1 = 7 AND dlEvent = 2  "
        "AND "
        "dmData LIKE '%Name=\"dcBLZ\"><OldValue>%' ORDER BY ddDatum ASC";

    std::string value(Date at = moment, std::string_view key = "7") {
        return PROT_gsGetValueByDate("TBANK", "dcBLZ", "idBank", key, at, run);
    }
};

TEST_F(ValueByDate, AnUndefinedKeyNeedsNoQuery) {
    EXPECT_EQ(value(moment, "_UNDEFINIERT_"), "_UNDEFINIERT_");
    EXPECT_TRUE(oDBU.statements.empty());
}

TEST_F(ValueByDate, IsTheOldValueOfTheFirstChangeFromOneSecondBeforeTheMoment) {
    oDBU.answers[later_change] = {{std::string("doc")}};
    host.documents["doc"] = {{"dcName", "x", "y"}, {"dcBLZ", "10020030", "10020099"}};
    EXPECT_EQ(value(), "10020030");
    EXPECT_EQ(oDBU.statements, std::vector<std::string>{"value: " + later_change});
}

TEST_F(ValueByDate, KeepsTheTextNull) {
    oDBU.answers[later_change] = {{std::string("doc")}};
    host.documents["doc"] = {{"dcBLZ", "NULL", ""}};
    EXPECT_EQ(value(), "NULL");
}

TEST_F(ValueByDate, TakesAnEmptyOldValueOfACreation) {
    oDBU.answers[later_change] = {{std::string("doc")}};
    host.documents["doc"] = {{"dcBLZ", "", "10020099"}};
    EXPECT_EQ(value(), "");
}

TEST_F(ValueByDate, IsUndefinedWhenTheChangeDoesNotLoad) {
    oDBU.answers[later_change] = {{std::string("broken")}};
    EXPECT_EQ(value(), "_UNDEFINIERT_");
}

TEST_F(ValueByDate, IsTheLiveValueOfARowThatNeverChanged) {
    oDBU.answers[live] = {{std::int64_t{10020030}}};
    EXPECT_EQ(value(), "10020030");
    EXPECT_EQ(oDBU.statements, (std::vector<std::string>{"value: " + later_change, "array: " + live}));
    EXPECT_EQ(host.readers_created, 0);
}

TEST_F(ValueByDate, ReadsAnEmptyDocumentAsNoChange) {
    oDBU.answers[later_change] = {{std::string()}};
    oDBU.answers[live] = {{Value()}};
    EXPECT_EQ(value(), "") << "a null live value is the empty text";
    EXPECT_EQ(host.readers_created, 0);
}

TEST_F(ValueByDate, IsTheDeletionsOldValueOfARowDeletedSince) {
    oDBU.answers[deletion] = {{std::string("doc")}};
    host.documents["doc"] = {{"dcBLZ", "10020030", ""}};
    EXPECT_EQ(value(), "10020030");
    EXPECT_EQ(oDBU.statements,
              (std::vector<std::string>{"value: " + later_change, "array: " + live, "value: " + deletion}));
}

TEST_F(ValueByDate, IsUndefinedForADeletedRowWithoutDeletionRecord) { EXPECT_EQ(value(), "_UNDEFINIERT_"); }

TEST_F(ValueByDate, IsUndefinedWhenAQueryFails) {
    oDBU.failures.emplace(live, server_error("Tabelle fehlt"));
    EXPECT_EQ(value(), "_UNDEFINIERT_");
}

TEST_F(ValueByDate, TellsTheHostOfAFailureOnlyWhenTheKeyIsANumber) {
    class Failing : public FakeDatabase {
        Value query_value(std::string_view) override { throw server_error("Syntax"); }
    } failing;
    prot::Run failing_run{host.environment, failing};
    const struct {
        const char* key;
        bool is_told;
    } cases[] = {{"7", true},    {"-7", true},     {"7.5", true}, {"", false},  {"x", false},
                 {"7,5", false}, {"7.5.1", false}, {"-", false},  {".", false}, {"7 OR 1", false}};
    for (const auto& row : cases) {
        host.failed_lookups.clear();
        EXPECT_EQ(PROT_gsGetValueByDate("TBANK", "dcBLZ", "idBank", row.key, moment, failing_run),
                  "_UNDEFINIERT_");
        EXPECT_EQ(host.failed_lookups.size(), row.is_told ? 1U : 0U) << row.key;
    }
}

TEST_F(ValueByDate, IsUndefinedWhenTheLiveRowHasNoColumn) {
    oDBU.answers[live] = {{}};
    EXPECT_EQ(value(), "_UNDEFINIERT_");
    EXPECT_EQ(host.failed_lookups, std::vector<std::string>{"Das Abfrageergebnis hat 0 Spalten statt 1."});
}

TEST_F(ValueByDate, IsUndefinedWhenTheXmlReaderIsMissing) {
    oDBU.answers[later_change] = {{std::string("doc")}};
    host.reader_failure = AutomationError(429, "COM", "fehlt");
    EXPECT_EQ(value(), "_UNDEFINIERT_");
}

TEST_F(ValueByDate, AsksOnceForEqualLookups) {
    oDBU.answers[later_change] = {{std::string("doc")}};
    host.documents["doc"] = {{"dcBLZ", "1", "2"}};
    EXPECT_EQ(value(), "1");
    EXPECT_EQ(value(), "1");
    EXPECT_EQ(oDBU.statements.size(), 1U);
    value(add_seconds(moment, 1));
    EXPECT_GT(oDBU.statements.size(), 1U) << "an earlier change says nothing about a later moment";
}

TEST_F(ValueByDate, AnAnswerWithoutLaterChangeHoldsForEveryLaterMoment) {
    oDBU.answers[live] = {{std::string("live")}};
    value();
    oDBU.statements.clear();
    EXPECT_EQ(value(add_seconds(moment, 86400)), "live");
    EXPECT_TRUE(oDBU.statements.empty());
    value(add_seconds(moment, -1));
    EXPECT_FALSE(oDBU.statements.empty()) << "but not for an earlier one";
}

TEST_F(ValueByDate, ADeletionHoldsForEveryLaterMomentToo) {
    oDBU.answers[deletion] = {{std::string("doc")}};
    host.documents["doc"] = {{"dcBLZ", "10020030", ""}};
    value();
    oDBU.statements.clear();
    EXPECT_EQ(value(add_seconds(moment, 60)), "10020030");
    EXPECT_TRUE(oDBU.statements.empty());
}

TEST_F(ValueByDate, TellsRecordsTablesAndColumnsApartWithinARun) {
    const auto ask = [this](const char* table, const char* column, const char* key_column, const char* key) {
        return PROT_gsGetValueByDate(table, column, key_column, key, moment, run);
    };
    oDBU.answers[live] = {{std::string("BLZ von 7")}};
    oDBU.answers["SELECT [dcBLZ] FROM [TBANK] WHERE [idBank] = 8"] = {{std::string("BLZ von 8")}};
    oDBU.answers["SELECT [dcName] FROM [TBANK] WHERE [idBank] = 7"] = {{std::string("Name von 7")}};
    oDBU.answers["SELECT [dcBLZ] FROM [TBANK] WHERE [flKunde] = 7"] = {{std::string("BLZ des Kunden 7")}};
    oDBU.answers["SELECT [dcBLZ] FROM [TALT] WHERE [idBank] = 7"] = {{std::string("alte BLZ von 7")}};
    EXPECT_EQ(ask("TBANK", "dcBLZ", "idBank", "7"), "BLZ von 7");
    EXPECT_EQ(ask("TBANK", "dcBLZ", "idBank", "8"), "BLZ von 8");
    EXPECT_EQ(ask("TBANK", "dcName", "idBank", "7"), "Name von 7");
    EXPECT_EQ(ask("TBANK", "dcBLZ", "flKunde", "7"), "BLZ des Kunden 7");
    EXPECT_EQ(ask("TALT", "dcBLZ", "idBank", "7"), "alte BLZ von 7");
}

TEST_F(ValueByDate, AFailureIsNoAnswer) {
    oDBU.failures.emplace(live, server_error("Zeitüberschreitung"));
    value();
    oDBU.failures.clear();
    oDBU.answers[live] = {{std::string("live")}};
    EXPECT_EQ(value(), "live");
}

class FieldDescription : public ValueByDate {
protected:
    const std::string query =
        "SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON "
        "tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'TBANK' "
        "AND   "
        "tSysQuvoColumns.dcColumnName = 'dcBLZ'";
    std::string_view caption() { return PROT_gsGetFieldDescription("TBANK", "dcBLZ", run); }
};

TEST_F(FieldDescription, IsTheCaptionAndIsAskedOnce) {
    oDBU.answers[query] = {{std::string("Bankleitzahl")}};
    EXPECT_EQ(caption(), "Bankleitzahl");
    EXPECT_EQ(caption(), "Bankleitzahl");
    EXPECT_EQ(oDBU.statements, std::vector<std::string>{"value: " + query});
}

TEST_F(FieldDescription, BelongsToItsColumnInItsTable) {
    const auto query_for = [this](std::string table, std::string column) {
        std::string other = query;
        other.replace(other.find("TBANK"), 5, table);
        return other.replace(other.find("dcBLZ"), 5, column);
    };
    oDBU.answers[query] = {{std::string("Bankleitzahl")}};
    oDBU.answers[query_for("TKUNDE", "dcBLZ")] = {{std::string("BLZ des Kunden")}};
    oDBU.answers[query_for("TBANK", "dcBIC")] = {{std::string("BIC")}};
    EXPECT_EQ(caption(), "Bankleitzahl");
    EXPECT_EQ(PROT_gsGetFieldDescription("TKUNDE", "dcBLZ", run), "BLZ des Kunden");
    EXPECT_EQ(PROT_gsGetFieldDescription("TBANK", "dcBIC", run), "BIC");
}

TEST_F(FieldDescription, IsUndefinedForAnUnknownColumn) {
    EXPECT_EQ(caption(), "_UNDEFINIERT_");
    EXPECT_EQ(caption(), "_UNDEFINIERT_");
    EXPECT_EQ(oDBU.statements.size(), 1U);
}

TEST_F(FieldDescription, IsUndefinedWhenTheQueryFailsAndTheHostHearsOfIt) {
    oDBU.failures.emplace(query, server_error("Tabelle fehlt"));
    EXPECT_EQ(caption(), "_UNDEFINIERT_");
    EXPECT_EQ(host.failed_lookups, std::vector<std::string>{"Tabelle fehlt"});
}

class UserInfo : public ValueByDate {
protected:
    std::pair<std::string, std::string> info(std::string user, std::string database_user) {
        PROT_gGetUserInfo(user, database_user, run);
        return {user, database_user};
    }
};

TEST_F(UserInfo, TranslatesBothUserColumns) {
    const struct {
        const char *user, *database_user, *shown_user, *shown_database_user, *why;
    } rows[] = {
        {"Müller", "sa", "Müller", "Standardbenutzer", "a login hides the database login"},
        {"_UNBEKANNT_7", "sa", "ohne Anmeldung an SRV-SQL01", "sa", "no login"},
        {"_UNBEKANNT_", "sa", "ohne Anmeldung an SRV-SQL01", "sa", "nothing behind the prefix"},
        {"_UNBEKANNT_7", "QUVOsqldbserver", "ohne Anmeldung an SRV-SQL01", "Standardbenutzer",
         "the server's own login, without letter case"},
        {"x_UNBEKANNT_", "sa", "x_UNBEKANNT_", "Standardbenutzer", "not at the start"},
        {"_unbekannt_7", "sa", "_unbekannt_7", "Standardbenutzer", "letter case counts"},
        {"", "", "", "Standardbenutzer", "no user at all"},
    };
    for (const auto& row : rows) {
        const auto shown = info(row.user, row.database_user);
        EXPECT_EQ(shown.first, row.shown_user) << row.why;
        EXPECT_EQ(shown.second, row.shown_database_user) << row.why;
    }
    EXPECT_EQ(host.connection_codes, std::vector<int>{1206}) << "asked once in a run";
}

TEST_F(UserInfo, RaisesAnErrorWithItsName) {
    host.connection_information_failure = server_error("Dienst fehlt");
    try {
        info("_UNBEKANNT_7", "sa");
        FAIL();
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.source(), PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtQRBCsvBas.PROT_gGetUserInfo");
    }
}

TEST(XmlValue, RaisesAnErrorWithItsName) {
    struct BrokenReader : test::FakeDocumentReader {
        using FakeDocumentReader::FakeDocumentReader;
        std::string_view part(std::int32_t, ColumnPart) override { throw server_error("kaputt"); }
    };
    const test::FakeDocumentReader::Documents none;
    BrokenReader oXML(none);
    try {
        gsXMLGetValue(oXML, 0, ColumnPart::name);
        FAIL();
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.source(), PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtQRBCsvBas.gsXMLGetValue");
    }
}

TEST(XmlValue, ReadsTheTextNullAsEmpty) {
    const test::FakeDocumentReader::Documents documents = {{"doc", {{"a", "NULL", "null"}}}};
    test::FakeDocumentReader oXML(documents);
    oXML.load("doc");
    EXPECT_EQ(gsXMLGetValue(oXML, 0, ColumnPart::old_value), "");
    EXPECT_EQ(gsXMLGetValue(oXML, 0, ColumnPart::new_value), "null");
}

}  // namespace
}  // namespace prot
