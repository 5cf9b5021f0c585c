#include "platform/windows/system/system_names.h"
#include "tests/com/client/server_test.h"

namespace prot::test {

namespace {

/// Runs that would have to ask someone, where nobody is.
using WithoutPerson = ServerTest;

constexpr const char* count_query = "SELECT COUNT(*) FROM";

/// Whether windows of this process are on a desktop that a person sees. Wine says so of every desktop; there
/// it takes a display.
bool person_may_be_there() {
    USEROBJECTFLAGS flags = {};
    if (!GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags, nullptr) ||
        (flags.dwFlags & WSF_VISIBLE) == 0)
        return false;
    const bool wine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
    return !wine || !environment_text("DISPLAY").empty();
}

}  // namespace

TEST_F(WithoutPerson, ARunWithoutParameterTextIsAnErrorThatAsksForOne) {
    for (const char* const parameters : {"", "/vondevi:EUR"}) {
        InterfaceDatabase database;
        const Bstr given(parameters);
        const auto object = entry();
        object->put_psCommandline(given.borrow());
        const Outcome seen = export_by_function(*object.borrow(), &database);
        EXPECT_TRUE(FAILED(seen.result));
        EXPECT_NE(seen.description.find("Parametertext"), std::string::npos) << seen.description;
        EXPECT_EQ(seen.source, PROT_STAMP "|srvprotqrbcsv|srvProtQRBCsv\r\nProtCsvClass.gCSVFile");
        EXPECT_EQ(database.answers.asked.size(), 1U) << "Only the list of the form is read.";
        EXPECT_TRUE(folder.files().empty());
    }
}

TEST_F(WithoutPerson, ADeletionThatNobodyConfirmsIsAnErrorAndDeletesNothing) {
    if (person_may_be_there()) GTEST_SKIP() << "The question would wait for its answer on this desktop.";
    for (const int records : {0, 3}) {
        NamedDatabase database;
        database.answers.value_on(count_query, static_cast<std::int64_t>(records));
        const auto object = entry();
        object->put_pbLoeschen(VARIANT_TRUE);
        const Outcome seen = export_by_function(*object.borrow(), &database);
        EXPECT_TRUE(FAILED(seen.result));
        EXPECT_NE(seen.description.find("wurden"), std::string::npos) << seen.description;
        EXPECT_NE(seen.description.find("Desktop"), std::string::npos) << seen.description;
        EXPECT_EQ(database.answers.calls_of("Execute"), 0);
        EXPECT_NE(database.answers.asked.back().find(count_query), std::string::npos);
        EXPECT_TRUE(folder.files().empty());
    }
}

TEST_F(WithoutPerson, AFailureThatOnlyAPersonWouldReadIsAnErrorOfTheCall) {
    if (person_may_be_there()) GTEST_SKIP() << "The message box would wait for its answer on this desktop.";
    NamedDatabase database;
    database.answers.fail_on(currencies_query, {E_FAIL, "SQL Server", "Ungültiger Objektname"});
    const Outcome seen = export_by_function(*entry().borrow(), &database);
    EXPECT_TRUE(FAILED(seen.result));
    EXPECT_NE(seen.description.find("Ungültiger Objektname"), std::string::npos) << seen.description;
    EXPECT_TRUE(folder.files().empty());
}

TEST_F(WithoutPerson, TheNextRunOfTheSameObjectIsNoWorse) {
    InterfaceDatabase database;
    const Bstr nothing, autostart("/autostart");
    const auto exporter = rate_exporter();
    exporter->put_psCommandline(nothing.borrow());
    EXPECT_TRUE(FAILED(export_by_function(*exporter.borrow(), &database).result));
    exporter->put_psCommandline(autostart.borrow());
    EXPECT_EQ(export_by_function(*exporter.borrow(), &database).result, S_OK);
    EXPECT_EQ(folder.only_file(), sample_file(false));
}

}  // namespace prot::test
