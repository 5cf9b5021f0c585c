#include "tests/com/component/translator.h"

#include <windows.h>

#include <array>
#include <cwchar>

#include "tests/com/component/report.h"

namespace prottest {

namespace {

constexpr const wchar_t* kinds[] = {L"by interface", L"by another first member", L"by dispinterface",
                                    L"not described"};

// clang-format off
constexpr GUID described_types[] = {
    {0x6a0a2b0e, 0x5a3f, 0x4c61, {0x9d, 0x53, 0x0f, 0x3c, 0x1b, 0x7f, 0x5a, 0x11}},
    {0x6a0a2b0e, 0x5a3f, 0x4c61, {0x9d, 0x53, 0x0f, 0x3c, 0x1b, 0x7f, 0x5a, 0x12}},
    {0x6a0a2b0e, 0x5a3f, 0x4c61, {0x9d, 0x53, 0x0f, 0x3c, 0x1b, 0x7f, 0x5a, 0x13}},
};
// clang-format on

/// The wildcard of the database that was handed over: proof that it is the run's.
std::wstring wildcard_of(const VARIANT& database) {
    if (database.vt != VT_DISPATCH || !database.pdispVal)
        throw ScriptError{DISP_E_TYPEMISMATCH, L"prottest", L"no database"};
    std::wstring name = L"LikeWildcard";
    wchar_t* names = name.data();
    DISPID id = DISPID_UNKNOWN;
    VARIANT flag, answer;
    VariantInit(&flag);
    VariantInit(&answer);
    flag.vt = VT_I4;
    DISPPARAMS parameters{&flag, nullptr, 1, 0};
    IDispatch& object = *database.pdispVal;
    if (FAILED(object.GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id)) ||
        FAILED(object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, &answer,
                             nullptr, nullptr)) ||
        answer.vt != VT_BSTR)
        throw ScriptError{DISP_E_MEMBERNOTFOUND, L"prottest", L"the database does not answer"};
    std::wstring text(answer.bstrVal, SysStringLen(answer.bstrVal));
    VariantClear(&answer);
    return text;
}

std::wstring moment_text(DATE moment) {
    SYSTEMTIME time{};
    VariantTimeToSystemTime(moment, &time);
    wchar_t text[32];
    swprintf_s(text, std::size(text), L"%04d-%02d-%02d %02d:%02d:%02d", time.wYear, time.wMonth, time.wDay,
               time.wHour, time.wMinute, time.wSecond);
    return text;
}

VARIANT translation(const wchar_t* member, const DISPPARAMS& parameters) {
    const VARIANT &value = argument_at(parameters, 0), &moment = argument_at(parameters, 2);
    if (parameters.cArgs != 4 || value.vt != VT_I4 || moment.vt != VT_DATE)
        throw ScriptError{DISP_E_TYPEMISMATCH, L"prottest", L"arguments of other types"};
    if (value.lVal == 0) return text_variant(L"");
    return text_variant(text_at(parameters, 1) + L" " + std::to_wstring(value.lVal) + L" am " +
                        moment_text(moment.date) + L" " + member + L" " +
                        wildcard_of(argument_at(parameters, 3)));
}

}  // namespace

Translator::Translator(Described described) : described_(described) {
    report(std::wstring(L"translator made: ") + kinds[static_cast<int>(described_)]);
}

Translator::~Translator() {
    report(std::wstring(L"translator released: ") + kinds[static_cast<int>(described_)]);
}

std::span<const Translator::Member> Translator::members() {
    static const auto table =
        std::to_array<Member>({{L"gsTranslate", [](Translator&, const DISPPARAMS& arguments) {
                                    return translation(L"by name", arguments);
                                }}});
    return table;
}

HRESULT STDMETHODCALLTYPE Translator::GetTypeInfoCount(UINT* count) {
    *count = described_ == Described::not_at_all ? 0 : 1;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Translator::GetTypeInfo(UINT, LCID, ITypeInfo** type) {
    *type = nullptr;
    if (described_ == Described::not_at_all) return E_NOTIMPL;
    HMODULE module = nullptr;
    wchar_t path[MAX_PATH] = {};
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&kinds), &module);
    GetModuleFileNameW(module, path, MAX_PATH);
    ITypeLib* library = nullptr;
    HRESULT result = LoadTypeLibEx(path, REGKIND_NONE, &library);
    if (FAILED(result)) return result;
    result = library->GetTypeInfoOfGuid(described_types[static_cast<int>(described_)], type);
    library->Release();
    return result;
}

HRESULT STDMETHODCALLTYPE Translator::Invoke(DISPID id, REFIID iid, LCID language, WORD flags,
                                             DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                             UINT* argument) {
    constexpr DISPID first_member = 17;
    if (id != first_member)
        return ScriptObject::Invoke(id, iid, language, flags, parameters, result, exception, argument);
    if (described_ == Described::not_at_all) return DISP_E_MEMBERNOTFOUND;
    try {
        *result = translation(L"by id", *parameters);
        return S_OK;
    } catch (const ScriptError& error) {
        return error.number;
    }
}

}  // namespace prottest
