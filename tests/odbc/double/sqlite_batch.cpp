#include "tests/odbc/double/sqlite_batch.h"

#include <regex>
#include <set>
#include <utility>

#include "platform/automation/letter_case.h"
#include "platform/portable/sqlite/sqlite_statements.h"
#include "platform/portable/sqlite/sqlite_temporary_table.h"
#include "tests/odbc/double/sqlite_result.h"

namespace prot::odbc_double {

namespace {

/// SQL Server's words for what SQLite says: its message's beginning, whose rest is a name. Source: SQL
/// Server, list of database engine errors.
struct Wording {
    std::string_view start;
    const char* state;
    SQLINTEGER number;
    const char* before;
    const char* behind;
};
constexpr Wording wordings[] = {
    {"no such table: ", "42S02", 208, "Invalid object name '", "'."},
    {"no such column: ", "42S22", 207, "Invalid column name '", "'."},
    {"ambiguous column name: ", "42000", 209, "Ambiguous column name '", "'."},
    {"table ", "42S01", 2714, "There is already an object named '", "' in the database."},
    {"database is locked", "HY000", 1222, "Lock request time out period exceeded", "."},
};

/// Literals 'yyyy-mm-ddThh:mm:ss', with or without a fraction, as the columns of dates hold them. The text
/// stays as long.
std::string with_blanks_in_dates(std::string text) {
    static const std::regex date(R"('\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d(\.\d+)?')");
    constexpr std::size_t place_of_t = 11;  // behind the apostrophe
    for (std::sregex_iterator at(text.begin(), text.end(), date), end; at != end; ++at)
        text[static_cast<std::size_t>(at->position()) + place_of_t] = ' ';
    return text;
}

bool is_setting(const std::string& text) {
    static const std::regex settings(R"(SET DEADLOCK_PRIORITY LOW; SET LOCK_TIMEOUT (-1|\d+))");
    return std::regex_match(text, settings);
}

constexpr std::string_view count_before = "SELECT COUNT_BIG(*) FROM (";
constexpr std::string_view count_behind = ") AS counted";

/// The columns of a derived table have names, each its own.
void require_names(SqliteConnection& connection, const TsqlStatement& query) {
    const PreparedStatement statement = prepare(connection, query.text, query.source);
    std::set<std::string> names;
    for (int column = 0; column < sqlite3_column_count(statement.get()); ++column) {
        const std::string name = sqlite3_column_name(statement.get(), column);
        if (!names.insert(to_upper(name)).second)
            throw Failure("42000", 8156,
                          "The column '" + name + "' was specified multiple times for 'counted'.");
    }
}

TsqlStatement counting(SqliteConnection& connection, std::string_view text) {
    text.remove_prefix(count_before.size());
    text.remove_suffix(count_behind.size());
    TsqlStatement query = translate_query(text);
    require_names(connection, query);
    query.text = "SELECT count(*) FROM (" + query.text + ")";
    return query;
}

bool is_deletion(const TsqlStatement& statement) { return statement.text.starts_with("DELETE"); }

}  // namespace

void raise_sqlite_failure(SqliteConnection& connection) {
    const std::string_view message = sqlite3_errmsg(connection.handle());
    for (const Wording& wording : wordings) {
        if (!message.starts_with(wording.start)) continue;
        std::string name(message.substr(wording.start.size()));
        if (wording.number == 2714) name.erase(std::min(name.find(" already exists"), name.size()));
        throw Failure(wording.state, wording.number, wording.before + name + wording.behind);
    }
    throw Failure("HY000", 50000, std::string(message));
}

SqliteBatch::SqliteBatch(SqliteConnection& connection, std::string_view text)
    : connection_(connection), text_(with_blanks_in_dates(std::string(text))) {}

std::unique_ptr<Result> SqliteBatch::next_result() {
    if (is_setting(text_)) return next_++ == 0 ? std::make_unique<Count>(-1) : nullptr;
    if (!std::exchange(is_translated_, true)) translate();
    if (next_ >= statements_.size()) return nullptr;
    const TsqlStatement& statement = statements_[next_++];
    try {
        return run(statement);
    } catch (const AutomationError&) {
        raise_sqlite_failure(connection_);
    }
}

void SqliteBatch::translate() {
    try {
        if (text_.starts_with(count_before) && text_.ends_with(count_behind))
            statements_.push_back(counting(connection_, text_));
        else
            statements_ = translate_tsql(text_);
    } catch (const AutomationError& error) {
        throw Failure("42000", 102, "Incorrect syntax: " + error.description());
    }
}

std::unique_ptr<Result> SqliteBatch::run(const TsqlStatement& statement) {
    if (statement.kind == TsqlStatement::Kind::query)
        return std::make_unique<SqliteResult>(connection_, statement);
    if (statement.kind == TsqlStatement::Kind::fill_temporary_table) {
        fill_temporary_table(connection_, statement);
        return std::make_unique<Count>(sqlite3_changes64(connection_.handle()));
    }
    const PreparedStatement prepared = prepare(connection_, statement.text, statement.source);
    SqliteRun(connection_, prepared.get(), statement.parameters, statement.source).finish();
    return std::make_unique<Count>(is_deletion(statement) ? sqlite3_changes64(connection_.handle()) : -1);
}

}  // namespace prot::odbc_double
