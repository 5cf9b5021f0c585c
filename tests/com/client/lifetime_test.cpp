#include "tests/com/client/server_test.h"

namespace prot::test {

namespace {

using Lifetime = ServerTest;

const HostError lost = {static_cast<HRESULT>(0x80040E31), "SQL Server", "Zeitüberschreitung"};

struct Way {
    const char* why;
    long section;
    const char* failing;  // piece of a statement; null: none
};
const Way ways[] = {
    {"a run that succeeds", 15, nullptr},
    {"a run that fails at its first procedure", 15, log_table_query},
    {"a run that fails between the records", 15, valid_from_query},
    {"a section without exporter", 99, nullptr},
};

}  // namespace

TEST_F(Lifetime, EachCallGivesTheHostsObjectsBack) {
    for (const Way& way : ways) {
        SCOPED_TRACE(way.why);
        InterfaceDatabase by_interface;
        NamedDatabase by_name;
        NamedProgress progress;
        if (way.failing) by_interface.answers.fail_on(way.failing, lost);
        if (way.failing) by_name.answers.fail_on(way.failing, lost);
        auto object = entry();
        auto exporter = rate_exporter();
        object->putref_poParent(&progress);
        exporter->putref_poParent(&progress);
        const ULONG held = progress.references();
        EXPECT_EQ(held, 3U);
        for (IDispatch* const database :
             {static_cast<IDispatch*>(&by_interface), static_cast<IDispatch*>(&by_name)}) {
            export_by_function(*object.borrow(), database, way.section);
            export_by_function(*exporter.borrow(), database, way.section);
        }
        EXPECT_EQ(by_interface.references(), 1U);
        EXPECT_EQ(by_name.references(), 1U);
        EXPECT_EQ(progress.references(), held);
        EXPECT_EQ(object.release()->Release(), 0U);
        EXPECT_EQ(exporter.release()->Release(), 0U);
        EXPECT_EQ(progress.references(), 1U);
    }
}

TEST_F(Lifetime, ACallByNameGivesTheHostsObjectsBackToo) {
    for (const char* const failing : {"no statement", log_table_query}) {
        NamedDatabase database;
        NamedProgress progress;
        database.answers.fail_on(failing, lost);
        const auto exporter = entry();
        put(*exporter.borrow(), L"poParent", object(&progress), DISPATCH_PROPERTYPUTREF);
        export_by_name(*exporter.borrow(), &database);
        EXPECT_EQ(database.references(), 1U);
        EXPECT_EQ(progress.references(), 2U);
        put(*exporter.borrow(), L"poParent", object(nullptr), DISPATCH_PROPERTYPUTREF);
        EXPECT_EQ(progress.references(), 1U);
    }
}

TEST_F(Lifetime, ReadingTheProgressObjectGivesAReferenceOfItsOwn) {
    NamedProgress progress;
    const auto object = entry();
    object->putref_poParent(&progress);
    IDispatch* read = nullptr;
    EXPECT_EQ(object->get_poParent(&read), S_OK);
    EXPECT_EQ(read, &progress);
    EXPECT_EQ(progress.references(), 3U);
    read->Release();
    object->put_poParent(nullptr);
    EXPECT_EQ(progress.references(), 1U);
    EXPECT_EQ(object->get_poParent(&read), S_OK);
    EXPECT_EQ(read, nullptr);
}

TEST_F(Lifetime, AnObjectKeepsTheLibrary) {
    EXPECT_EQ(server.can_unload_now(), S_OK);
    for (const CLSID& class_id : {CLSID_ProtCsvClass, CLSID_CProtDevCsv}) {
        auto object = server.create<IDispatch>(class_id);
        EXPECT_EQ(server.can_unload_now(), S_FALSE);
        EXPECT_EQ(object.release()->Release(), 0U);
        EXPECT_EQ(server.can_unload_now(), S_OK);
    }
}

TEST_F(Lifetime, AClassFactoryKeepsTheLibrary) {
    auto factory = server.factory(CLSID_CProtDevCsv);
    EXPECT_EQ(server.can_unload_now(), S_FALSE);
    EXPECT_EQ(factory.release()->Release(), 0U);
    EXPECT_EQ(server.can_unload_now(), S_OK);
}

TEST_F(Lifetime, AFactoryThatDoesNotHaveTheInterfaceIsNotLeftBehind) {
    void* found = this;
    EXPECT_EQ(server.get_class_object(CLSID_ProtCsvClass, IID_IDispatch, &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(server.can_unload_now(), S_OK);
    EXPECT_EQ(server.factory(CLSID_ProtCsvClass)->CreateInstance(nullptr, IID_IClassFactory, &found),
              E_NOINTERFACE);
    EXPECT_EQ(server.can_unload_now(), S_OK);
}

TEST_F(Lifetime, ALockKeepsTheLibraryAsOftenAsItWasTaken) {
    const auto lock = [this](BOOL locked) { return server.factory(CLSID_ProtCsvClass)->LockServer(locked); };
    EXPECT_EQ(lock(TRUE), S_OK);
    EXPECT_EQ(lock(TRUE), S_OK);
    EXPECT_EQ(lock(FALSE), S_OK);
    EXPECT_EQ(server.can_unload_now(), S_FALSE);
    EXPECT_EQ(lock(FALSE), S_OK);
    EXPECT_EQ(server.can_unload_now(), S_OK);
}

TEST_F(Lifetime, TheLibraryComesAndGoesAndWorksEachTime) {
    for (int round = 0; round < 3; ++round) {
        ServerDll another;
        EXPECT_TRUE(server.unload() == false) << "Two hold it, and one has let go.";
        {
            NamedDatabase database;
            const Bstr autostart("/autostart");
            const auto exporter = another.create<_CProtDevCsv>(CLSID_CProtDevCsv);
            exporter->put_psCommandline(autostart.borrow());
            const OutputFolder own;
            EXPECT_EQ(export_by_function(*exporter.borrow(), &database).result, S_OK);
            EXPECT_EQ(own.only_file(), sample_file(false)) << "A fresh library knows no event names.";
        }
        EXPECT_EQ(another.can_unload_now(), S_OK);
        EXPECT_TRUE(another.unload());
        server.load();
    }
}

}  // namespace prot::test
