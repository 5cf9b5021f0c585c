#include "platform/portable/odbc/odbc_connections.h"

#include <algorithm>
#include <utility>

namespace prot {

OdbcConnections::OdbcConnections(OdbcSource source) : source_(std::move(source)) { open(); }

OdbcConnection& OdbcConnections::with_room() {
    const auto found =
        std::ranges::find_if(connections_, [](const auto& connection) { return connection->has_room(); });
    return found != connections_.end() ? **found : open();
}

/// A further connection that the server refuses is a failure of the object: look-ups that could not be asked
/// must not pass for ones that found nothing.
OdbcConnection& OdbcConnections::open() try {
    return *connections_.emplace_back(std::make_unique<OdbcConnection>(source_, failure_));
} catch (const AutomationError& error) {
    failure_.set(error);
    throw;
}

}  // namespace prot
