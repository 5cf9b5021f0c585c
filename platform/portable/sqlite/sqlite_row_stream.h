#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/portable/sqlite/read_ahead.h"
#include "platform/portable/sqlite/sqlite_database.h"
#include "platform/portable/sqlite/sqlite_rows.h"
#include "platform/portable/sqlite/sqlite_turns.h"
#include "platform/row_stream.h"

namespace prot {

/// The rows of a query in batches of 256, or of a megabyte of text where that comes first. The first batch is
/// fetched when it is asked for; the others may be read ahead.
class SqliteRowStream : public RowStream {
public:
    /// connection and turns outlive it.
    SqliteRowStream(SqliteConnection& connection, SqliteTurns& turns, std::string_view sql,
                    SqliteReading reading);
    ~SqliteRowStream() override;

    const RowSet& next_batch() override;
    void release() override;

    /// See sqlite_row_count.h.
    std::int64_t expected_rows() override;

private:
    const RowSet& fetch();
    void fill(RowSet& batch, const std::atomic<bool>& stop);
    bool reads_ahead();

    SqliteConnection& connection_;
    SqliteTurns& turns_;
    const std::string sql_;
    const TsqlStatement query_;
    const SqliteReading reading_;
    SqliteRows rows_;
    RowSet batch_;
    std::unique_ptr<ReadAhead> ahead_;
    std::int64_t handed_over_ = 0;  // rows
    int steps_of_first_rows_ = 0;   // of SQLite's machine
};

}  // namespace prot
