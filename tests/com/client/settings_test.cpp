#include "tests/com/client/server_test.h"

namespace prot::test {

namespace {
using Settings = ServerTest;
using Reentrancy = ServerTest;
}  // namespace

TEST_F(Settings, StayForTheNextCallsOfTheSameObject) {
    NamedProgress progress;
    const auto first = entry();
    const auto second = rate_exporter();
    first->putref_poParent(&progress);
    second->putref_poParent(&progress);
    for (int round = 0; round < 3; ++round) {
        InterfaceDatabase database;
        EXPECT_EQ(export_by_function(*first.borrow(), &database).result, S_OK);
        EXPECT_EQ(folder.only_file(), sample_file());
        folder.remove_files();
        EXPECT_EQ(export_by_function(*second.borrow(), &database).result, S_OK);
        EXPECT_EQ(folder.only_file(), sample_file());
        folder.remove_files();
    }
    EXPECT_EQ(progress.calls.size(), 30U);
    first->putref_poParent(nullptr);
    second->putref_poParent(nullptr);
}

TEST_F(Settings, StayBehindAnError) {
    InterfaceDatabase failing, sound;
    NamedProgress progress;
    failing.answers.fail_on(valid_from_query, {E_FAIL, "SQL Server", "Fehler"});
    const auto exporter = rate_exporter();
    exporter->putref_poParent(&progress);
    EXPECT_EQ(export_by_function(*exporter.borrow(), nullptr, 99).number, static_cast<HRESULT>(0x800A005B));
    EXPECT_EQ(export_by_function(*exporter.borrow(), &failing).result, E_FAIL);
    progress.calls.clear();
    EXPECT_EQ(export_by_function(*exporter.borrow(), &sound).result, S_OK);
    EXPECT_EQ(progress.calls.size(), 5U);
    EXPECT_EQ(folder.only_file(), sample_file(false));
    exporter->putref_poParent(nullptr);
}

TEST_F(Settings, AreEachObjectsOwn) {
    NamedProgress progress;
    const auto first = entry();
    const auto second = entry();
    first->putref_poParent(&progress);
    first->put_pbLoeschen(VARIANT_TRUE);
    const Bstr range("/autostart/vondevi:EUR/bisdevi:EUR");
    first->put_psCommandline(range.borrow());
    IDispatch* read = &progress;
    EXPECT_EQ(second->get_poParent(&read), S_OK);
    EXPECT_EQ(read, nullptr);
    InterfaceDatabase database;
    EXPECT_EQ(export_by_function(*second.borrow(), &database).result, S_OK);
    EXPECT_EQ(folder.only_file(), sample_file());
    EXPECT_TRUE(progress.calls.empty());
    first->putref_poParent(nullptr);
}

TEST_F(Settings, ChangesShowInTheNextCall) {
    const auto exporter = entry();
    InterfaceDatabase first, second;
    first.answers.on(main_query, Table());
    second.answers.on(main_query, Table());
    EXPECT_EQ(export_by_function(*exporter.borrow(), &first).result, S_OK);
    const Bstr range("/autostart/vondevi:EUR");
    exporter->put_psCommandline(range.borrow());
    EXPECT_EQ(export_by_function(*exporter.borrow(), &second).result, S_OK);
    EXPECT_NE(first.answers.asked.at(2).find("BETWEEN 'CHF' AND 'USD'"), std::string::npos);
    EXPECT_NE(second.answers.asked.at(2).find("BETWEEN 'EUR' AND 'USD'"), std::string::npos);
}

TEST_F(Reentrancy, AProgressObjectMayRunAnotherExport) {
    InterfaceDatabase outer_database, inner_database;
    NamedProgress progress;
    const auto outer = entry();
    const auto inner = entry();
    std::string inner_file;
    progress.on_progress = [&](long index) {
        if (index != 1) return;
        const OutputFolder own;
        EXPECT_EQ(export_by_function(*inner.borrow(), &inner_database).result, S_OK);
        inner_file = own.only_file();
    };
    outer->putref_poParent(&progress);
    EXPECT_EQ(export_by_function(*outer.borrow(), &outer_database).result, S_OK);
    EXPECT_EQ(inner_file, sample_file());
    EXPECT_EQ(folder.only_file(), sample_file());
    outer->putref_poParent(nullptr);
}

TEST_F(Reentrancy, AnEntryObjectMayRunAgainFromItsOwnProgress) {
    InterfaceDatabase database;
    NamedProgress progress;
    const auto exporter = entry();
    std::string inner_file;
    progress.on_progress = [&](long index) {
        if (index != 2 || !inner_file.empty()) return;
        inner_file = "begun";
        const OutputFolder own;
        EXPECT_EQ(export_by_function(*exporter.borrow(), &database).result, S_OK);
        inner_file = own.only_file();
    };
    exporter->putref_poParent(&progress);
    EXPECT_EQ(export_by_function(*exporter.borrow(), &database).result, S_OK);
    EXPECT_EQ(inner_file, sample_file());
    EXPECT_EQ(folder.only_file(), sample_file());
    exporter->putref_poParent(nullptr);
}

TEST_F(Reentrancy, TheExporterOfTheRatesRefusesASecondRunAndFinishesTheFirst) {
    InterfaceDatabase database;
    NamedProgress progress;
    const auto exporter = rate_exporter();
    Outcome second;
    progress.on_progress = [&](long index) {
        if (index == 0) second = export_by_function(*exporter.borrow(), &database);
    };
    exporter->putref_poParent(&progress);
    EXPECT_EQ(export_by_function(*exporter.borrow(), &database).result, S_OK);
    EXPECT_TRUE(FAILED(second.result));
    EXPECT_EQ(second.source, PROT_STAMP "|srvprotqrbcsv|srvProtQRBCsv\r\nCProtDevCsv.gCSVAusgabe");
    EXPECT_FALSE(second.description.empty());
    EXPECT_EQ(folder.only_file(), sample_file(false));
    EXPECT_EQ(progress.calls.size(), 5U);
    exporter->putref_poParent(nullptr);
}

TEST_F(Reentrancy, ARunKeepsTheParametersThatItBeganWith) {
    InterfaceDatabase database;
    NamedProgress progress;
    const auto exporter = rate_exporter();
    // Without parameters the run would show its file to a person.
    progress.on_progress = [&](long) { exporter->put_psCommandline(nullptr); };
    exporter->putref_poParent(&progress);
    EXPECT_EQ(export_by_function(*exporter.borrow(), &database).result, S_OK);
    EXPECT_EQ(folder.only_file(), sample_file(false));
    exporter->putref_poParent(nullptr);
}

TEST_F(Reentrancy, ARunKeepsTheProgressObjectThatItBeganWith) {
    for (const bool by_entry : {true, false}) {
        InterfaceDatabase database;
        NamedProgress first, second;
        const auto object = by_entry ? entry().query<IDispatch>() : rate_exporter().query<IDispatch>();
        first.on_progress = [&](long) {
            put(*object.borrow(), L"poParent", prot::test::object(&second), DISPATCH_PROPERTYPUTREF);
        };
        put(*object.borrow(), L"poParent", prot::test::object(&first), DISPATCH_PROPERTYPUTREF);
        const OutputFolder own;
        EXPECT_EQ(export_by_name(*object.borrow(), &database).result, S_OK);
        EXPECT_EQ(own.only_file(), sample_file());
        EXPECT_EQ(first.calls.size(), 5U);
        EXPECT_TRUE(second.calls.empty());
        EXPECT_EQ(first.references(), 1U);
        put(*object.borrow(), L"poParent", null());
    }
}

TEST_F(Reentrancy, TheLastReferenceMayGoWhileTheObjectRuns) {
    for (const CLSID& class_id : {CLSID_ProtCsvClass, CLSID_CProtDevCsv}) {
        InterfaceDatabase database;
        NamedProgress progress;
        auto object =
            class_id == CLSID_ProtCsvClass ? entry().query<IDispatch>() : rate_exporter().query<IDispatch>();
        put(*object.borrow(), L"poParent", prot::test::object(&progress), DISPATCH_PROPERTYPUTREF);
        IDispatch* const raw = object.release();
        bool released = false;
        progress.on_progress = [&](long) {
            if (!std::exchange(released, true)) raw->Release();
        };
        const OutputFolder own;
        EXPECT_EQ(export_by_name(*raw, &database).result, S_OK);
        EXPECT_EQ(own.only_file(), sample_file());
        EXPECT_EQ(progress.references(), 1U);
        EXPECT_EQ(database.references(), 1U);
        EXPECT_EQ(server.can_unload_now(), S_OK);
    }
}

}  // namespace prot::test
