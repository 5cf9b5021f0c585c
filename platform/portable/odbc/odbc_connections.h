#pragma once

#include <memory>
#include <vector>

#include "platform/portable/odbc/odbc_connection.h"

namespace prot {

/// The connections of one database object, in the order in which they were needed: the first has the
/// temporary tables. Where a connection keeps one open result, whoever asks while rows are read on it gets
/// another one.
class OdbcConnections {
public:
    /// Opens the first.
    explicit OdbcConnections(OdbcSource source);

    OdbcConnection& first() { return *connections_.front(); }

    /// The first one that has room for a further result; opened when there is none.
    OdbcConnection& with_room();

    /// Raises the failure of any of them.
    void require() const { failure_.require(); }

private:
    OdbcConnection& open();

    const OdbcSource source_;
    OdbcFailure failure_;
    std::vector<std::unique_ptr<OdbcConnection>> connections_;
};

}  // namespace prot
