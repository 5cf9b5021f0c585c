// Exports a section of the master-data log to a CSV file, without dialog.
//
//   export.exe "Provider=MSOLEDBSQL;Data Source=SRV;Initial Catalog=Fibu;Integrated Security=SSPI" 15
//   C:\Protokolle
//
// Arguments: connection string, number of the section (6 open items, 8 suppliers, 9 customers, 10 report
// frameworks, 15 exchange rates), folder of the file; for sections with clients further keys, such as
// /mandant:123. An early-bound host: the database object implements IProtDatabase of the type library, so the
// server calls it without asking for names. midl or widl make the headers srvprotqrbcsv.h and
// prot_database.h, and the identifiers in srvprotqrbcsv_i.c and prot_database_i.c, from the .idl files of the
// same names.
#include <ole2.h>

#include <cstdio>
#include <cwchar>
#include <initializer_list>
#include <stdexcept>
#include <string>

#include "srvprotqrbcsv.h"

namespace {

/// An error on its way through this program.
struct ComError {
    HRESULT number;
    std::wstring description;
};

void check(HRESULT result) {
    if (FAILED(result)) throw ComError{result, L""};
}

/// Owns a VARIANT.
struct Variant : VARIANT {
    Variant() { VariantInit(this); }
    explicit Variant(const wchar_t* text) : Variant() {
        vt = VT_BSTR;
        bstrVal = SysAllocString(text);
    }
    explicit Variant(long number) : Variant() {
        vt = VT_I4;
        lVal = number;
    }
    Variant(Variant&& other) noexcept : VARIANT(other) { VariantInit(&other); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(this); }
};

/// Calls a member of an ADO object by its name.
Variant call(IDispatch* object, const wchar_t* name, WORD flags,
             std::initializer_list<const VARIANT*> arguments) {
    DISPID id = 0;
    auto* member = const_cast<wchar_t*>(name);
    check(object->GetIDsOfNames(IID_NULL, &member, 1, LOCALE_USER_DEFAULT, &id));
    VARIANT reversed[4] = {};
    UINT count = 0;
    for (const VARIANT* argument : arguments) reversed[arguments.size() - ++count] = *argument;
    DISPPARAMS parameters = {reversed, nullptr, count, 0};
    Variant answer;
    EXCEPINFO exception = {};
    const HRESULT result =
        object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, &answer, &exception, nullptr);
    if (result != DISP_E_EXCEPTION) {
        check(result);
        return answer;
    }
    ComError error{exception.scode, exception.bstrDescription ? exception.bstrDescription : L""};
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    throw error;
}

/// The database object that the server asks. Every statement of the server goes through it.
class Database : public IProtDatabase, public ISupportErrorInfo {
public:
    explicit Database(const wchar_t* connection_text) {
        CLSID id = {};
        check(CLSIDFromProgID(L"ADODB.Connection", &id));
        check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                               reinterpret_cast<void**>(&connection_)));
        const Variant text(connection_text);
        call(connection_, L"Open", DISPATCH_METHOD, {&text});
    }

    // First column of the first row, Null without a row.
    HRESULT STDMETHODCALLTYPE QueryValue(BSTR sql, VARIANT* value) override {
        return answered([&] {
            const Variant rows = query(sql);
            if (at_end(rows)) {
                value->vt = VT_NULL;
                return;
            }
            const Variant fields = call(rows.pdispVal, L"Fields", DISPATCH_PROPERTYGET, {});
            const Variant first(0L);
            const Variant field = call(fields.pdispVal, L"Item", DISPATCH_PROPERTYGET, {&first});
            Variant content = call(field.pdispVal, L"Value", DISPATCH_PROPERTYGET, {});
            check(VariantCopy(value, &content));
        });
    }

    // All rows as an array (column, row), Empty without a row.
    HRESULT STDMETHODCALLTYPE QueryArray(BSTR sql, VARIANT* rows) override {
        return answered([&] {
            const Variant found = query(sql);
            if (at_end(found)) return;
            Variant all = call(found.pdispVal, L"GetRows", DISPATCH_METHOD, {});
            check(VariantCopy(rows, &all));
        });
    }

    HRESULT STDMETHODCALLTYPE Execute(BSTR sql) override {
        return answered([&] { query(sql); });
    }

    // A date as SQL Server reads it under every language setting.
    HRESULT STDMETHODCALLTYPE DateLiteral(DATE date, long /*flag*/, BSTR* literal) override {
        SYSTEMTIME time = {};
        if (!VariantTimeToSystemTime(date, &time)) return E_INVALIDARG;
        wchar_t text[40];
        std::swprintf(text, 40, L"{ts '%04d-%02d-%02d %02d:%02d:%02d'}", time.wYear, time.wMonth, time.wDay,
                      time.wHour, time.wMinute, time.wSecond);
        *literal = SysAllocString(text);
        return *literal ? S_OK : E_OUTOFMEMORY;
    }

    HRESULT STDMETHODCALLTYPE LikeWildcard(long /*flag*/, BSTR* wildcard) override {
        *wildcard = SysAllocString(L"%");
        return *wildcard ? S_OK : E_OUTOFMEMORY;
    }

    // Not offered: the computer's name stands for the server's.
    HRESULT STDMETHODCALLTYPE ConnectionInfo(long /*code*/, VARIANT* /*texts*/) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid == IID_IUnknown || iid == IID_IDispatch || iid == IID_IProtDatabase)
            *object = static_cast<IProtDatabase*>(this);
        else if (iid == IID_ISupportErrorInfo)
            *object = static_cast<ISupportErrorInfo*>(this);
        else
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    // Only with this answer does the server take the text of an error from this object.
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override {
        return iid == IID_IProtDatabase ? S_OK : S_FALSE;
    }

    // The server finds IProtDatabase and needs no names.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }

private:
    virtual ~Database() {
        if (connection_) connection_->Release();
    }

    Variant query(BSTR sql) {
        const Variant text(sql);
        return call(connection_, L"Execute", DISPATCH_METHOD, {&text});
    }

    static bool at_end(const Variant& rows) {
        const Variant end = call(rows.pdispVal, L"EOF", DISPATCH_PROPERTYGET, {});
        return end.vt == VT_BOOL && end.boolVal != VARIANT_FALSE;
    }

    /// Runs `body`; its error becomes the call's, with its text.
    template <class Body>
    static HRESULT answered(Body body) {
        try {
            body();
            return S_OK;
        } catch (const ComError& error) {
            ICreateErrorInfo* info = nullptr;
            IErrorInfo* told = nullptr;
            if (SUCCEEDED(CreateErrorInfo(&info))) {
                info->SetDescription(const_cast<wchar_t*>(error.description.c_str()));
                if (SUCCEEDED(info->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&told)))) {
                    SetErrorInfo(0, told);
                    told->Release();
                }
                info->Release();
            }
            return error.number;
        }
    }

    IDispatch* connection_ = nullptr;
    ULONG references_ = 1;
};

/// Runs the export; the server's error comes back with number and text.
void export_section(_ProtCsvClass* server, IDispatch* database, long section, const wchar_t* keys) {
    const std::wstring parameters = L"/sektion:" + std::to_wstring(section) + L"/autostart" + keys;
    const Variant text(parameters.c_str()), user(L"");
    check(server->put_psCommandline(text.bstrVal));
    Variant spare;
    // user (empty: all), first and last day (0: open), events 1 created + 2 changed + 4 deleted
    const HRESULT result = server->gCSVAusgabe(database, section, user.bstrVal, 0, 0, 7, &spare);
    if (SUCCEEDED(result)) return;
    ComError error{result, L""};
    IErrorInfo* info = nullptr;
    if (GetErrorInfo(0, &info) == S_OK) {
        BSTR description = nullptr;
        info->GetDescription(&description);
        if (description) error.description = description;
        SysFreeString(description);
        info->Release();
    }
    throw error;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 4) {
        std::fputws(L"Aufruf: export VERBINDUNG BEREICH ORDNER [AUSWAHL]\n", stderr);
        return 2;
    }
    SetEnvironmentVariableW(L"PROTCSV_AUSGABE", arguments[3]);
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    int status = 0;
    try {
        auto* database = new Database(arguments[1]);
        _ProtCsvClass* server = nullptr;
        check(CoCreateInstance(CLSID_ProtCsvClass, nullptr, CLSCTX_INPROC_SERVER, IID__ProtCsvClass,
                               reinterpret_cast<void**>(&server)));
        export_section(server, database, std::wcstol(arguments[2], nullptr, 10),
                       count > 4 ? arguments[4] : L"");
        server->Release();
        database->Release();
        std::fputws(L"Fertig.\n", stdout);
    } catch (const ComError& error) {
        std::fwprintf(stderr, L"Fehler %08lX: %ls\n", static_cast<unsigned long>(error.number),
                      error.description.c_str());
        status = 1;
    }
    CoUninitialize();
    return status;
}
