#include "apps/srvprotqrbcsv/module.h"

#include <atomic>
#include <system_error>

namespace prot::module {

namespace {
HINSTANCE own_instance = nullptr;
std::atomic<long> references = 0;
}  // namespace

void set_instance(HINSTANCE instance) noexcept { own_instance = instance; }

std::wstring path() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD size = GetModuleFileNameW(own_instance, path.data(), static_cast<DWORD>(path.size()));
        if (size == 0) throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
        if (size < path.size()) {
            path.resize(size);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

void lock() noexcept { ++references; }
void unlock() noexcept { --references; }
bool can_unload() noexcept { return references == 0; }

}  // namespace prot::module
