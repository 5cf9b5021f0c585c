#include "platform/portable/sqlite/sqlite_file.h"

#include <sqlite3.h>

#include "platform/portable/sqlite/sqlite_problem.h"

namespace prot {

SqliteFile::SqliteFile(const std::string& path, std::string_view what) : path_(path), what_(what) {
    sqlite3* connection = nullptr;
    const int code =
        sqlite3_open_v2(path.c_str(), &connection, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    connection_.reset(connection);
    if (code != SQLITE_OK) fail();
    sqlite3_extended_result_codes(connection, 1);
}

void SqliteFile::execute(const std::string& sql) {
    if (sqlite3_exec(connection_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) fail();
}

std::int64_t SqliteFile::last_key() const { return sqlite3_last_insert_rowid(connection_.get()); }

void SqliteFile::close() {
    if (sqlite3_close(connection_.get()) != SQLITE_OK) fail();
    static_cast<void>(connection_.release());
}

void SqliteFile::fail() const {
    sqlite3* connection = connection_.get();
    const int code = connection == nullptr ? SQLITE_NOMEM : sqlite3_extended_errcode(connection);
    std::string reason(sqlite_problem_text(code, SqliteTask::creation));
    if (reason.empty())
        reason =
            reported_by_sqlite(connection == nullptr ? sqlite3_errstr(code) : sqlite3_errmsg(connection));
    throw sqlite_error(code, what_ + " „" + path_ + "“ kann nicht geschrieben werden: " + reason + ".");
}

void SqliteFile::Closer::operator()(sqlite3* connection) const noexcept { sqlite3_close_v2(connection); }

std::string insert_into(std::string_view table, std::size_t columns) {
    std::string sql = "INSERT INTO ";
    sql.append(table).append(" VALUES (?");
    while (--columns > 0) sql += ", ?";
    return sql + ")";
}

SqliteInsert::SqliteInsert(SqliteFile& file, std::string_view sql) : file_(file) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(file.connection_.get(), sql.data(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    statement_.reset(statement);
    if (code != SQLITE_OK) file.fail();
}

void SqliteInsert::row_of_texts(std::span<const std::optional<std::string>> values) {
    int index = 0;
    for (const std::optional<std::string>& value : values) bind(++index, value);
    step();
}

void SqliteInsert::row_of_cells(const RowSet& rows, std::size_t row) {
    for (std::size_t column = 0; column < rows.columns(); ++column)
        bind(static_cast<int>(column) + 1, rows.at(column, row));
    step();
}

void SqliteInsert::bind(int index, const Cell& cell) {
    switch (cell.type()) {
        case Cell::Type::integer:
            return bind_integer(index, cell.integer());
        case Cell::Type::real:
            return bind(index, cell.real());
        case Cell::Type::text:
            return bind(index, cell.text());
        case Cell::Type::null:
        case Cell::Type::date:
            return bind(index, std::nullopt);
    }
}

void SqliteInsert::bind(int index, std::nullopt_t) { sqlite3_bind_null(statement_.get(), index); }

// The caller's text outlives the step that follows, so SQLite needs no copy of its own.
void SqliteInsert::bind(int index, std::string_view text) {
    sqlite3_bind_text(statement_.get(), index, text.data() == nullptr ? "" : text.data(),
                      static_cast<int>(text.size()), SQLITE_STATIC);
}

void SqliteInsert::bind(int index, double number) { sqlite3_bind_double(statement_.get(), index, number); }

void SqliteInsert::bind_integer(int index, std::int64_t number) {
    sqlite3_bind_int64(statement_.get(), index, number);
}

void SqliteInsert::step() {
    if (sqlite3_step(statement_.get()) != SQLITE_DONE) file_.fail();
    sqlite3_reset(statement_.get());
}

void SqliteInsert::Finalizer::operator()(sqlite3_stmt* statement) const noexcept {
    sqlite3_finalize(statement);
}

}  // namespace prot
