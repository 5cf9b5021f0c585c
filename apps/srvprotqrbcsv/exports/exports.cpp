#include <windows.h>
BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID) { return TRUE; }
STDAPI DllCanUnloadNow() { return S_FALSE; }
STDAPI DllGetClassObject(REFCLSID, REFIID, LPVOID*) { return E_FAIL; }
STDAPI DllRegisterServer() { return S_OK; }
STDAPI DllUnregisterServer() { return S_OK; }
STDAPI DllInstall(BOOL, LPCWSTR) { return S_OK; }
