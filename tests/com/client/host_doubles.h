#pragma once

#include <srvprotqrbcsv.h>
#include <windows.h>

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tests/com/client/host_answers.h"

/// The host's side: a database object by interface, one by name, a progress object.
namespace prot::test {

/// An object that its test owns; the count is watched and never acted upon.
template <class Interface>
class Watched : public Interface {
public:
    Watched() = default;
    Watched(const Watched&) = delete;
    Watched& operator=(const Watched&) = delete;

    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override { return --references_; }
    /// The test's own reference counts as one.
    ULONG references() const { return references_; }

protected:
    ~Watched() = default;

private:
    ULONG references_ = 1;
};

/// A database object that has its members by interface alone.
class InterfaceDatabase final : public Watched<IProtDatabase>, public ISupportErrorInfo {
public:
    explicit InterfaceDatabase(HostAnswers knows = sample_log()) : answers(std::move(knows)) {}
    HostAnswers answers;
    bool has_connection_info = true;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return Watched::AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return Watched::Release(); }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE QueryValue(BSTR sql, VARIANT* value) override;
    HRESULT STDMETHODCALLTYPE QueryArray(BSTR sql, VARIANT* rows) override;
    HRESULT STDMETHODCALLTYPE Execute(BSTR sql) override;
    HRESULT STDMETHODCALLTYPE DateLiteral(DATE date, LONG flag, BSTR* literal) override;
    HRESULT STDMETHODCALLTYPE LikeWildcard(LONG flag, BSTR* wildcard) override;
    HRESULT STDMETHODCALLTYPE ConnectionInfo(LONG code, VARIANT* texts) override;
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override {
        return iid == IID_IProtDatabase ? S_OK : S_FALSE;
    }
};

/// How an object reports an error through IDispatch::Invoke.
enum class Raise { by_scode, by_code, deferred };

/// An object that has its members by name alone.
class NamedObject : public Watched<IDispatch> {
public:
    Raise raise = Raise::by_scode;
    std::set<std::wstring> missing;  ///< members that it pretends not to have

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO* exception, UINT*) override;

protected:
    explicit NamedObject(std::vector<std::wstring> members) : members_(std::move(members)) {}
    ~NamedObject() = default;

    /// `member` counts from 0 in the order of the members. Raises HostError.
    virtual Variant answer(std::size_t member, DISPPARAMS& arguments) = 0;

private:
    std::vector<std::wstring> members_;
};

class NamedDatabase final : public NamedObject {
public:
    explicit NamedDatabase(HostAnswers knows = sample_log());
    HostAnswers answers;

protected:
    Variant answer(std::size_t member, DISPPARAMS& arguments) override;
};

class NamedProgress final : public NamedObject {
public:
    NamedProgress();
    std::vector<std::string> calls;  ///< "gSetFortschritt 0/2"
    std::function<void(long)> on_progress = [](long) {};
    std::optional<HostError> failure;  ///< of gSetFortschritt

protected:
    Variant answer(std::size_t member, DISPPARAMS& arguments) override;
};

}  // namespace prot::test
