#include "apps/protcsv/statement_log.h"

#include <chrono>
#include <utility>

#include "apps/protcsv/report/json_text.h"
#include "platform/automation/error.h"
#include "platform/portable/files/paths.h"

namespace prot {

namespace {

using Steady = std::chrono::steady_clock;

/// Adds the time of its life to `time`.
class Stopwatch {
public:
    explicit Stopwatch(Steady::duration& time) : time_(time) {}
    ~Stopwatch() { time_ += Steady::now() - start_; }
    Stopwatch(const Stopwatch&) = delete;
    Stopwatch& operator=(const Stopwatch&) = delete;

private:
    Steady::duration& time_;
    const Steady::time_point start_ = Steady::now();
};

}  // namespace

/// What is written about one statement.
class StatementLog::Line {
public:
    Line(StatementLog& log, std::string_view operation, std::string_view sql)
        : file_(log.file_), fields_({{"nr", ++log.sent_}, {"op", operation}, {"sql", sql}}) {}

    /// Calls the database for the statement. A failure ends the line.
    template <typename Call>
    decltype(auto) timed(Call call) {
        try {
            const Stopwatch running(time_);
            return call();
        } catch (const std::exception& error) {
            write(error.what());
            throw;
        }
    }

    void set_rows(std::size_t rows) { fields_["rows"] = rows; }

    /// Writes the line, with the words of the error that there was, if any; only once.
    void write(const char* error = nullptr) {
        if (std::exchange(written_, true)) return;
        const auto microseconds = std::chrono::duration_cast<std::chrono::microseconds>(time_);
        fields_["ms"] = static_cast<double>(microseconds.count()) / 1000;
        if (error != nullptr) fields_["error"] = error;
        file_ << json_text(fields_) << std::endl;
    }

    /// Writes what there is. A line that is lost leaves an incomplete file.
    void give_up() noexcept {
        try {
            write();
        } catch (const std::exception&) {
            file_.setstate(std::ios::badbit);
        }
    }

private:
    std::ostream& file_;
    nlohmann::ordered_json fields_;
    Steady::duration time_{};
    bool written_ = false;
};

/// Rows of a query that is written down with the last of them.
class StatementLog::LoggedRows : public RowStream {
public:
    LoggedRows(std::unique_ptr<RowStream> behind, std::unique_ptr<Line> line)
        : behind_(std::move(behind)), line_(std::move(line)) {}
    ~LoggedRows() override { line_->give_up(); }

    const RowSet& next_batch() override {
        if (std::exchange(begins_, false)) rows_ = 0;
        const RowSet& batch = line_->timed([this]() -> const RowSet& { return behind_->next_batch(); });
        rows_ += batch.rows();
        line_->set_rows(rows_);
        if (batch.empty()) line_->write();
        return batch;
    }

    void release() override {
        behind_->release();
        begins_ = true;
    }

    std::int64_t expected_rows() override { return behind_->expected_rows(); }

private:
    std::unique_ptr<RowStream> behind_;
    std::unique_ptr<Line> line_;
    std::size_t rows_ = 0;
    bool begins_ = true;  // with the first row, at the next batch
};

StatementLog::StatementLog(Database& database, const std::string& path)
    : ForwardingDatabase(database), path_(path), file_(text_path(path), std::ios::binary | std::ios::trunc) {
    if (!file_)
        throw AutomationError(ErrorNumber::file,
                              "Die Datei „" + path_ + "“ lässt sich nicht zum Schreiben öffnen.");
}

void StatementLog::close() {
    file_.close();
    if (!file_)
        throw AutomationError(ErrorNumber::file, "Die Datei „" + path_ + "“ ist unvollständig geschrieben.");
}

Value StatementLog::query_value(std::string_view sql) {
    Line line(*this, "value", sql);
    Value value = line.timed([&] { return ForwardingDatabase::query_value(sql); });
    line.write();
    return value;
}

RowSet StatementLog::query_array(std::string_view sql) {
    Line line(*this, "array", sql);
    RowSet rows = line.timed([&] { return ForwardingDatabase::query_array(sql); });
    line.set_rows(rows.rows());
    line.write();
    return rows;
}

std::unique_ptr<RowStream> StatementLog::query_rows(std::string_view sql) {
    auto line = std::make_unique<Line>(*this, "array", sql);
    auto rows = line->timed([&] { return ForwardingDatabase::query_rows(sql); });
    return std::make_unique<LoggedRows>(std::move(rows), std::move(line));
}

void StatementLog::execute(std::string_view sql) {
    Line line(*this, "execute", sql);
    line.timed([&] { ForwardingDatabase::execute(sql); });
    line.write();
}

}  // namespace prot
