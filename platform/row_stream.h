#pragma once

#include <cstdint>
#include <utility>

#include "platform/row_set.h"

namespace prot {

/// The rows of one query, batch after batch, in the server's order. It must not outlive its database.
class RowStream {
public:
    virtual ~RowStream() = default;

    /// The next rows; none behind the last. Valid until the following call, of release too. Fails as the
    /// query does, at any batch.
    virtual const RowSet& next_batch() = 0;

    /// Holds nothing in the database any more. The next batch begins with the first row again, by the state
    /// that the database has then. A host's array stays as it is.
    virtual void release() = 0;

    /// How many rows there are, exactly or about; a progress may count up to it. Says nothing about whether
    /// there is a row.
    virtual std::int64_t expected_rows() = 0;
};

/// The rows of one whole array.
class ArrayStream : public RowStream {
public:
    explicit ArrayStream(RowSet rows) : rows_(std::move(rows)) {}

    const RowSet& next_batch() override { return std::exchange(handed_over_, true) ? none_ : rows_; }
    void release() override { handed_over_ = false; }
    std::int64_t expected_rows() override { return static_cast<std::int64_t>(rows_.rows()); }

private:
    const RowSet rows_;
    const RowSet none_;
    bool handed_over_ = false;
};

}  // namespace prot
