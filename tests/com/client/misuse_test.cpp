#include "tests/com/client/server_test.h"

namespace prot::test {

namespace {

using Misuse = ServerTest;

constexpr WORD method = DISPATCH_METHOD, read = DISPATCH_PROPERTYGET, write = DISPATCH_PROPERTYPUT;

struct WrongArgument {
    std::size_t position;
    VARIANT value;
    const char* description;
};

}  // namespace

TEST_F(Misuse, AnArgumentOfAWrongTypeIsNamedWithItsClassAndMember) {
    NamedDatabase database;
    const Bstr words("Datenbank");
    VARIANT huge = real(1e12);
    const WrongArgument rows[] = {
        {0, text(words), "ProtCsvClass.gCSVAusgabe: Argument 1 (oDBU) hat einen Typ, der hier nicht passt."},
        {0, empty(), "ProtCsvClass.gCSVAusgabe: Argument 1 (oDBU) hat einen Typ, der hier nicht passt."},
        {0, number(5), "ProtCsvClass.gCSVAusgabe: Argument 1 (oDBU) hat einen Typ, der hier nicht passt."},
        {1, text(words),
         "ProtCsvClass.gCSVAusgabe: Argument 2 (lSection) hat einen Typ, der hier nicht passt."},
        {1, huge, "ProtCsvClass.gCSVAusgabe: Argument 2 (lSection) liegt außerhalb des Wertebereichs."},
        {1, null(), "ProtCsvClass.gCSVAusgabe: Argument 2 (lSection) hat einen Typ, der hier nicht passt."},
        {2, object(&database),
         "ProtCsvClass.gCSVAusgabe: Argument 3 (sUser) hat einen Typ, der hier nicht passt."},
        {3, text(words), "ProtCsvClass.gCSVAusgabe: Argument 4 (dtVon) hat einen Typ, der hier nicht passt."},
        {5, object(&database),
         "ProtCsvClass.gCSVAusgabe: Argument 6 (lAktion) hat einen Typ, der hier nicht passt."},
    };
    const auto exporter = entry();
    for (const WrongArgument& row : rows) {
        SCOPED_TRACE(row.description);
        auto arguments = export_arguments(object(&database));
        arguments[row.position] = row.value;
        const Outcome outcome = call(*exporter.borrow(), L"gCSVAusgabe", arguments);
        EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
        EXPECT_EQ(outcome.description, row.description);
        EXPECT_EQ(outcome.source, "srvProtQRBCsv");
        EXPECT_EQ(outcome.bad_argument, 5 - row.position);
    }
    EXPECT_TRUE(database.answers.asked.empty());
    EXPECT_EQ(database.references(), 1U);
}

TEST_F(Misuse, AValueOfAWrongTypeIsNamedWithItsProperty) {
    NamedProgress progress;
    const Bstr words("viel");
    const auto exporter = entry();
    struct Row {
        const wchar_t* member;
        VARIANT value;
        const char* description;
    };
    const Row rows[] = {
        {L"poParent", text(words), "ProtCsvClass.poParent: Der Wert hat einen Typ, der hier nicht passt."},
        {L"poParent", number(1), "ProtCsvClass.poParent: Der Wert hat einen Typ, der hier nicht passt."},
        {L"pbLoeschen", text(words),
         "ProtCsvClass.pbLoeschen: Der Wert hat einen Typ, der hier nicht passt."},
        {L"psCommandline", object(&progress),
         "ProtCsvClass.psCommandline: Der Wert hat einen Typ, der hier nicht passt."},
        {L"psCommandline", null(),
         "ProtCsvClass.psCommandline: Der Wert hat einen Typ, der hier nicht passt."},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.description);
        const Outcome outcome = put(*exporter.borrow(), row.member, row.value);
        EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
        EXPECT_EQ(outcome.description, row.description);
    }
    EXPECT_EQ(progress.references(), 1U);
}

TEST_F(Misuse, TooFewAndTooManyArgumentsAreErrors) {
    NamedDatabase database;
    const auto exporter = entry();
    auto few = export_arguments(object(&database));
    few.pop_back();
    Outcome outcome = call(*exporter.borrow(), L"gCSVAusgabe", few);
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_EQ(outcome.description.find("ProtCsvClass.gCSVAusgabe: "), 0U) << outcome.description;
    auto many = export_arguments(object(&database));
    many.push_back(number(1));
    many.push_back(number(2));
    outcome = call(*exporter.borrow(), L"gCSVAusgabe", many);
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_EQ(outcome.description, "ProtCsvClass.gCSVAusgabe: Die Anzahl der Argumente stimmt nicht.");
    outcome = call(*exporter.borrow(), L"gCSVAusgabe", {});
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_TRUE(database.answers.asked.empty());
}

TEST_F(Misuse, MembersThatAreNotThereAreSaidNotToBe) {
    NamedDatabase database;
    const auto exporter = rate_exporter();
    struct Row {
        DISPID member;
        WORD flags;
        const char* why;
    };
    const Row rows[] = {
        {2, read, "pbLoeschen cannot be read"},
        {3, read, "psCommandline cannot be read"},
        {5, write, "gCSVFile cannot be written"},
        {4, read, "gCSVAusgabe is no property"},
        {4711, method, "no member has this id"},
        {DISPID_VALUE, read, "there is no default member"},
        {DISPID_NEWENUM, read, "there is nothing to enumerate"},
        {0x60000000, method, "QueryInterface, which the type library knows, is not for clients by name"},
        {0x60000002, method, "nor is Release"},
        {DISPID_UNKNOWN, method, "what a failed search for a name leaves"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        Invocation invocation = {row.member, row.flags, {}, {}};
        if (row.flags == write) invocation.named = {{DISPID_PROPERTYPUT, number(1)}};
        EXPECT_EQ(invoke(*exporter.borrow(), invocation).result, DISP_E_MEMBERNOTFOUND);
    }
}

TEST_F(Misuse, AnInterfaceIdOtherThanNoneIsUnknown) {
    const auto exporter = entry();
    auto name = const_cast<LPOLESTR>(L"poParent");
    DISPID id = 0;
    DISPPARAMS none = {};
    EXPECT_EQ(exporter->GetIDsOfNames(IID_IDispatch, &name, 1, LOCALE_USER_DEFAULT, &id),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(exporter->Invoke(1, IID_IDispatch, LOCALE_USER_DEFAULT, read, &none, nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
}

TEST_F(Misuse, NullPointersAreErrorsOrMeanThatNothingIsWanted) {
    NamedDatabase database;
    const auto exporter = entry();
    auto name = const_cast<LPOLESTR>(L"gCSVAusgabe");
    DISPID id = 0;
    EXPECT_EQ(exporter->GetTypeInfoCount(nullptr), E_POINTER);
    EXPECT_EQ(exporter->GetTypeInfo(0, LOCALE_USER_DEFAULT, nullptr), E_POINTER);
    EXPECT_EQ(exporter->GetIDsOfNames(IID_NULL, nullptr, 1, LOCALE_USER_DEFAULT, &id), E_POINTER);
    EXPECT_EQ(exporter->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, nullptr), E_POINTER);
    LPOLESTR no_name = nullptr;
    EXPECT_EQ(exporter->GetIDsOfNames(IID_NULL, &no_name, 1, LOCALE_USER_DEFAULT, &id), E_POINTER);
    EXPECT_EQ(exporter->Invoke(4, IID_NULL, LOCALE_USER_DEFAULT, method, nullptr, nullptr, nullptr, nullptr),
              E_INVALIDARG);
    auto arguments = export_arguments(object(&database));
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPPARAMS parameters = {reversed.data(), nullptr, 6, 0};
    EXPECT_EQ(
        exporter->Invoke(4, IID_NULL, LOCALE_USER_DEFAULT, method, &parameters, nullptr, nullptr, nullptr),
        S_OK);
    EXPECT_EQ(folder.only_file(), sample_file());
    reversed.back() = number(5);
    EXPECT_EQ(
        exporter->Invoke(4, IID_NULL, LOCALE_USER_DEFAULT, method, &parameters, nullptr, nullptr, nullptr),
        DISP_E_TYPEMISMATCH);
    DISPPARAMS no_values = {nullptr, nullptr, 6, 0};
    EXPECT_EQ(
        exporter->Invoke(4, IID_NULL, LOCALE_USER_DEFAULT, method, &no_values, nullptr, nullptr, nullptr),
        E_INVALIDARG);
    DISPPARAMS no_names = {reversed.data(), nullptr, 6, 1};
    EXPECT_EQ(
        exporter->Invoke(4, IID_NULL, LOCALE_USER_DEFAULT, method, &no_names, nullptr, nullptr, nullptr),
        E_INVALIDARG);
}

}  // namespace prot::test
