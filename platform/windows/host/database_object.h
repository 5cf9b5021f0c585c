#pragma once

#include <oaidl.h>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/database.h"
#include "platform/windows/com/com_ptr.h"

namespace prot {

/// A host's database object.
class DatabaseObject : public Database {
public:
    explicit DatabaseObject(ComPtr<IDispatch> object) : host_object_(std::move(object)) {}

    /// The object itself.
    const ComPtr<IDispatch>& host_object() const { return host_object_; }

    /// Ten texts about the connection; nothing when the host has no such service (the member is missing, or
    /// answers E_NOTIMPL).
    virtual std::optional<std::array<std::string, 10>> connection_info(int code) = 0;

private:
    ComPtr<IDispatch> host_object_;
};

/// The database object that a host handed over: by interface IProtDatabase when it has that (`iid`; members
/// in the order QueryValue, QueryArray, Execute, DateLiteral, LikeWildcard, ConnectionInfo), by name
/// otherwise. Null, or an object without the members: automation error 91 or 438, which names what is
/// missing. Missing members are found before any statement is sent.
std::unique_ptr<DatabaseObject> database_object(IDispatch* object);

}  // namespace prot
