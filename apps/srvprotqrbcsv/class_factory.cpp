#include "apps/srvprotqrbcsv/class_factory.h"

#include <new>

#include "apps/srvprotqrbcsv/class_table.h"
#include "apps/srvprotqrbcsv/counted_object.h"
#include "platform/windows/com/com_ptr.h"

namespace prot {

namespace {

class ClassFactory : public CountedObject<IClassFactory> {
public:
    explicit ClassFactory(const AutomationClass& made) : made_(made) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
        *object = static_cast<IClassFactory*>(this);
        AddRef();
        return S_OK;
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
