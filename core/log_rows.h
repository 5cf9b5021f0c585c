#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

#include "core/log_row.h"
#include "platform/row_stream.h"

namespace prot {

/// The records of the main log query, one after another.
class LogRows {
public:
    /// Fetches the first rows.
    explicit LogRows(std::unique_ptr<RowStream> stream)
        : stream_(std::move(stream)), batch_(&stream_->next_batch()), first_number_(batch_->first_row()) {}
    LogRows(const LogRows&) = delete;
    LogRows& operator=(const LogRows&) = delete;

    /// For the first rows, before release and next: whether there is none; records that lack a column of the
    /// log are automation error 9.
    bool empty() const { return batch_->empty(); }
    void require_log_columns() const { batch_->require_columns(log_columns); }

    /// Holds nothing in the database while a person is asked. The records are read from the first one again.
    void release() {
        batch_ = nullptr;
        stream_->release();
    }

    /// The number that the host gives the first record, and how many there are, exactly or about; only its
    /// progress counts so.
    std::int64_t first_number() const { return first_number_; }
    std::int64_t expected_count() { return stream_->expected_rows(); }

    /// The next record, valid until the following call; null behind the last.
    const LogRow* next() {
        if (!batch_ || next_ == batch_->rows()) {
            batch_ = &stream_->next_batch();
            next_ = 0;
            if (batch_->empty()) return nullptr;
        }
        row_ = LogRow(*batch_, next_++);
        return &row_;
    }

private:
    std::unique_ptr<RowStream> stream_;
    const RowSet* batch_;  // null when released
    std::size_t next_ = 0;
    std::int64_t first_number_;
    LogRow row_{*batch_, 0};
};

}  // namespace prot
