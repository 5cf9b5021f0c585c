#include "platform/windows/com/com_error.h"
#include "tests/com/client/server_test.h"

namespace prot::test {

namespace {

using Errors = ServerTest;

constexpr HRESULT code(unsigned number) { return static_cast<HRESULT>(0x800A0000U + number); }

const HostError lost = {code(3704), "Provider\r\nVerbindung", "Verbindung verloren: „Kurse“"};
const std::string stamp = PROT_STAMP "|srvprotqrbcsv|";

struct FailingStatement {
    const char* why;
    const char* piece;
    const char* procedures;  ///< that the error left on its way, behind the source
};
const FailingStatement failing_statements[] = {
    {"while the query is put together", log_table_query,
     "\r\nProtQRBCsvBas.gsMainSelect\r\nCProtDevCsv.gCSVAusgabe"},
    {"the query itself", main_query, "\r\nCProtDevCsv.gCSVAusgabe"},
    {"between the records", valid_from_query,
     "\r\nCProtDevCsv.mGetWaehrInfos\r\nCProtDevCsv.mbAusgabeCSV\r\nCProtDevCsv.gCSVAusgabe"},
};

void expect_error(const Outcome& seen, const HostError& expected, const std::string& source) {
    EXPECT_EQ(seen.number, expected.number);
    EXPECT_EQ(seen.source, source);
    EXPECT_EQ(seen.description, expected.description);
}

}  // namespace

TEST_F(Errors, OfADatabaseByInterfaceReachAClientOfEitherKindAlike) {
    for (const FailingStatement& row : failing_statements) {
        SCOPED_TRACE(row.why);
        InterfaceDatabase database;
        database.answers.fail_on(row.piece, lost);
        const std::string source = stamp + lost.source + row.procedures + "\r\nProtCsvClass.gCSVFile";
        const auto exporter = entry();
        const Outcome by_function = export_by_function(*exporter.borrow(), &database);
        EXPECT_EQ(by_function.result, lost.number);
        expect_error(by_function, lost, source);
        const Outcome by_name = export_by_name(*exporter.borrow(), &database);
        EXPECT_EQ(by_name.result, DISP_E_EXCEPTION);
        expect_error(by_name, lost, source);
        EXPECT_TRUE(folder.files().empty());
    }
}

TEST_F(Errors, OfADatabaseByNameReachTheClientHoweverTheyWereReported) {
    for (const Raise raise : {Raise::by_scode, Raise::by_code, Raise::deferred}) {
        SCOPED_TRACE(static_cast<int>(raise));
        NamedDatabase database;
        database.raise = raise;
        database.answers.fail_on(main_query, lost);
        const std::string source =
            stamp + lost.source + "\r\nCProtDevCsv.gCSVAusgabe\r\nProtCsvClass.gCSVFile";
        const auto exporter = entry();
        expect_error(export_by_function(*exporter.borrow(), &database), lost, source);
        expect_error(export_by_name(*exporter.borrow(), &database), lost, source);
    }
}

TEST_F(Errors, OfTheExporterOfTheRatesEndTheirSourceWithItsOwnProcedure) {
    NamedDatabase database;
    database.answers.fail_on(main_query, lost);
    const std::string source = stamp + lost.source + "\r\nCProtDevCsv.gCSVAusgabe";
    const auto exporter = rate_exporter();
    expect_error(export_by_function(*exporter.borrow(), &database), lost, source);
    expect_error(export_by_name(*exporter.borrow(), &database), lost, source);
}

TEST_F(Errors, ThatBearAStampKeepIt) {
    const HostError other = {code(5), "000200000001|srvanders|SQL Server", "Nicht erlaubt"};
    InterfaceDatabase database;
    database.answers.fail_on(main_query, other);
    expect_error(export_by_function(*entry().borrow(), &database), other,
                 other.source + "\r\nCProtDevCsv.gCSVAusgabe\r\nProtCsvClass.gCSVFile");
}

TEST_F(Errors, WithoutAnyTextGetTheSystemsAndTheServersName) {
    const HostError silent = {E_ACCESSDENIED, "", ""};
    NamedDatabase database;
    database.answers.fail_on(main_query, silent);
    const Outcome seen = export_by_function(*entry().borrow(), &database);
    EXPECT_EQ(seen.result, E_ACCESSDENIED);
    EXPECT_EQ(seen.description, system_text(E_ACCESSDENIED));
    EXPECT_EQ(seen.source, stamp + "srvProtQRBCsv\r\nCProtDevCsv.gCSVAusgabe\r\nProtCsvClass.gCSVFile");
}

TEST_F(Errors, AreVouchedForByTheObject) {
    const auto vouching = entry().query<ISupportErrorInfo>();
    ASSERT_TRUE(vouching);
    EXPECT_EQ(vouching->InterfaceSupportsErrorInfo(IID__ProtCsvClass), S_OK);
    EXPECT_EQ(vouching->InterfaceSupportsErrorInfo(IID__CProtDevCsv), S_FALSE);
    const auto other = rate_exporter().query<ISupportErrorInfo>();
    ASSERT_TRUE(other);
    EXPECT_EQ(other->InterfaceSupportsErrorInfo(IID__CProtDevCsv), S_OK);
    EXPECT_EQ(other->InterfaceSupportsErrorInfo(IID__ProtCsvClass), S_FALSE);
}

TEST_F(Errors, OfAnEarlierCallAreNotThoseOfALaterOne) {
    NamedDatabase failing, sound;
    failing.answers.fail_on(main_query, lost);
    const auto exporter = entry();
    EXPECT_EQ(export_by_name(*exporter.borrow(), &failing).result, DISP_E_EXCEPTION);
    const Outcome seen = export_by_name(*exporter.borrow(), &sound);
    EXPECT_EQ(seen.result, S_OK);
    EXPECT_EQ(seen.description, "");
    EXPECT_EQ(folder.only_file(), sample_file());
}

TEST_F(Errors, MissingMembersOfTheDatabaseAreNamedBeforeAnythingIsAsked) {
    NamedDatabase database;
    database.missing = {L"QueryArray", L"LikeWildcard"};
    const auto exporter = entry();
    for (const Outcome& seen :
         {export_by_function(*exporter.borrow(), &database), export_by_name(*exporter.borrow(), &database)}) {
        EXPECT_EQ(seen.number, code(438));
        EXPECT_NE(seen.description.find("QueryArray"), std::string::npos) << seen.description;
        EXPECT_NE(seen.description.find("LikeWildcard"), std::string::npos) << seen.description;
        EXPECT_EQ(seen.description.find("Execute"), std::string::npos) << seen.description;
        EXPECT_EQ(seen.source, stamp + "srvProtQRBCsv\r\nProtCsvClass.gCSVFile");
    }
    EXPECT_TRUE(database.answers.asked.empty());
}

TEST_F(Errors, NoDatabaseIsOneThatSaysSo) {
    const Outcome seen = export_by_function(*entry().borrow(), nullptr);
    EXPECT_EQ(seen.result, code(91));
    EXPECT_NE(seen.description.find("oDBU"), std::string::npos) << seen.description;
    EXPECT_EQ(seen.source, stamp + "srvProtQRBCsv\r\nProtCsvClass.gCSVFile");
    const Outcome direct = export_by_function(*rate_exporter().borrow(), nullptr);
    EXPECT_EQ(direct.result, code(91));
    EXPECT_EQ(direct.source, stamp + "srvProtQRBCsv\r\nCProtDevCsv.gCSVAusgabe");
}

TEST_F(Errors, AnUnknownSectionIsNoneAndAsksNothing) {
    NamedDatabase database;
    database.missing = {L"QueryValue"};
    NamedProgress progress;
    const auto exporter = entry();
    exporter->putref_poParent(&progress);
    for (const long section : {0L, -1L, 14L, 16L, 2147483647L}) {
        EXPECT_EQ(export_by_function(*exporter.borrow(), &database, section).result, S_OK);
        EXPECT_EQ(export_by_function(*exporter.borrow(), nullptr, section).result, S_OK);
    }
    EXPECT_TRUE(database.answers.asked.empty());
    EXPECT_TRUE(progress.calls.empty());
    EXPECT_TRUE(folder.files().empty());
    exporter->putref_poParent(nullptr);
}

TEST_F(Errors, AMissingMemberOfTheProgressObjectIsNamedAndLeavesNoFile) {
    for (const wchar_t* const member : {L"gRefresh", L"gSetFortschritt"}) {
        InterfaceDatabase database;
        NamedProgress progress;
        progress.missing = {member};
        const auto exporter = entry();
        exporter->putref_poParent(&progress);
        const Outcome seen = export_by_function(*exporter.borrow(), &database);
        EXPECT_EQ(seen.result, code(438));
        const Bstr name = Bstr::adopt(SysAllocString(member));
        EXPECT_NE(seen.description.find("poParent"), std::string::npos) << seen.description;
        EXPECT_NE(seen.description.find(name.text()), std::string::npos) << seen.description;
        EXPECT_TRUE(folder.files().empty());
        exporter->putref_poParent(nullptr);
    }
}

TEST_F(Errors, OfTheProgressObjectEndTheRunAndLeaveNoFile) {
    const HostError stopped = {static_cast<HRESULT>(0x80040200), "Host.Fortschritt",
                               "Abbruch durch den Anwender"};
    InterfaceDatabase database;
    NamedProgress progress;
    progress.on_progress = [&](long index) {
        if (index == 1) progress.failure = stopped;
    };
    const auto exporter = entry();
    exporter->putref_poParent(&progress);
    expect_error(export_by_function(*exporter.borrow(), &database), stopped,
                 stamp + stopped.source +
                     "\r\nCProtDevCsv.mbAusgabeCSV\r\nCProtDevCsv.gCSVAusgabe\r\nProtCsvClass.gCSVFile");
    EXPECT_EQ(progress.calls.back(), "gSetFortschritt 1/3");
    EXPECT_TRUE(folder.files().empty());
    exporter->putref_poParent(nullptr);
}

// The exporter outlives its runs; it kept the unfinished file until the next one.
TEST_F(Errors, TheExporterOfTheRatesLeavesNoUnfinishedFileEither) {
    InterfaceDatabase database;
    NamedProgress progress;
    progress.on_progress = [&](long index) {
        if (index == 1) progress.failure = HostError{code(5), "Host", "Angehalten"};
    };
    const auto exporter = rate_exporter();
    exporter->putref_poParent(&progress);
    EXPECT_EQ(export_by_function(*exporter.borrow(), &database).result, code(5));
    EXPECT_TRUE(folder.files().empty());
    exporter->putref_poParent(nullptr);
}

TEST_F(Errors, AnEventWithoutNameEndsTheRunAndLeavesNoFile) {
    InterfaceDatabase database;
    Table rows = sample_rows();
    rows[1][5] = std::int64_t{3};
    database.answers.on(main_query, rows);
    const Outcome seen = export_by_function(*entry().borrow(), &database);
    EXPECT_EQ(seen.result, code(9));
    EXPECT_EQ(seen.description, "Index außerhalb des gültigen Bereichs: Ereignis 3");
    EXPECT_TRUE(folder.files().empty());
}

}  // namespace prot::test
