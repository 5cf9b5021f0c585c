#include "tests/com/client/host_doubles.h"

#include "platform/windows/com/com_error.h"

namespace prot::test {

namespace {

/// Ten texts, the tenth the name of the database server.
Variant connection_texts() {
    VARIANT result = empty();
    result.vt = VT_ARRAY | VT_VARIANT;
    result.parray = SafeArrayCreateVector(VT_VARIANT, 0, 10);
    Variant name = variant_of(std::string("SRV-SQL01"));
    LONG tenth = 9;
    SafeArrayPutElement(result.parray, &tenth, const_cast<VARIANT*>(&name.borrow()));
    return Variant::adopt(result);
}

std::string text_argument(DISPPARAMS& arguments, UINT position) {
    VARIANT converted = empty();
    UINT bad = 0;
    if (FAILED(DispGetParam(&arguments, position, VT_BSTR, &converted, &bad)))
        throw HostError{DISP_E_TYPEMISMATCH, "NamedObject", "no text"};
    return text_of(Variant::adopt(converted).borrow().bstrVal);
}

long number_argument(DISPPARAMS& arguments, UINT position) {
    VARIANT converted = empty();
    UINT bad = 0;
    if (FAILED(DispGetParam(&arguments, position, VT_I4, &converted, &bad)))
        throw HostError{DISP_E_TYPEMISMATCH, "NamedObject", "no number"};
    return converted.lVal;
}

/// A call by interface: what `body` raises is left as the thread's error information.
template <class Body>
HRESULT by_interface(Body body) try {
    body();
    return S_OK;
} catch (const HostError& error) {
    return publish({error.number, error.source, error.description}, IID_IProtDatabase);
}

HostError deferred_error;

void fill(EXCEPINFO& exception, const HostError& error) {
    exception.scode = error.number;
    exception.bstrSource = Bstr(error.source).release();
    exception.bstrDescription = Bstr(error.description).release();
}

HRESULT STDAPICALLTYPE fill_deferred(EXCEPINFO* exception) {
    fill(*exception, deferred_error);
    return S_OK;
}

HRESULT report(EXCEPINFO* exception, const HostError& error, Raise raise) {
    if (!exception) return error.number;
    *exception = EXCEPINFO();
    if (raise == Raise::deferred) {
        deferred_error = error;
        exception->pfnDeferredFillIn = fill_deferred;
        return DISP_E_EXCEPTION;
    }
    fill(*exception, error);
    if (raise == Raise::by_code) {
        exception->scode = 0;
        exception->wCode = static_cast<WORD>(error.number & 0xFFFF);
    }
    return DISP_E_EXCEPTION;
}

}  // namespace

HRESULT InterfaceDatabase::QueryInterface(REFIID iid, void** object) {
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == IID_IProtDatabase)
        *object = static_cast<IProtDatabase*>(this);
    else if (iid == IID_ISupportErrorInfo)
        *object = static_cast<ISupportErrorInfo*>(this);
    else
        return *object = nullptr, E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT InterfaceDatabase::QueryValue(BSTR sql, VARIANT* value) {
    return by_interface([&] { *value = answers.ask("QueryValue", text_of(sql)).release(); });
}

HRESULT InterfaceDatabase::QueryArray(BSTR sql, VARIANT* rows) {
    return by_interface([&] { *rows = answers.ask("QueryArray", text_of(sql)).release(); });
}

HRESULT InterfaceDatabase::Execute(BSTR sql) {
    return by_interface([&] { answers.ask("Execute", text_of(sql)); });
}

HRESULT InterfaceDatabase::DateLiteral(DATE date, LONG /*flag*/, BSTR* literal) {
    *literal = Bstr("'" + std::to_string(static_cast<int>(date)) + "'").release();
    return S_OK;
}

HRESULT InterfaceDatabase::LikeWildcard(LONG /*flag*/, BSTR* wildcard) {
    *wildcard = Bstr("%").release();
    return S_OK;
}

HRESULT InterfaceDatabase::ConnectionInfo(LONG /*code*/, VARIANT* texts) {
    if (!has_connection_info) return E_NOTIMPL;
    *texts = connection_texts().release();
    return S_OK;
}

HRESULT NamedObject::QueryInterface(REFIID iid, void** object) {
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IDispatch) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

HRESULT NamedObject::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT NamedObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
    for (std::size_t i = 0; i < members_.size(); ++i)
        if (_wcsicmp(members_[i].c_str(), names[0]) == 0 && !missing.contains(members_[i])) {
            ids[0] = static_cast<DISPID>(i + 1);
            return S_OK;
        }
    ids[0] = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
}

HRESULT NamedObject::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT* result,
                            EXCEPINFO* exception, UINT*) try {
    Variant value = answer(static_cast<std::size_t>(member - 1), *arguments);
    if (result) *result = value.release();
    return S_OK;
} catch (const HostError& error) {
    return report(exception, error, raise);
}

NamedDatabase::NamedDatabase(HostAnswers knows)
    : NamedObject(
          {L"QueryValue", L"QueryArray", L"Execute", L"DateLiteral", L"LikeWildcard", L"ConnectionInfo"}),
      answers(std::move(knows)) {}

Variant NamedDatabase::answer(std::size_t member, DISPPARAMS& arguments) {
    constexpr const char* statements[] = {"QueryValue", "QueryArray", "Execute"};
    if (member < 3) return answers.ask(statements[member], text_argument(arguments, 0));
    if (member == 3) return variant_of("'" + std::to_string(number_argument(arguments, 0)) + "'");
    return member == 4 ? variant_of(std::string("%")) : connection_texts();
}

NamedProgress::NamedProgress() : NamedObject({L"gRefresh", L"gSetFortschritt"}) {}

Variant NamedProgress::answer(std::size_t member, DISPPARAMS& arguments) {
    if (member == 0) {
        calls.push_back("gRefresh");
        return Variant();
    }
    const long index = number_argument(arguments, 0);
    calls.push_back("gSetFortschritt " + std::to_string(index) + "/" +
                    std::to_string(number_argument(arguments, 1)));
    on_progress(index);
    if (failure) throw *failure;
    return Variant();
}

}  // namespace prot::test
