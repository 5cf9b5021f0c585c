#include <cwchar>

#include "tests/com/client/server_test.h"

namespace prot::test {

namespace {

using LateBinding = ServerTest;

struct Name {
    const wchar_t* name;
    DISPID id;  ///< DISPID_UNKNOWN: no member of that name
    const char* why;
};
const Name names[] = {
    {L"poParent", 1, "as declared"},
    {L"POPARENT", 1, "in capitals"},
    {L"pbloeschen", 2, "in small letters"},
    {L"psCommandLine", 3, "as some write it"},
    {L"gCSVAusgabe", 4, "as declared"},
    {L"gcsvausgabe", 4, "in small letters"},
    {L"gCSVFile", DISPID_UNKNOWN, "a member of the other class only"},
    {L"", DISPID_UNKNOWN, "no name"},
};

/// The export arguments with one of them replaced.
std::vector<VARIANT> with(VARIANT database, std::size_t position, VARIANT value) {
    auto arguments = export_arguments(database);
    arguments.at(position) = value;
    return arguments;
}

}  // namespace

TEST_F(LateBinding, FindsMembersWhateverTheCaseOfTheirNames) {
    const auto exporter = entry();
    for (const Name& row : names) {
        SCOPED_TRACE(row.why);
        auto name = const_cast<LPOLESTR>(row.name);
        DISPID id = 0;
        const HRESULT result = exporter->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
        EXPECT_EQ(id, row.id);
        EXPECT_EQ(result, row.id == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK);
    }
    EXPECT_EQ(id_of(*rate_exporter().borrow(), L"gcsvfile"), 5);
}

TEST_F(LateBinding, FindsTheNamesOfArguments) {
    const wchar_t* asked[] = {L"gCSVAusgabe", L"vPara", L"ODBU", L"lSection", L"keins"};
    DISPID ids[5] = {};
    EXPECT_EQ(entry()->GetIDsOfNames(IID_NULL, const_cast<LPOLESTR*>(asked), 5, LOCALE_USER_DEFAULT, ids),
              DISP_E_UNKNOWNNAME);
    EXPECT_EQ(std::vector<DISPID>(ids, ids + 5), (std::vector<DISPID>{4, 6, 0, 1, DISPID_UNKNOWN}));
}

TEST_F(LateBinding, HasOneTypeInformation) {
    const auto exporter = entry();
    UINT count = 0;
    EXPECT_EQ(exporter->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1U);
    ComPtr<ITypeInfo> information;
    EXPECT_EQ(exporter->GetTypeInfo(1, LOCALE_USER_DEFAULT, information.receive()), DISP_E_BADINDEX);
    EXPECT_FALSE(information);
    EXPECT_EQ(exporter->GetTypeInfo(0, LOCALE_USER_DEFAULT, information.receive()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(information->GetTypeAttr(&attributes), S_OK);
    EXPECT_TRUE(attributes->guid == IID__ProtCsvClass);
    information->ReleaseTypeAttr(attributes);
}

TEST_F(LateBinding, ExportsByName) {
    NamedDatabase database;
    EXPECT_EQ(export_by_name(*entry().borrow(), &database).result, S_OK);
    EXPECT_EQ(folder.only_file(), sample_file());
}

TEST_F(LateBinding, ExportsWithArgumentsByName) {
    NamedDatabase database;
    const Bstr user("Müller");
    const Outcome outcome =
        invoke(*entry().borrow(), {4,
                                   DISPATCH_METHOD,
                                   {object(&database), number(15)},
                                   {{5, number(7)}, {2, text(user)}, {4, date(0)}, {3, date(0)}}});
    EXPECT_EQ(outcome.result, S_OK) << outcome.description;
    EXPECT_EQ(folder.only_file(), sample_file());
    EXPECT_NE(database.answers.asked.at(2).find("dcUser = 'Müller'"), std::string::npos);
}

TEST_F(LateBinding, TakesArgumentsByReferenceAsScriptsPassTheirVariables) {
    NamedDatabase database;
    auto values = export_arguments(object(&database));
    values.push_back(number(4711));
    std::vector<VARIANT> references;
    for (VARIANT& value : values) references.push_back(reference(value));
    const Outcome outcome = call(*entry().borrow(), L"gCSVAusgabe", references);
    EXPECT_EQ(outcome.result, S_OK) << outcome.description;
    EXPECT_EQ(folder.only_file(), sample_file());
    EXPECT_EQ(values.back().lVal, 4711);
}

TEST_F(LateBinding, TakesTheSpareArgumentOfAnyTypeOrNone) {
    const Bstr words("irgendwas");
    for (const VARIANT& spare : {missing(), empty(), null(), number(1), text(words), object(nullptr)}) {
        SCOPED_TRACE(spare.vt);
        NamedDatabase database;
        database.answers.on(main_query, Table());
        auto arguments = export_arguments(object(&database));
        arguments.push_back(spare);
        const Outcome outcome = call(*entry().borrow(), L"gCSVAusgabe", arguments);
        EXPECT_EQ(outcome.result, S_OK) << outcome.description;
        EXPECT_EQ(database.answers.calls_of("QueryArray"), 2);
    }
}

TEST_F(LateBinding, TakesNumbersInAnyFormThatReadsAsOne) {
    const Bstr fifteen("15");
    VARIANT single = empty();
    single.vt = VT_R4;
    single.fltVal = 15.0F;
    VARIANT byte = empty();
    byte.vt = VT_UI1;
    byte.bVal = 15;
    for (const VARIANT& section : {text(fifteen), real(15.0), short_number(15), single, byte, real(14.6)}) {
        SCOPED_TRACE(section.vt);
        NamedDatabase database;
        const OutputFolder own;
        const Outcome outcome = call(*entry().borrow(), L"gCSVAusgabe", with(object(&database), 1, section));
        EXPECT_EQ(outcome.result, S_OK) << outcome.description;
        EXPECT_EQ(own.only_file(), sample_file());
    }
}

TEST_F(LateBinding, TakesDatesInAnyFormThatReadsAsOne) {
    struct Row {
        VARIANT given;
        bool bounded;
        const char* why;
    };
    const Row rows[] = {
        {date(45658), true, "a date"},           {real(45658), true, "a number"},
        {number(45658), true, "a whole number"}, {empty(), false, "no value at all"},
        {date(0), false, "the null date"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        NamedDatabase database;
        const Outcome outcome =
            call(*entry().borrow(), L"gCSVAusgabe", with(object(&database), 3, row.given));
        EXPECT_EQ(outcome.result, S_OK) << outcome.description;
        EXPECT_EQ(database.answers.asked.at(2).find("ddDatum >= '45658' AND ") != std::string::npos,
                  row.bounded);
    }
}

TEST_F(LateBinding, PutsAndReadsTheProgressObject) {
    for (const WORD kind : {WORD{DISPATCH_PROPERTYPUT}, WORD{DISPATCH_PROPERTYPUTREF}}) {
        NamedProgress progress;
        const auto exporter = entry();
        EXPECT_EQ(put(*exporter.borrow(), L"poParent", object(&progress), kind).result, S_OK);
        {
            const Outcome read = get(*exporter.borrow(), L"poParent");
            EXPECT_EQ(read.result, S_OK);
            ASSERT_EQ(read.value.borrow().vt, VT_DISPATCH);
            EXPECT_EQ(read.value.borrow().pdispVal, &progress);
        }
        for (const VARIANT& nothing : {object(nullptr), null(), empty()}) {
            SCOPED_TRACE(nothing.vt);
            EXPECT_EQ(put(*exporter.borrow(), L"poParent", object(&progress), kind).result, S_OK);
            const Outcome outcome = put(*exporter.borrow(), L"poParent", nothing, kind);
            EXPECT_EQ(outcome.result, S_OK) << outcome.description;
            EXPECT_EQ(progress.references(), 1U);
            const Outcome read = get(*exporter.borrow(), L"poParent");
            EXPECT_EQ(read.value.borrow().vt, VT_DISPATCH);
            EXPECT_EQ(read.value.borrow().pdispVal, nullptr);
        }
    }
}

TEST_F(LateBinding, TakesNumbersForTheDeletionSwitch) {
    struct Row {
        VARIANT given;
        bool deletes;
    };
    const Row rows[] = {{boolean(true), true},   {number(1), true}, {number(-1), true},
                        {short_number(2), true}, {real(0.5), true}, {boolean(false), false},
                        {number(0), false},      {empty(), false}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.given.vt);
        NamedDatabase database;
        database.answers.on(main_query, Table());
        database.answers.value_on("SELECT COUNT(*)", std::int64_t{0});
        const auto exporter = entry();
        EXPECT_EQ(put(*exporter.borrow(), L"pbLoeschen", row.given).result, S_OK);
        export_by_name(*exporter.borrow(), &database);
        bool counted = false;
        for (const std::string& asked : database.answers.asked)
            counted |= asked.starts_with("QueryValue: SELECT COUNT(*) FROM");
        EXPECT_EQ(counted, row.deletes);
    }
}

TEST_F(LateBinding, AParameterTextMayHoldAnything) {
    NamedDatabase database;
    database.answers.on(main_query, Table());
    const Bstr parameters("/autostart/vondevi:Ä€𝄞/");
    const auto exporter = entry();
    EXPECT_EQ(put(*exporter.borrow(), L"psCommandline", text(parameters)).result, S_OK);
    EXPECT_EQ(export_by_name(*exporter.borrow(), &database).result, S_OK);
    EXPECT_NE(database.answers.asked.at(2).find("BETWEEN 'Ä€𝄞' AND 'USD'"), std::string::npos);
}

}  // namespace prot::test
