#include "platform/portable/odbc/odbc_row_stream.h"

#include "platform/portable/odbc/odbc_queries.h"
#include "platform/portable/tsql/tsql_order.h"

namespace prot {

namespace {

constexpr std::size_t rows_of_batch = 256;
constexpr std::size_t text_of_batch = std::size_t{1} << 20;
constexpr int seconds_of_counting = 1;

}  // namespace

OdbcRowStream::OdbcRowStream(OdbcConnections& connections, std::string_view sql)
    : connections_(connections), sql_(sql), query_(translate_query(sql_)) {}

const RowSet& OdbcRowStream::next_batch() {
    connections_.require();
    batch_.clear();
    if (at_end_) return batch_;
    if (!rows_) start();
    while (batch_.rows() < rows_of_batch && batch_.text_bytes() < text_of_batch) {
        if (rows_->read(batch_)) continue;
        at_end_ = true;
        statement_->finish();  // an error behind the last row
        rows_.reset();
        statement_.reset();
        break;
    }
    handed_over_ += static_cast<std::int64_t>(batch_.rows());
    return batch_;
}

void OdbcRowStream::start() {
    statement_.emplace(connections_.with_room(), sql_);
    run_query(*statement_, query_);
    rows_.emplace(*statement_);
    batch_ = RowSet(rows_->columns().size());
}

void OdbcRowStream::release() {
    rows_.reset();
    statement_.reset();
    at_end_ = false;
    handed_over_ = 0;
}

std::int64_t OdbcRowStream::expected_rows() {
    if (at_end_) return handed_over_;
    try {
        OdbcStatement statement(connections_.with_room(), sql_);
        statement.limit_time(seconds_of_counting);
        return count_rows(statement, query_);
    } catch (const AutomationError&) {
        return 0;  // what is wrong with the query shows when its rows are read
    }
}

}  // namespace prot
