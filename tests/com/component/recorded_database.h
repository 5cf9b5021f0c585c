#pragma once

#include <prot_database.h>

#include <memory>
#include <span>

#include "tests/com/component/recording.h"
#include "tests/com/component/script_object.h"

namespace prottest {

/// A host's database object that answers from a recording, by name and by interface. Besides the members of
/// IProtDatabase: Load(path), ByNameOnly() (from then on it has no interface but IDispatch), Executed() (how
/// many statements were executed).
class RecordedDatabase : public ScriptObject<RecordedDatabase, IProtDatabase>, public ISupportErrorInfo {
public:
    static std::span<const Member> members();
    bool by_interface() const { return by_interface_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ScriptObject::AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return ScriptObject::Release(); }
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

    HRESULT STDMETHODCALLTYPE QueryValue(BSTR sql, VARIANT* value) override;
    HRESULT STDMETHODCALLTYPE QueryArray(BSTR sql, VARIANT* rows) override;
    HRESULT STDMETHODCALLTYPE Execute(BSTR sql) override;
    HRESULT STDMETHODCALLTYPE DateLiteral(DATE date, long flag, BSTR* literal) override;
    HRESULT STDMETHODCALLTYPE LikeWildcard(long flag, BSTR* wildcard) override;
    HRESULT STDMETHODCALLTYPE ConnectionInfo(long code, VARIANT* texts) override;

private:
    const Recording& recording() const;
    void execute(const std::wstring& sql);

    std::unique_ptr<Recording> recording_;
    bool by_interface_ = true;
    long executed_ = 0;
};

}  // namespace prottest
