#include "platform/portable/sqlite/sqlite_row_stream.h"

#include <system_error>

#include "platform/portable/sqlite/sqlite_row_count.h"

namespace prot {

namespace {

constexpr std::size_t rows_of_batch = 256;
constexpr std::size_t text_of_batch = std::size_t{1} << 20;
constexpr std::size_t rows_of_turn = 8;  // of a thread that reads ahead

}  // namespace

SqliteRowStream::SqliteRowStream(SqliteConnection& connection, SqliteTurns& turns, std::string_view sql,
                                 SqliteReading reading)
    : connection_(connection),
      turns_(turns),
      sql_(sql),
      query_(translate_query(sql_)),
      reading_(reading),
      rows_(connection, query_) {}

SqliteRowStream::~SqliteRowStream() { release(); }

const RowSet& SqliteRowStream::next_batch() {
    const RowSet& batch = ahead_ || reads_ahead() ? ahead_->next() : fetch();
    handed_over_ += static_cast<std::int64_t>(batch.rows());
    return batch;
}

const RowSet& SqliteRowStream::fetch() {
    batch_.clear();
    fill(batch_, false);
    if (handed_over_ == 0)
        steps_of_first_rows_ = sqlite3_stmt_status(rows_.statement(), SQLITE_STMTSTATUS_VM_STEP, 1);
    return batch_;
}

void SqliteRowStream::fill(RowSet& batch, const std::atomic<bool>& stop) {
    while (!stop && batch.rows() < rows_of_batch && batch.text_bytes() < text_of_batch && !rows_.at_end()) {
        const SqliteTurns::OfReader turn(turns_);
        rows_.read(batch, rows_of_turn);
    }
}

/// Whether the rows from here on are read ahead. A system without room for a further thread reads on demand.
bool SqliteRowStream::reads_ahead() {
    const bool is_first = handed_over_ == 0;
    if (reading_ == SqliteReading::on_demand || is_first || rows_.at_end()) return false;
    try {
        ahead_ = std::make_unique<ReadAhead>(
            [this](RowSet& batch, const std::atomic<bool>& stop) { fill(batch, stop); });
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}

void SqliteRowStream::release() {
    if (ahead_) sqlite3_interrupt(connection_.handle());  // a long search for the next row
    ahead_.reset();
    const SqliteTurns::OfRun turn(turns_);
    rows_.restart();
    handed_over_ = 0;
}

std::int64_t SqliteRowStream::expected_rows() {
    const SqliteTurns::OfRun turn(turns_);
    const bool all_handed_over = !ahead_ && rows_.at_end();
    if (all_handed_over) return handed_over_;
    return expected_rows_of(connection_, query_, rows_.statement(), steps_of_first_rows_);
}

}  // namespace prot
