#include "tests/com/client/server_dll.h"

#include <stdexcept>

#include "platform/windows/system/system_names.h"
#include "platform/windows/text/wide_text.h"

namespace prot::test {

namespace {

template <class Function>
Function exported(HMODULE module, const char* name) {
    const auto address = GetProcAddress(module, name);
    if (!address) throw std::runtime_error(std::string("The server does not export ") + name);
    return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

}  // namespace

std::wstring server_path() {
    std::string path = environment_text("PROT_SERVER_DLL");
    if (path.empty()) path = PROT_SERVER_DLL;
    if (path.starts_with('/'))
        path.insert(0, "Z:");  // of a build on another system, whose root Wine calls Z:
    for (char& letter : path)
        if (letter == '/') letter = '\\';
    return to_wide(path);
}

void ServerDll::load() {
    module_ = LoadLibraryW(server_path().c_str());
    if (!module_)
        throw std::runtime_error("The server cannot be loaded: error " + std::to_string(GetLastError()));
}

ServerDll::~ServerDll() {
    if (module_) FreeLibrary(module_);
}

HRESULT ServerDll::get_class_object(REFCLSID class_id, REFIID iid, void** object) const {
    return exported<decltype(&DllGetClassObject)>(module_, "DllGetClassObject")(class_id, iid, object);
}

HRESULT ServerDll::can_unload_now() const {
    return exported<decltype(&DllCanUnloadNow)>(module_, "DllCanUnloadNow")();
}

HRESULT ServerDll::register_server() const {
    return exported<HRESULT(STDAPICALLTYPE*)()>(module_, "DllRegisterServer")();
}

HRESULT ServerDll::unregister_server() const {
    return exported<HRESULT(STDAPICALLTYPE*)()>(module_, "DllUnregisterServer")();
}

HRESULT ServerDll::install(bool install, const wchar_t* scope) const {
    return exported<HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR)>(module_, "DllInstall")(install, scope);
}

ComPtr<IClassFactory> ServerDll::factory(REFCLSID class_id) const {
    void* found = nullptr;
    return SUCCEEDED(get_class_object(class_id, IID_IClassFactory, &found))
               ? ComPtr<IClassFactory>::adopt(static_cast<IClassFactory*>(found))
               : ComPtr<IClassFactory>();
}

bool ServerDll::unload() {
    if (!FreeLibrary(std::exchange(module_, nullptr))) return false;
    return GetModuleHandleW(server_path().c_str()) == nullptr;
}

}  // namespace prot::test
