#pragma once

#include <windows.h>

/// The registry entries of the library: classes, interfaces, type library.
namespace prot {

/// Where entries live: for everyone on the machine, or for the current user alone.
enum class RegistrationScope { machine, user };

/// Writes all entries; on failure none is left. Needs the right to write there.
HRESULT register_server(RegistrationScope scope) noexcept;

/// Removes them; entries that are not there are no failure. While the library of the other word size is
/// registered, what both share on 64-bit systems stays: the names of the classes and the type library's key.
HRESULT unregister_server(RegistrationScope scope) noexcept;

}  // namespace prot
