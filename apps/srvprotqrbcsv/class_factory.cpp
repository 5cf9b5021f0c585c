#include "apps/srvprotqrbcsv/class_factory.h"

#include <atomic>
#include <new>

#include "apps/srvprotqrbcsv/class_table.h"
#include "apps/srvprotqrbcsv/module.h"
#include "platform/windows/com/com_ptr.h"

namespace prot {

namespace {

class ClassFactory : public IClassFactory {
public:
    explicit ClassFactory(const AutomationClass& made) : made_(made) {}
    virtual ~ClassFactory() = default;
    ClassFactory(const ClassFactory&) = delete;
    ClassFactory& operator=(const ClassFactory&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
        *object = static_cast<IClassFactory*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override
        try {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        return ComPtr<IUnknown>::share(made_.create())->QueryInterface(iid, object);
    } catch (...) {
        return E_OUTOFMEMORY;
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override {
        if (lock)
            module::lock();
        else
            module::unlock();
        return S_OK;
    }

private:
    const AutomationClass& made_;
    std::atomic<ULONG> references_ = 0;
    module::Reference module_;
};

}  // namespace

HRESULT class_factory(REFCLSID class_id, REFIID iid, void** object) noexcept try {
    if (!object) return E_POINTER;
    *object = nullptr;
    for (const AutomationClass& known : automation_classes())
        if (known.id == class_id)
            return ComPtr<IClassFactory>::share(new ClassFactory(known))->QueryInterface(iid, object);
    return CLASS_E_CLASSNOTAVAILABLE;
} catch (...) {
    return E_OUTOFMEMORY;
}

}  // namespace prot
