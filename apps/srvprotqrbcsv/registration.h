#pragma once

#include <windows.h>

/// The registry entries of the library: classes, interfaces, type library.
namespace prot {

/// Where entries live: for everyone on the machine, or for the current user alone.
enum class RegistrationScope { machine, user };

/// Writes all entries; on failure none is left. Needs the right to write there.
HRESULT register_server(RegistrationScope scope) noexcept;

/// Removes them; entries that are not there are no failure. The type library of the other word size, which
/// shares a key on 64-bit systems, keeps its own.
HRESULT unregister_server(RegistrationScope scope) noexcept;

}  // namespace prot
