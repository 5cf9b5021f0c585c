#include "tests/odbc/double/connection.h"

#include <thread>
#include <utility>

#include "tests/odbc/double/sqlite_batch.h"
#include "tests/odbc/double/sqlite_result.h"

namespace prot::odbc_double {

namespace {

std::string value_of(const ConnectionString& keywords, std::string_view keyword) {
    const std::string* const value = keywords.find(keyword);
    return value != nullptr ? *value : std::string();
}

/// What the server does by itself when it is told something.
class Action : public Batch {
public:
    explicit Action(const std::function<void()>& action) : action_(action) {}

    std::unique_ptr<Result> next_result() override {
        action_();
        return std::make_unique<Count>(0);
    }

private:
    const std::function<void()>& action_;
};

}  // namespace

void Connection::connect(std::string_view connection_string) {
    const ConnectionString keywords(connection_string);
    server_ = value_of(keywords, "Server");
    database_ = value_of(keywords, "Database");
    script_ = Script::of_file(value_of(keywords, "Script"));
    journal_.emplace(value_of(keywords, "Journal"));
    tell("[connect]", [this] {
        try {
            sqlite_ = std::make_unique<SqliteConnection>(database_, SqliteAccess::read_write);
        } catch (const AutomationError& error) {
            throw Failure("42000", 4060, "Cannot open database: " + error.description());
        }
    });
}

void Connection::disconnect() {
    if (!sqlite_) return;
    sqlite_.reset();
    journal_->write("[disconnect]");
}

std::unique_ptr<Batch> Connection::send(const void* statement, std::string_view text,
                                        const Patience& patience) {
    require();
    require_no_results();
    const std::string line = one_line(text);
    journal_->write(line);
    const auto rule = script_->rule_for(line);
    pass_time();
    if (!has_autocommit_) begin_transaction();
    active_ = statement;
    if (!rule) return std::make_unique<SqliteBatch>(*sqlite_, text);
    return std::make_unique<ScriptedBatch>(
        rule,
        [this, own_text = std::string(text)] { return std::make_unique<SqliteBatch>(*sqlite_, own_text); },
        patience, line_);
}

void Connection::tell(const std::string& event, const std::function<void()>& action) {
    require();
    journal_->write(event);
    const auto rule = script_->rule_for(event);
    pass_time();
    if (!rule) return action();
    const Patience patience;
    ScriptedBatch batch(
        rule, [&action] { return std::make_unique<Action>(action); }, patience, line_);
    if (const auto result = batch.next_result()) add(result->warnings());
}

/// A thread sleeps longer than it asks to, much longer on a busy machine; what it has slept too long the next
/// texts have less to take.
void Connection::pass_time() {
    using Clock = std::chrono::steady_clock;
    time_left_ += script_->delay();
    if (time_left_.count() <= 0) return;
    const auto begin = Clock::now();
    std::this_thread::sleep_for(time_left_);
    time_left_ -= Clock::now() - begin;
}

void Connection::require_no_results() const {
    if (active_ != nullptr) throw Failure("HY000", 0, "Connection is busy with results for another command");
}

void Connection::set_isolation(SQLUINTEGER level) {
    require();
    require_no_results();
    journal_->write("[isolation " + std::to_string(level) + "]");
}

// Source: ODBC, SQLSetConnectAttr: what is open is committed by it.
void Connection::set_autocommit(bool on) {
    require();
    require_no_results();
    journal_->write(on ? "[autocommit on]" : "[autocommit off]");
    if (on && !has_autocommit_) control("COMMIT");
    has_autocommit_ = on;
}

void Connection::end_transaction(bool commit) {
    require();
    require_no_results();
    tell(commit ? "[commit]" : "[rollback]", [&] {
        const bool is_open = sqlite3_get_autocommit(sqlite_->handle()) == 0;
        if (is_open && !control(commit ? "COMMIT" : "ROLLBACK")) raise_sqlite_failure(*sqlite_);
    });
}

/// A transaction begins with the first text in it.
void Connection::begin_transaction() {
    if (sqlite3_get_autocommit(sqlite_->handle()) != 0 && !control("BEGIN IMMEDIATE"))
        raise_sqlite_failure(*sqlite_);
}

bool Connection::control(const char* statement) const {
    return sqlite3_exec(sqlite_->handle(), statement, nullptr, nullptr, nullptr) == SQLITE_OK;
}

}  // namespace prot::odbc_double
