#include <objbase.h>

#include "tests/com/component/connection.h"
#include "tests/com/component/recorded_database.h"
#include "tests/com/component/report.h"

namespace prottest {

namespace {

template <class Object>
IDispatch* make() {
    return new (std::nothrow) Object;
}

struct Class {
    CLSID id;
    IDispatch* (*make)();
};

// Registered by prottest.reg.in, under the same numbers.
// clang-format off
const Class classes[] = {
    {{0x30e293d9, 0x7e25, 0x4281, {0xbb, 0xf4, 0x34, 0xe9, 0xf7, 0x03, 0xd6, 0x21}}, make<RecordedDatabase>},
    {{0xb43fa641, 0x260a, 0x4d7b, {0x85, 0x18, 0x56, 0xaa, 0x63, 0x68, 0xe0, 0xba}}, make<Report>},
    {{0x12659e71, 0xe1b7, 0x444b, {0x9c, 0xe5, 0xe8, 0x6a, 0x6b, 0x78, 0x45, 0xd7}}, make<ErrorDisplay>},
    {{0x8c37b886, 0x0d36, 0x4b87, {0x81, 0xc3, 0xd0, 0x97, 0x3e, 0x69, 0x8c, 0x83}}, make<HelpDisplay>},
    {{0x3c56b14e, 0xed6a, 0x4ff7, {0x9e, 0xf8, 0x79, 0x76, 0xb0, 0xe5, 0xc7, 0x66}}, make<Connection>},
};
// clang-format on

/// Lives as long as the library.
class Factory : public IClassFactory {
public:
    explicit Factory(const Class& made) : made_(made) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IClassFactory;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        IDispatch* const created = made_.make();
        if (!created) return E_OUTOFMEMORY;
        created->AddRef();
        const HRESULT result = created->QueryInterface(iid, object);
        created->Release();
        return result;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    const Class& made_;
};

}  // namespace

}  // namespace prottest

STDAPI DllGetClassObject(REFCLSID id, REFIID iid, LPVOID* object) {
    using namespace prottest;
    static Factory factories[] = {Factory(classes[0]), Factory(classes[1]), Factory(classes[2]),
                                  Factory(classes[3]), Factory(classes[4])};
    *object = nullptr;
    for (std::size_t i = 0; i < std::size(classes); ++i)
        if (classes[i].id == id) return factories[i].QueryInterface(iid, object);
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return prottest::live_objects == 0 ? S_OK : S_FALSE; }
