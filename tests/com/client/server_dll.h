#pragma once

#include <srvprotqrbcsv.h>
#include <windows.h>

#include <string>

#include "platform/windows/com/com_ptr.h"

namespace prot::test {

/// Full path of the server under test: the environment variable PROT_SERVER_DLL, else the one built along.
std::wstring server_path();

/// The server as a client loads it, without any registration.
class ServerDll {
public:
    ServerDll() { load(); }
    ~ServerDll();
    ServerDll(const ServerDll&) = delete;
    ServerDll& operator=(const ServerDll&) = delete;

    HRESULT get_class_object(REFCLSID class_id, REFIID iid, void** object) const;
    HRESULT can_unload_now() const;
    HRESULT register_server() const;
    HRESULT unregister_server() const;
    HRESULT install(bool install, const wchar_t* scope) const;

    /// A new object of the class, by the interface; null when that fails.
    template <class Interface>
    ComPtr<Interface> create(REFCLSID class_id) const {
        ComPtr<Interface> object;
        if (const auto made = factory(class_id)) {
            void* found = nullptr;
            if (SUCCEEDED(made->CreateInstance(nullptr, __uuidof(Interface), &found)))
                object = ComPtr<Interface>::adopt(static_cast<Interface*>(found));
        }
        return object;
    }
    ComPtr<IClassFactory> factory(REFCLSID class_id) const;

    /// Gives the library back; whether the process is then rid of it.
    bool unload();
    /// Loads it again.
    void load();

private:
    HMODULE module_ = nullptr;
};

}  // namespace prot::test
