#include "platform/windows/text/wide_text.h"
#include "tests/com/client/server_test.h"

namespace prot::test {

namespace {

using VtableClient = ServerTest;

/// "Prot_Devisenkurse_20260401_021500.csv"
bool is_batch_name(const std::string& name) {
    const std::string pattern = "Prot_Devisenkurse_00000000_000000.csv";
    if (name.size() != pattern.size()) return false;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const bool digit = name[i] >= '0' && name[i] <= '9';
        if (pattern[i] == '0' ? !digit : name[i] != pattern[i]) return false;
    }
    return true;
}

const char* const statements_of_the_sample[] = {
    "QueryArray: SELECT idDevisenWaehr, dcISOKennz FROM tDevisenWaehr ORDER BY dcISOKennz",
    "QueryValue: SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 15",
    "QueryArray: SELECT idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser, "
    "dcApplication, dlPrimaryKey1, dlSuchId1,  dlSuchId2,  dlSuchId3,  dlSuchId4 FROM tProtokoll WHERE  "
    "((dcTable "
    "= 'TDEVISENKURS' AND dlSuchId2 IN (SELECT idDevisenWaehr FROM tDevisenWaehr  WHERE dcISOKennz BETWEEN "
    "'CHF' "
    "AND 'USD')) ) ORDER BY ddDatum",
    "QueryArray: SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr WHERE idDevisenWaehr = 1",
    "QueryArray: SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 10",
    "QueryValue: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON "
    "tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = "
    "'TDEVISENKURS' "
    "AND   tSysQuvoColumns.dcColumnName = 'dzKursEURGeld'",
    "QueryArray: SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr WHERE idDevisenWaehr = 2",
    "QueryArray: SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 11",
    "QueryArray: SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 99",
};

}  // namespace

TEST_F(VtableClient, ExportsThroughADatabaseThatHasItsMembersByInterfaceAlone) {
    InterfaceDatabase database;
    EXPECT_EQ(export_by_function(*entry().borrow(), &database).result, S_OK);
    EXPECT_EQ(folder.only_file(), sample_file());
    EXPECT_TRUE(is_batch_name(folder.files().at(0))) << folder.files().at(0);
    EXPECT_EQ(database.answers.asked, std::vector<std::string>(std::begin(statements_of_the_sample),
                                                               std::end(statements_of_the_sample)));
}

TEST_F(VtableClient, ExportsThroughADatabaseThatHasItsMembersByNameAlone) {
    NamedDatabase database;
    EXPECT_EQ(export_by_function(*entry().borrow(), &database).result, S_OK);
    EXPECT_EQ(folder.only_file(), sample_file());
    EXPECT_EQ(database.answers.asked, std::vector<std::string>(std::begin(statements_of_the_sample),
                                                               std::end(statements_of_the_sample)));
}

TEST_F(VtableClient, TheExporterOfTheRatesWritesTheSameFileAndTellsItsName) {
    NamedDatabase database;
    EXPECT_EQ(export_by_function(*entry().borrow(), nullptr, 99).result, S_OK);  // names the events
    const auto exporter = rate_exporter();
    EXPECT_EQ(export_by_function(*exporter.borrow(), &database).result, S_OK);
    EXPECT_EQ(folder.only_file(), sample_file());
    Bstr name;
    EXPECT_EQ(exporter->get_gCSVFile(name.receive()), S_OK);
    EXPECT_EQ(name.text(), folder.files().at(0));
}

TEST_F(VtableClient, TheExporterOfTheRatesKnowsNoEventNamesBeforeTheEntryClassHasRun) {
    NamedDatabase database;
    EXPECT_EQ(export_by_function(*rate_exporter().borrow(), &database).result, S_OK);
    EXPECT_EQ(folder.only_file(), sample_file(false));
}

TEST_F(VtableClient, UserDatesAndEventsNarrowTheQuery) {
    InterfaceDatabase database;
    const Bstr user("Müller");
    EXPECT_EQ(entry()->gCSVAusgabe(&database, 15, user.borrow(), 45658, 45688.5, 5, nullptr), S_OK);
    EXPECT_NE(database.answers.asked.at(2).find("WHERE dcUser = 'Müller' AND ddDatum >= '45658' AND ddDatum "
                                                "<= '45689' AND  dlEvent IN(0, 2) AND "),
              std::string::npos)
        << database.answers.asked.at(2);
}

TEST_F(VtableClient, AHostWithoutConnectionInformationGetsTheNameOfThisComputer) {
    InterfaceDatabase database;
    database.has_connection_info = false;
    EXPECT_EQ(export_by_function(*entry().borrow(), &database).result, S_OK);
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    ASSERT_TRUE(GetComputerNameW(name, &size));
    EXPECT_NE(folder.only_file().find(";ohne Anmeldung an " + to_utf8(name) + ";"), std::string::npos)
        << folder.only_file();
}

TEST_F(VtableClient, TheSpareArgumentComesBackAsItWas) {
    InterfaceDatabase database;
    VARIANT spare = number(4711);
    EXPECT_EQ(entry()->gCSVAusgabe(&database, 15, nullptr, 0, 0, 7, &spare), S_OK);
    EXPECT_EQ(spare.vt, VT_I4);
    EXPECT_EQ(spare.lVal, 4711);
}

TEST_F(VtableClient, TheProgressObjectHearsOfEachRecordAndOfTheLastUpperBound) {
    InterfaceDatabase database;
    NamedProgress progress;
    const auto object = entry();
    EXPECT_EQ(object->putref_poParent(&progress), S_OK);
    EXPECT_EQ(export_by_function(*object.borrow(), &database).result, S_OK);
    EXPECT_EQ(progress.calls, (std::vector<std::string>{"gRefresh", "gRefresh", "gSetFortschritt 0/3",
                                                        "gSetFortschritt 1/3", "gSetFortschritt 2/3"}));
    EXPECT_EQ(object->putref_poParent(nullptr), S_OK);
}

TEST_F(VtableClient, ARunWithoutRecordsWritesAFileThatSaysSo) {
    InterfaceDatabase database;
    database.answers.on(main_query, Table());
    EXPECT_EQ(export_by_function(*entry().borrow(), &database).result, S_OK);
    EXPECT_EQ(folder.only_file(), "\xEF\xBB\xBFKeine Daten vorhanden!\r\n\r\n\r\n\r\n");
}

TEST_F(VtableClient, AClassOfAnotherLibraryIsNotAvailable) {
    void* found = this;
    EXPECT_EQ(server.get_class_object(LIBID_srvProtQRBCsv, IID_IClassFactory, &found),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(found, nullptr);
}

TEST_F(VtableClient, ObjectsCannotBeAggregated) {
    NamedDatabase outer;
    void* found = this;
    EXPECT_EQ(server.factory(CLSID_ProtCsvClass)->CreateInstance(&outer, IID_IUnknown, &found),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(found, nullptr);
}

TEST_F(VtableClient, TheTwoClassesDoNotHaveEachOthersInterface) {
    void* found = this;
    EXPECT_EQ(entry()->QueryInterface(IID__CProtDevCsv, &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
    found = this;
    EXPECT_EQ(rate_exporter()->QueryInterface(IID__ProtCsvClass, &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
}

TEST_F(VtableClient, AnObjectIsTheSameUnknownByAllItsInterfaces) {
    const auto object = entry();
    const auto unknown = object.query<IUnknown>();
    EXPECT_EQ(object.query<IDispatch>().query<IUnknown>().borrow(), unknown.borrow());
    EXPECT_EQ(object.query<ISupportErrorInfo>().query<IUnknown>().borrow(), unknown.borrow());
}

TEST_F(VtableClient, NullPointersAreErrors) {
    const auto object = entry();
    const auto exporter = rate_exporter();
    const auto factory = server.factory(CLSID_ProtCsvClass);
    EXPECT_EQ(object->get_poParent(nullptr), E_POINTER);
    EXPECT_EQ(exporter->get_poParent(nullptr), E_POINTER);
    EXPECT_EQ(exporter->get_gCSVFile(nullptr), E_POINTER);
    EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(factory->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(server.get_class_object(CLSID_ProtCsvClass, IID_IClassFactory, nullptr), E_POINTER);
}

}  // namespace prot::test
