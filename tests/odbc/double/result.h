#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/odbc/double/column_types.h"
#include "tests/odbc/double/diagnostics.h"

namespace prot::odbc_double {

/// A value as the text that the server would print for it; nothing: Null.
using Cell = std::optional<std::string>;
using Row = std::vector<Cell>;

/// One result of a batch: rows, or the number of rows that a statement changed.
class Result {
public:
    virtual ~Result() = default;

    /// None: the statement has no rows.
    virtual const std::vector<Column>& columns() const = 0;

    /// The next row; nothing behind the last. Raises a Failure.
    virtual std::optional<Row> next_row() = 0;

    /// -1: unknown.
    virtual std::int64_t changed_rows() const { return -1; }

    /// Whether it is one of those that some drivers answer with SQL_NO_DATA: SET and the like.
    virtual bool is_nothing() const { return false; }

    virtual std::vector<Record> warnings() const { return {}; }
};

/// The results of a text that was sent. A statement runs when its result is asked for.
class Batch {
public:
    virtual ~Batch() = default;

    /// The next result; null behind the last. Raises the Failure of that statement.
    virtual std::unique_ptr<Result> next_result() = 0;
};

}  // namespace prot::odbc_double
