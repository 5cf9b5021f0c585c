#pragma once

#include <oaidl.h>

#include <array>
#include <memory>
#include <optional>
#include <string>

#include "platform/database.h"

namespace prot {

/// A host's database object.
class HostDatabase : public Database {
public:
    /// Ten texts about the connection; nothing when the host has no such service (the member is missing, or
    /// answers E_NOTIMPL).
    virtual std::optional<std::array<std::string, 10>> connection_info(int code) = 0;
};

/// The database object that a host handed over: by interface IProtDatabase when it has that (`iid`; members
/// in the order QueryValue, QueryArray, Execute, DateLiteral, LikeWildcard, ConnectionInfo), by name
/// otherwise. Null, or an object without the members: automation error 91 or 438, which names what is
/// missing. Missing members are found before any statement is sent.
std::unique_ptr<HostDatabase> host_database(IDispatch* object);

}  // namespace prot
