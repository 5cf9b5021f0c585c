#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/automation/error.h"
#include "platform/row_stream.h"

namespace prot::test {

/// Rows in the batches that a test prepared, which tells what was asked of it. A batch may be a failure.
class ScriptedRows : public RowStream {
public:
    struct Batch {
        RowSet rows;
        std::optional<AutomationError> failure{};
    };

    ScriptedRows(std::vector<Batch> batches, std::vector<std::string>& calls, std::int64_t expected = 0)
        : batches_(std::move(batches)), calls_(calls), expected_(expected) {}
    ~ScriptedRows() override { calls_.emplace_back("rows end"); }

    const RowSet& next_batch() override {
        calls_.emplace_back("batch");
        if (next_ == batches_.size()) return none_;
        const Batch& batch = batches_[next_];
        if (batch.failure) throw AutomationError(*batch.failure);
        ++next_;
        return batch.rows;
    }
    void release() override {
        calls_.emplace_back("release");
        next_ = 0;
    }
    std::int64_t expected_rows() override {
        calls_.emplace_back("expect");
        return expected_;
    }

private:
    const std::vector<Batch> batches_;
    std::vector<std::string>& calls_;
    const std::int64_t expected_;
    const RowSet none_;
    std::size_t next_ = 0;
};

}  // namespace prot::test
