#pragma once

#include <windows.h>

#include <string>

/// The loaded library: where it lies, and how many of its objects and locks keep it in memory.
namespace prot::module {

/// Called once, when the library is loaded.
void set_instance(HINSTANCE instance) noexcept;

/// Full path of the library's file.
std::wstring path();

void lock() noexcept;
void unlock() noexcept;
/// Whether no object and no lock is left.
bool can_unload() noexcept;

/// Keeps the library in memory for as long as it lives; a member of every object that clients hold.
class Reference {
public:
    Reference() noexcept { lock(); }
    ~Reference() { unlock(); }
    Reference(const Reference&) = delete;
    Reference& operator=(const Reference&) = delete;
};

}  // namespace prot::module
