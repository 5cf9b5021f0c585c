#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/portable/odbc/odbc_connections.h"
#include "platform/portable/odbc/odbc_rows.h"
#include "platform/portable/odbc/odbc_statement.h"
#include "platform/row_stream.h"

namespace prot {

/// The rows of a query in batches of 256, or of a megabyte of text where that comes first, each fetched when
/// it is asked for.
class OdbcRowStream : public RowStream {
public:
    /// sql: as the caller wrote it; connections outlive it. Nothing is sent before the first batch.
    OdbcRowStream(OdbcConnections& connections, std::string_view sql);

    const RowSet& next_batch() override;
    void release() override;

    /// Counted on the server, on another connection, for a second at most; 0: that took longer.
    std::int64_t expected_rows() override;

private:
    void start();

    OdbcConnections& connections_;
    const std::string sql_;
    const TsqlStatement query_;
    std::optional<OdbcStatement> statement_;
    std::optional<OdbcRows> rows_;  // goes before its statement
    RowSet batch_;
    std::int64_t handed_over_ = 0;
    bool at_end_ = false;
};

}  // namespace prot
