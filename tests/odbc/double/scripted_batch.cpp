#include "tests/odbc/double/scripted_batch.h"

#include <thread>
#include <utility>

namespace prot::odbc_double {

namespace {

/// The rows of a script or of the statement itself, and how they end.
class ScriptedRows : public Result {
public:
    /// own: null where the rows are the script's.
    ScriptedRows(const ScriptedResult& script, std::unique_ptr<Result> own, Line& line)
        : script_(script), own_(std::move(own)), line_(line) {}

    const std::vector<Column>& columns() const override { return own_ ? own_->columns() : script_.columns; }

    std::optional<Row> next_row() override {
        if (std::optional<Row> row = row_of_either()) {
            ++handed_over_;
            return row;
        }
        line_.is_lost = line_.is_lost || script_.is_lost;
        if (!script_.failure.empty()) throw Failure(script_.failure);
        line_.require();
        return std::nullopt;
    }

    std::int64_t changed_rows() const override { return own_ ? own_->changed_rows() : script_.count; }
    bool is_nothing() const override { return own_ && own_->is_nothing(); }
    std::vector<Record> warnings() const override { return script_.warnings; }

private:
    std::optional<Row> row_of_either() {
        if (own_) return handed_over_ < script_.own_rows ? own_->next_row() : std::nullopt;
        if (handed_over_ < script_.rows.size()) return script_.rows[handed_over_];
        return std::nullopt;
    }

    const ScriptedResult& script_;
    const std::unique_ptr<Result> own_;
    Line& line_;
    std::size_t handed_over_ = 0;
};

}  // namespace

void hang(std::chrono::milliseconds time, const Patience& patience) {
    using Clock = std::chrono::steady_clock;
    const auto begin = Clock::now();
    const auto end = begin + time;
    while (Clock::now() < end) {
        if (patience.is_cancelled) throw Failure("HY008", 0, "Operation canceled");
        if (patience.limit.count() > 0 && Clock::now() - begin >= patience.limit)
            throw Failure("HYT00", 0, "Query timeout expired");
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

void Line::require() const {
    if (is_lost) throw Failure("08S01", 10054, "Communication link failure");
}

ScriptedBatch::ScriptedBatch(std::shared_ptr<const Rule> rule, std::function<std::unique_ptr<Batch>()> own,
                             const Patience& patience, Line& line)
    : rule_(std::move(rule)), make_own_(std::move(own)), patience_(patience), line_(line) {}

std::unique_ptr<Result> ScriptedBatch::next_result() {
    if (next_ >= rule_->results.size()) return own_ ? own_->next_result() : nullptr;
    const ScriptedResult& script = rule_->results[next_++];
    hang(script.hang, patience_);
    std::unique_ptr<Result> own = script.is_own ? own_result() : nullptr;
    const bool has_rows = !(own ? own->columns() : script.columns).empty();
    auto result = std::make_unique<ScriptedRows>(script, std::move(own), line_);
    if (!has_rows) result->next_row();  // where there are no rows, it fails at once
    return result;
}

std::unique_ptr<Result> ScriptedBatch::own_result() {
    if (!own_) own_ = make_own_();
    return own_->next_result();
}

}  // namespace prot::odbc_double
