#include <objbase.h>

#include "tests/com/component/connection.h"
#include "tests/com/component/recorded_database.h"
#include "tests/com/component/report.h"
#include "tests/com/component/translator.h"

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

template <Described described>
constexpr auto make_translator = make<DescribedTranslator<described>>;

// Registered by prottest.reg.in and translators.reg.in, under the same numbers.
// clang-format off
const Class classes[] = {
    {{0x30e293d9, 0x7e25, 0x4281, {0xbb, 0xf4, 0x34, 0xe9, 0xf7, 0x03, 0xd6, 0x21}}, make<RecordedDatabase>},
    {{0xb43fa641, 0x260a, 0x4d7b, {0x85, 0x18, 0x56, 0xaa, 0x63, 0x68, 0xe0, 0xba}}, make<Report>},
    {{0x12659e71, 0xe1b7, 0x444b, {0x9c, 0xe5, 0xe8, 0x6a, 0x6b, 0x78, 0x45, 0xd7}}, make<ErrorDisplay>},
    {{0x8c37b886, 0x0d36, 0x4b87, {0x81, 0xc3, 0xd0, 0x97, 0x3e, 0x69, 0x8c, 0x83}}, make<HelpDisplay>},
    {{0x3c56b14e, 0xed6a, 0x4ff7, {0x9e, 0xf8, 0x79, 0x76, 0xb0, 0xe5, 0xc7, 0x66}}, make<Connection>},
    {{0x6a0a2b0e, 0x5a3f, 0x4c61, {0x9d, 0x53, 0x0f, 0x3c, 0x1b, 0x7f, 0x5a, 0x21}}, make_translator<Described::by_interface>},
    {{0x6a0a2b0e, 0x5a3f, 0x4c61, {0x9d, 0x53, 0x0f, 0x3c, 0x1b, 0x7f, 0x5a, 0x22}}, make_translator<Described::by_another_first_member>},
    {{0x6a0a2b0e, 0x5a3f, 0x4c61, {0x9d, 0x53, 0x0f, 0x3c, 0x1b, 0x7f, 0x5a, 0x23}}, make_translator<Described::by_dispinterface>},
    {{0x6a0a2b0e, 0x5a3f, 0x4c61, {0x9d, 0x53, 0x0f, 0x3c, 0x1b, 0x7f, 0x5a, 0x24}}, make_translator<Described::not_at_all>},
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
                                  Factory(classes[3]), Factory(classes[4]), Factory(classes[5]),
                                  Factory(classes[6]), Factory(classes[7]), Factory(classes[8])};
    static_assert(std::size(factories) == std::size(classes));
    *object = nullptr;
    for (std::size_t i = 0; i < std::size(classes); ++i)
        if (classes[i].id == id) return factories[i].QueryInterface(iid, object);
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return prottest::live_objects == 0 ? S_OK : S_FALSE; }
