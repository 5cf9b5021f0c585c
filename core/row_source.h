#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "core/log_row.h"
#include "platform/row_set.h"

namespace prot {

/// The records of the main log query, one after another, however the database hands them over.
class RowSource {
public:
    virtual ~RowSource() = default;

    /// Records that lack a column of the log: automation error 9. Asked before a file is opened.
    virtual void require_log_columns() const = 0;

    /// The number that the host gives the first record, and how many there are; only its progress counts so.
    virtual std::int64_t first_number() const = 0;
    virtual std::int64_t count() const = 0;

    /// The next record, valid until the following call; null behind the last.
    virtual const LogRow* next() = 0;
};

/// The records of one whole array.
class ArrayRows : public RowSource {
public:
    explicit ArrayRows(RowSet rows) : rows_(std::move(rows)) {}
    ArrayRows(const ArrayRows&) = delete;
    ArrayRows& operator=(const ArrayRows&) = delete;

    void require_log_columns() const override { rows_.require_columns(log_columns); }
    std::int64_t first_number() const override { return rows_.first_row(); }
    std::int64_t count() const override { return static_cast<std::int64_t>(rows_.rows()); }
    const LogRow* next() override {
        if (next_ == rows_.rows()) return nullptr;
        row_ = LogRow(rows_, next_++);
        return &row_;
    }

private:
    RowSet rows_;
    std::size_t next_ = 0;
    LogRow row_{rows_, 0};
};

}  // namespace prot
