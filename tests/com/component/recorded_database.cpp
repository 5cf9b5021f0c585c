#include "tests/com/component/recorded_database.h"

#include <array>
#include <memory>

namespace prottest {

namespace {

VARIANT nothing() {
    VARIANT variant;
    VariantInit(&variant);
    return variant;
}

VARIANT number_variant(long number) {
    VARIANT variant = nothing();
    variant.vt = VT_I4;
    variant.lVal = number;
    return variant;
}

DATE date_at(const DISPPARAMS& parameters, UINT place) {
    const VARIANT& date = argument_at(parameters, place);
    if (date.vt != VT_DATE) throw ScriptError{DISP_E_TYPEMISMATCH, L"RecordedDatabase", L"no date"};
    return date.date;
}

std::wstring text_of(BSTR text) { return {text ? text : L"", SysStringLen(text)}; }

/// Leaves the error on the thread, as a method of an interface reports it.
HRESULT published(const ScriptError& error) {
    ICreateErrorInfo* created = nullptr;
    if (FAILED(CreateErrorInfo(&created))) return error.number;
    created->SetGUID(IID_IProtDatabase);
    created->SetSource(const_cast<LPOLESTR>(error.source.c_str()));
    created->SetDescription(const_cast<LPOLESTR>(error.description.c_str()));
    IErrorInfo* information = nullptr;
    if (SUCCEEDED(created->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&information)))) {
        SetErrorInfo(0, information);
        information->Release();
    }
    created->Release();
    return error.number;
}

template <class Work>
HRESULT guarded(Work work) {
    try {
        work();
        return S_OK;
    } catch (const ScriptError& error) {
        return published(error);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

}  // namespace

std::span<const RecordedDatabase::Member> RecordedDatabase::members() {
    using Object = RecordedDatabase;
    using Arguments = DISPPARAMS;
    static const auto table = std::to_array<Member>({
        {L"QueryValue", [](Object& o, const Arguments& a) { return o.recording().value(text_at(a, 0)); }},
        {L"QueryArray", [](Object& o, const Arguments& a) { return o.recording().rows(text_at(a, 0)); }},
        {L"Execute",
         [](Object& o, const Arguments& a) {
             o.execute(text_at(a, 0));
             return nothing();
         }},
        {L"DateLiteral",
         [](Object& o, const Arguments& a) {
             return text_variant(o.recording().date_literal(date_at(a, 0)));
         }},
        {L"LikeWildcard",
         [](Object& o, const Arguments&) { return text_variant(o.recording().like_wildcard()); }},
        {L"ConnectionInfo", [](Object& o, const Arguments&) { return o.recording().connection(); }},
        {L"Load",
         [](Object& o, const Arguments& a) {
             o.recording_ = std::make_unique<Recording>(text_at(a, 0));
             return nothing();
         }},
        {L"ByNameOnly",
         [](Object& o, const Arguments&) {
             o.by_interface_ = false;
             return nothing();
         }},
        {L"Executed", [](Object& o, const Arguments&) { return number_variant(o.executed_); }},
    });
    return table;
}

HRESULT RecordedDatabase::QueryInterface(REFIID iid, void** object) {
    if (iid != IID_ISupportErrorInfo) return ScriptObject::QueryInterface(iid, object);
    *object = static_cast<ISupportErrorInfo*>(this);
    AddRef();
    return S_OK;
}

HRESULT RecordedDatabase::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == IID_IProtDatabase ? S_OK : S_FALSE;
}

const Recording& RecordedDatabase::recording() const {
    if (!recording_) throw ScriptError{E_UNEXPECTED, L"RecordedDatabase", L"nothing is loaded"};
    return *recording_;
}

void RecordedDatabase::execute(const std::wstring& sql) {
    recording().execute(sql);
    ++executed_;
}

HRESULT RecordedDatabase::QueryValue(BSTR sql, VARIANT* value) {
    return guarded([&] { *value = recording().value(text_of(sql)); });
}

HRESULT RecordedDatabase::QueryArray(BSTR sql, VARIANT* rows) {
    return guarded([&] { *rows = recording().rows(text_of(sql)); });
}

HRESULT RecordedDatabase::Execute(BSTR sql) {
    return guarded([&] { execute(text_of(sql)); });
}

HRESULT RecordedDatabase::DateLiteral(DATE date, long, BSTR* literal) {
    return guarded([&] { *literal = text_variant(recording().date_literal(date)).bstrVal; });
}

HRESULT RecordedDatabase::LikeWildcard(long, BSTR* wildcard) {
    return guarded([&] { *wildcard = text_variant(recording().like_wildcard()).bstrVal; });
}

HRESULT RecordedDatabase::ConnectionInfo(long, VARIANT* texts) {
    return guarded([&] { *texts = recording().connection(); });
}

}  // namespace prottest
