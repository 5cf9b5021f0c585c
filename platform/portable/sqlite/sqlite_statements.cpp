#include "platform/portable/sqlite/sqlite_statements.h"

#include <cstdint>
#include <limits>
#include <string>
#include <variant>

#include "platform/portable/sqlite/sqlite_problem.h"

namespace prot {

namespace {

struct Binder {
    sqlite3_stmt* statement;
    int index;

    int operator()(std::int64_t integer) const { return sqlite3_bind_int64(statement, index, integer); }
    int operator()(double real) const { return sqlite3_bind_double(statement, index, real); }
    int operator()(const std::string& text) const {
        return sqlite3_bind_text64(statement, index, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
    }
};

}  // namespace

PreparedStatement prepare(SqliteConnection& connection, std::string_view text, std::string_view source) {
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        throw sqlite_error(SQLITE_TOOBIG, "Die Anweisung ist länger als 2 GB.");
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(connection.handle(), text.data(), static_cast<int>(text.size()),
                                        SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    if (code != SQLITE_OK) connection.raise(source);
    return PreparedStatement(statement);
}

SqliteRun::SqliteRun(SqliteConnection& connection, sqlite3_stmt* statement,
                     const std::vector<TsqlParameter>& parameters, std::string_view source)
    : connection_(connection), statement_(statement), source_(source) {
    int index = 0;
    for (const TsqlParameter& parameter : parameters)
        if (std::visit(Binder{statement, ++index}, parameter) != SQLITE_OK) connection.raise(source);
}

SqliteRun::~SqliteRun() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

bool SqliteRun::next_row() {
    switch (sqlite3_step(statement_)) {
        case SQLITE_ROW:
            return true;
        case SQLITE_DONE:
            return false;
        default:
            connection_.raise(source_);
    }
}

sqlite3_stmt* SqliteStatements::find_or_prepare(std::string_view text, std::string_view source) {
    const auto known = by_text_.find(text);
    if (known != by_text_.end()) {
        shapes_.splice(shapes_.begin(), shapes_, known->second);
        return known->second->statement.get();
    }
    shapes_.push_front({std::string(text), prepare(connection_, text, source)});
    by_text_.emplace(shapes_.front().text, shapes_.begin());
    if (shapes_.size() > capacity) {
        by_text_.erase(shapes_.back().text);
        shapes_.pop_back();
    }
    return shapes_.front().statement.get();
}

}  // namespace prot
