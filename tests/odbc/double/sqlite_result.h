#pragma once

#include <optional>
#include <string>

#include "platform/portable/sqlite/sqlite_statements.h"
#include "tests/odbc/double/result.h"

namespace prot::odbc_double {

/// The rows of a query in SQLite. A column's type is the declared one; an expression's is that of its value
/// in the first row.
class SqliteResult : public Result {
public:
    /// Fetches the first row. connection and query outlive it.
    SqliteResult(SqliteConnection& connection, const TsqlStatement& query);

    const std::vector<Column>& columns() const override { return columns_; }
    std::optional<Row> next_row() override;

private:
    Column column(int number) const;
    bool step();

    SqliteConnection& connection_;
    PreparedStatement statement_;
    SqliteRun run_;
    std::vector<Column> columns_;
    bool has_row_ = false;
    bool is_first_ = true;
};

/// A statement without rows.
class Count : public Result {
public:
    /// rows: that it changed; -1: it changes none.
    explicit Count(std::int64_t rows) : rows_(rows) {}

    const std::vector<Column>& columns() const override { return none_; }
    std::optional<Row> next_row() override { return std::nullopt; }
    std::int64_t changed_rows() const override { return rows_; }
    bool is_nothing() const override { return rows_ < 0; }

private:
    const std::vector<Column> none_;
    const std::int64_t rows_;
};

}  // namespace prot::odbc_double
