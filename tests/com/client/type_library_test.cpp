#include <map>

#include "platform/windows/text/wide_text.h"
#include "tests/com/client/server_test.h"

namespace prot::test {

namespace {

class TypeLibrary : public ServerTest {
protected:
    void SetUp() override {
        ASSERT_EQ(LoadTypeLibEx(server_path().c_str(), REGKIND_NONE, library.receive()), S_OK);
    }
    void TearDown() override {
        library = ComPtr<ITypeLib>();
        ServerTest::TearDown();
    }
    ComPtr<ITypeInfo> type(REFGUID id) {
        ComPtr<ITypeInfo> information;
        EXPECT_EQ(library->GetTypeInfoOfGuid(id, information.receive()), S_OK);
        return information;
    }
    /// The interface behind the dispatch face that type information shows first.
    ComPtr<ITypeInfo> dual_interface(REFGUID id) {
        const auto face = type(id);
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> information;
        if (SUCCEEDED(face->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)))
            face->GetRefTypeInfo(reference, information.receive());
        return information;
    }
    ComPtr<ITypeLib> library;
};

struct Member {
    const char* name;
    DISPID id;
    INVOKEKIND kind;
    int slot;               ///< in the virtual function table, from 0; IDispatch has 0 to 6
    const char* arguments;  ///< "name type flags" joined by ", "; type and flags by the names below
};

// clang-format off
const Member entry_members[] = {
    {"poParent",      1, INVOKE_PROPERTYGET,     7, "? dispatch** out retval"},
    {"poParent",      1, INVOKE_PROPERTYPUT,     8, "? dispatch* in"},
    {"poParent",      1, INVOKE_PROPERTYPUTREF,  9, "? dispatch* in"},
    {"pbLoeschen",    2, INVOKE_PROPERTYPUT,    10, "? bool in"},
    {"psCommandline", 3, INVOKE_PROPERTYPUT,    11, "? bstr in"},
    {"gCSVAusgabe",   4, INVOKE_FUNC,           12, "oDBU dispatch* in, lSection long in, sUser bstr in, dtVon date in, "
                                                    "dtBis date in, lAktion long in, vPara variant* in out opt"},
};
const Member rate_member = {"gCSVFile", 5, INVOKE_PROPERTYGET, 13, "? bstr* out retval"};
const Member database_members[] = {
    {"QueryValue",     1, INVOKE_FUNC,  7, "sql bstr in, value variant* out retval"},
    {"QueryArray",     2, INVOKE_FUNC,  8, "sql bstr in, rows variant* out retval"},
    {"Execute",        3, INVOKE_FUNC,  9, "sql bstr in"},
    {"DateLiteral",    4, INVOKE_FUNC, 10, "date date in, flag long in, literal bstr* out retval"},
    {"LikeWildcard",   5, INVOKE_FUNC, 11, "flag long in, wildcard bstr* out retval"},
    {"ConnectionInfo", 6, INVOKE_FUNC, 12, "code long in, texts variant* out retval"},
};
constexpr std::pair<USHORT, const char*> flag_names[] = {
    {PARAMFLAG_FIN, " in"}, {PARAMFLAG_FOUT, " out"}, {PARAMFLAG_FRETVAL, " retval"}, {PARAMFLAG_FOPT, " opt"},
};
// clang-format on

std::string type_name(ITypeInfo& information, const TYPEDESC& type) {
    static const std::map<VARTYPE, std::string> names = {
        {VT_I4, "long"},   {VT_INT, "int"},         {VT_BSTR, "bstr"},         {VT_DATE, "date"},
        {VT_BOOL, "bool"}, {VT_VARIANT, "variant"}, {VT_DISPATCH, "dispatch*"}};
    if (type.vt == VT_PTR) return type_name(information, *type.lptdesc) + "*";
    if (type.vt == VT_USERDEFINED) {
        ComPtr<ITypeInfo> meant;
        Bstr name;
        information.GetRefTypeInfo(type.hreftype, meant.receive());
        meant->GetDocumentation(MEMBERID_NIL, name.receive(), nullptr, nullptr, nullptr);
        return name.text() == "IDispatch" ? "dispatch" : name.text();
    }
    const auto known = names.find(type.vt);
    return known == names.end() ? std::to_string(type.vt) : known->second;
}

std::vector<std::string> names_of(ITypeInfo& information, DISPID member) {
    BSTR raw[16] = {};
    UINT count = 0;
    information.GetNames(member, raw, 16, &count);
    std::vector<std::string> names;
    for (UINT i = 0; i < count; ++i) names.push_back(Bstr::adopt(raw[i]).text());
    return names;
}

std::string arguments_of(ITypeInfo& information, const FUNCDESC& function) {
    const std::vector<std::string> names = names_of(information, function.memid);
    std::string all;
    for (std::size_t i = 0; i < static_cast<std::size_t>(function.cParams); ++i) {
        const ELEMDESC& argument = function.lprgelemdescParam[i];
        if (i > 0) all += ", ";
        const bool named = function.invkind == INVOKE_FUNC && i + 1 < names.size();
        all += (named ? names[i + 1] : "?") + " " + type_name(information, argument.tdesc);
        for (const auto& [flag, name] : flag_names)
            if (argument.paramdesc.wParamFlags & flag) all += name;
    }
    return all;
}

/// Compares the function at `slot` of an interface's own functions.
void expect_member(ITypeInfo& information, UINT index, const Member& expected) {
    SCOPED_TRACE(expected.name);
    FUNCDESC* function = nullptr;
    ASSERT_EQ(information.GetFuncDesc(index, &function), S_OK);
    EXPECT_EQ(names_of(information, function->memid).at(0), expected.name);
    EXPECT_EQ(function->memid, expected.id);
    EXPECT_EQ(function->invkind, expected.kind);
    EXPECT_EQ(function->oVft, expected.slot * static_cast<int>(sizeof(void*)));
    EXPECT_EQ(function->funckind, FUNC_PUREVIRTUAL);
    EXPECT_EQ(function->callconv, CC_STDCALL);
    EXPECT_EQ(function->elemdescFunc.tdesc.vt, VT_HRESULT);
    EXPECT_EQ(arguments_of(information, *function), expected.arguments);
    information.ReleaseFuncDesc(function);
}

UINT count_of_functions(ITypeInfo& information) {
    TYPEATTR* attributes = nullptr;
    if (FAILED(information.GetTypeAttr(&attributes))) return 0;
    const UINT count = attributes->cFuncs;
    information.ReleaseTypeAttr(attributes);
    return count;
}

}  // namespace

TEST_F(TypeLibrary, HasTheNameDescriptionAndVersionThatProjectsReferTo) {
    Bstr name, description;
    ASSERT_EQ(library->GetDocumentation(-1, name.receive(), description.receive(), nullptr, nullptr), S_OK);
    EXPECT_EQ(name.text(), "srvProtQRBCsv");
    EXPECT_EQ(description.text(), "Stammdatenprotokollierung");
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
    EXPECT_TRUE(attributes->guid == LIBID_srvProtQRBCsv);
    EXPECT_EQ(attributes->wMajorVerNum, 1);
    EXPECT_EQ(attributes->wMinorVerNum, 0);
    EXPECT_EQ(attributes->syskind, sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);
    library->ReleaseTLibAttr(attributes);
    EXPECT_EQ(library->GetTypeInfoCount(), 5U);
}

TEST_F(TypeLibrary, BothClassesAreCreatableAndHaveTheirDefaultInterface) {
    const std::pair<CLSID, IID> classes[] = {{CLSID_ProtCsvClass, IID__ProtCsvClass},
                                             {CLSID_CProtDevCsv, IID__CProtDevCsv}};
    for (const auto& [class_id, iid] : classes) {
        const auto information = type(class_id);
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(information->GetTypeAttr(&attributes), S_OK);
        EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
        EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FCANCREATE);
        EXPECT_EQ(attributes->cImplTypes, 1);
        information->ReleaseTypeAttr(attributes);
        INT flags = 0;
        ASSERT_EQ(information->GetImplTypeFlags(0, &flags), S_OK);
        EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> face;
        ASSERT_EQ(information->GetRefTypeOfImplType(0, &reference), S_OK);
        ASSERT_EQ(information->GetRefTypeInfo(reference, face.receive()), S_OK);
        ASSERT_EQ(face->GetTypeAttr(&attributes), S_OK);
        EXPECT_TRUE(attributes->guid == iid);
        EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FDUAL);
        EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FNONEXTENSIBLE);
        face->ReleaseTypeAttr(attributes);
        const auto functions = dual_interface(iid);
        ASSERT_TRUE(functions);
        ASSERT_EQ(functions->GetTypeAttr(&attributes), S_OK);
        EXPECT_EQ(attributes->typekind, TKIND_INTERFACE);
        EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FOLEAUTOMATION);
        functions->ReleaseTypeAttr(attributes);
    }
}

TEST_F(TypeLibrary, TheEntryClassHasItsMembersInOrder) {
    const auto information = dual_interface(IID__ProtCsvClass);
    ASSERT_TRUE(information);
    ASSERT_EQ(count_of_functions(*information.borrow()), std::size(entry_members));
    for (UINT i = 0; i < std::size(entry_members); ++i)
        expect_member(*information.borrow(), i, entry_members[i]);
}

TEST_F(TypeLibrary, TheExporterOfTheRatesHasTheSameMembersAndTheNameOfItsFile) {
    const auto information = dual_interface(IID__CProtDevCsv);
    ASSERT_TRUE(information);
    constexpr UINT common = std::size(entry_members);
    ASSERT_EQ(count_of_functions(*information.borrow()), common + 1);
    for (UINT i = 0; i < common; ++i) expect_member(*information.borrow(), i, entry_members[i]);
    expect_member(*information.borrow(), common, rate_member);
}

TEST_F(TypeLibrary, TheHostsDatabaseHasItsMembersInOrder) {
    const auto information = dual_interface(IID_IProtDatabase);
    ASSERT_TRUE(information);
    ASSERT_EQ(count_of_functions(*information.borrow()), std::size(database_members));
    for (UINT i = 0; i < std::size(database_members); ++i)
        expect_member(*information.borrow(), i, database_members[i]);
}

}  // namespace prot::test
