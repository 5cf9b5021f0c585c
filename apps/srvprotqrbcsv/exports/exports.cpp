#include <windows.h>

#include <olectl.h>

#include <string_view>

#include "apps/srvprotqrbcsv/class_factory.h"
#include "apps/srvprotqrbcsv/module.h"
#include "apps/srvprotqrbcsv/registration.h"

using prot::RegistrationScope;

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) prot::module::set_instance(instance);
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID class_id, REFIID iid, LPVOID* object) {
    return prot::class_factory(class_id, iid, object);
}

STDAPI DllCanUnloadNow() { return prot::module::can_unload() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return prot::register_server(RegistrationScope::machine); }

STDAPI DllUnregisterServer() { return prot::unregister_server(RegistrationScope::machine); }

/// regsvr32 /n /i:user installs for the current user, /n /i for the machine; /u removes again.
STDAPI DllInstall(BOOL install, LPCWSTR scope_name) {
    const std::wstring_view name = scope_name ? scope_name : L"";
    if (!name.empty() && name != L"user") return E_INVALIDARG;
    const auto scope = name.empty() ? RegistrationScope::machine : RegistrationScope::user;
    return install ? prot::register_server(scope) : prot::unregister_server(scope);
}
