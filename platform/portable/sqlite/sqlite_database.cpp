#include "platform/portable/sqlite/sqlite_database.h"

#include "platform/automation/date_text.h"
#include "platform/portable/files/paths.h"
#include "platform/portable/sqlite/sqlite_cells.h"
#include "platform/portable/sqlite/sqlite_connection.h"
#include "platform/portable/sqlite/sqlite_first_rows.h"
#include "platform/portable/sqlite/sqlite_problem.h"
#include "platform/portable/sqlite/sqlite_row_stream.h"
#include "platform/portable/sqlite/sqlite_statements.h"
#include "platform/portable/sqlite/sqlite_temporary_table.h"
#include "platform/portable/tsql/tsql_dialect.h"
#include "platform/portable/tsql/tsql_translations.h"

namespace prot {

namespace {

class SqliteDatabase : public HostDatabase {
public:
    SqliteDatabase(const std::string& path, SqliteAccess access, SqliteReading reading)
        : path_(path), connection_(path, access), reading_(reading) {}

    Value query_value(std::string_view sql) override {
        const SqliteTurns::OfRun turn(turns_);
        connection_.require();
        const TsqlStatement& query = translations_.of_query(sql);
        if (one_state_ && !query.text_with_place.empty()) return first_behind(query);
        SqliteRun run = start(query, query.text);
        return run.next_row() ? SqliteCells(run.statement()).read(0).value() : Value();
    }

    RowSet query_array(std::string_view sql) override {
        const SqliteTurns::OfRun turn(turns_);
        connection_.require();
        const TsqlStatement& query = translations_.of_query(sql);
        SqliteRun run = start(query, query.text);
        if (!run.next_row()) return {};
        const SqliteCells cells(run.statement());
        RowSet rows(cells.columns());
        do {
            cells.append_row(rows);
        } while (run.next_row());
        return rows;
    }

    std::unique_ptr<RowStream> query_rows(std::string_view sql) override {
        const SqliteTurns::OfRun turn(turns_);
        connection_.require();
        return std::make_unique<SqliteRowStream>(connection_, turns_, sql, reading_);
    }

    void execute(std::string_view sql) override {
        const SqliteTurns::OfRun turn(turns_);
        connection_.require();
        for (const TsqlStatement& statement : translate_tsql(sql)) {
            if (statement.kind == TsqlStatement::Kind::fill_temporary_table)
                fill_temporary_table(connection_, statement);
            else
                start(statement, statement.text).finish();
        }
    }

    std::string date_literal(Date date) override { return '\'' + iso_text(to_civil(date)) + '\''; }

    std::string like_wildcard() override { return "%"; }

    // A read transaction. SQLite locks the file at the first read in it, so one is made at once. Writers wait
    // meanwhile, as they do while a query runs.
    void begin_lookups() override {
        const SqliteTurns::OfRun turn(turns_);
        connection_.require();
        control("BEGIN");
        one_state_ = control("SELECT 1 FROM sqlite_master LIMIT 1");
        if (one_state_) return;
        const AutomationError error = last_error();
        control("ROLLBACK");
        throw error;
    }
    void end_lookups() noexcept override {
        const SqliteTurns::OfRun turn(turns_);
        one_state_ = false;
        first_rows_.clear();
        control("COMMIT");
    }

    void require_connection() override {
        const SqliteTurns::OfRun turn(turns_);
        connection_.require();
    }

    std::string server_name() override { return path_text(text_path(path_).filename()); }

    StoredRows query_stored(std::string_view sql) override {
        const SqliteTurns::OfRun turn(turns_);
        connection_.require();
        const TsqlStatement& query = translations_.of_query(sql);
        SqliteRun run = start(query, query.text);
        StoredRows result;
        const int columns = sqlite3_column_count(run.statement());
        for (int column = 0; column < columns; ++column)
            result.columns.emplace_back(sqlite3_column_name(run.statement(), column));
        result.rows = RowSet(result.columns.size());
        while (run.next_row())
            SqliteCells(run.statement(), SqliteCells::Dates::as_stored).append_row(result.rows);
        return result;
    }

    std::int64_t deleted_rows() override { return sqlite3_changes64(connection_.handle()); }

    void begin_transaction() override {
        const SqliteTurns::OfRun turn(turns_);
        connection_.require();
        if (!control("BEGIN IMMEDIATE")) throw last_error();
    }

    // What SQLite cannot commit is still open, and is undone here, or SQLite has undone it. An error behind
    // the moment that decides (the folder cannot be flushed) looks like the second.
    void commit() override {
        const SqliteTurns::OfRun turn(turns_);
        if (control("COMMIT")) return;
        const AutomationError error = last_error();
        if (control("ROLLBACK")) throw error;
        throw UnknownOutcome(error.number(), error.source(), error.description());
    }

    void rollback() noexcept override {
        const SqliteTurns::OfRun turn(turns_);
        control("ROLLBACK");
    }

private:
    AutomationError last_error() {
        const int code = sqlite3_extended_errcode(connection_.handle());
        return sqlite_error(code, describe_sqlite_problem(code, sqlite3_errmsg(connection_.handle())));
    }

    bool control(const char* statement) noexcept {
        return sqlite3_exec(connection_.handle(), statement, nullptr, nullptr, nullptr) == SQLITE_OK;
    }

    Value first_behind(const TsqlStatement& query) {
        if (const Value* const known = first_rows_.find(query)) return *known;
        SqliteRun run = start(query, query.text_with_place);
        if (!run.next_row()) {
            first_rows_.remember_none(query);
            return {};
        }
        const SqliteCells cells(run.statement());
        Value value = cells.read(0).value();
        first_rows_.remember(query, value, cells.text(1));
        return value;
    }

    /// text: that of the statement, or the one with the place.
    SqliteRun start(const TsqlStatement& statement, const std::string& text) {
        sqlite3_stmt* const prepared = statements_.find_or_prepare(text, statement.source);
        return {connection_, prepared, statement.parameters, statement.source};
    }

    const std::string path_;
    SqliteConnection connection_;
    SqliteTurns turns_;
    TsqlTranslations translations_;
    SqliteStatements statements_{connection_};
    SqliteFirstRows first_rows_;
    bool one_state_ = false;  // between begin_lookups and end_lookups
    const SqliteReading reading_;
};

}  // namespace

std::unique_ptr<HostDatabase> open_sqlite_database(const std::string& path, SqliteAccess access,
                                                   SqliteReading reading) {
    return std::make_unique<SqliteDatabase>(path, access, reading);
}

}  // namespace prot
