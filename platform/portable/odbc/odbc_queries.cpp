#include "platform/portable/odbc/odbc_queries.h"

#include <string>

#include "platform/automation/text_forms.h"
#include "platform/automation/text_parts.h"
#include "platform/portable/odbc/odbc_rows.h"
#include "platform/portable/tsql/tsql_order.h"

namespace prot {

namespace {

bool is_sqlite(const OdbcStatement& statement) {
    return statement.connection().server() == OdbcServer::sqlite;
}

/// SQLite takes an unknown name in quotation marks for a text, unless its configuration says otherwise, which
/// no driver can be asked for; one in backticks never. Source: SQLite, "Double-quoted string literals are
/// accepted".
std::string with_strict_names(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char quote = text[at];
        if (quote != '\'' && quote != '"') {
            result += quote;
            continue;
        }
        std::size_t end = text.find(quote, at + 1);
        while (end + 1 < text.size() && text[end + 1] == quote) end = text.find(quote, end + 2);
        const std::string_view inside = text.substr(at + 1, end - at - 1);
        if (quote == '"')
            append_quoted(result, replaced(std::string(inside), "\"\"", "\""), '`');
        else
            result.append(1, quote).append(inside).append(1, quote);
        at = end;
    }
    return result;
}

/// The columns of a temporary table have the types that SQLite derives: numbers compare as before; texts may
/// heed letter case.
void fill_temporary_table(OdbcConnection& connection, const TsqlStatement& statement) {
    std::string table = "CREATE TEMPORARY TABLE ";
    append_quoted(table, statement.temporary_table, '`');
    OdbcStatement fill(connection, statement.source);
    fill.run(table + " AS " + with_strict_names(statement.text), statement.parameters);
}

bool deletes(const TsqlStatement& statement) { return statement.text.starts_with("DELETE"); }

}  // namespace

void run_query(OdbcStatement& statement, const TsqlStatement& query) {
    if (is_sqlite(statement))
        statement.run(with_strict_names(query.text), query.parameters);
    else
        statement.run(query.source);
}

std::int64_t count_rows(OdbcStatement& statement, const TsqlStatement& query) {
    const auto counted = [](std::string_view counter, std::string_view text) {
        return "SELECT " + std::string(counter) + " FROM (" + std::string(without_order(text)) +
               ") AS counted";
    };
    if (is_sqlite(statement))
        statement.run(counted("count(*)", with_strict_names(query.text)), query.parameters);
    else
        statement.run(counted("COUNT_BIG(*)", query.source));
    OdbcRows rows(statement);
    RowSet row(rows.columns().size());
    return rows.read(row) ? static_cast<std::int64_t>(val(to_text(row.at(0, 0).value()))) : 0;
}

std::int64_t run_batch(OdbcConnection& connection, std::string_view sql) {
    if (connection.server() != OdbcServer::sqlite) {
        OdbcStatement batch(connection, sql);
        batch.run(sql);
        batch.finish();
        return batch.changed_rows();
    }
    std::int64_t deleted = 0;
    for (const TsqlStatement& statement : translate_tsql(sql)) {
        if (statement.kind == TsqlStatement::Kind::fill_temporary_table) {
            fill_temporary_table(connection, statement);
            continue;
        }
        OdbcStatement one(connection, statement.source);
        one.run(with_strict_names(statement.text), statement.parameters);
        one.finish();
        if (deletes(statement)) deleted = one.changed_rows();
    }
    return deleted;
}

// A read transaction of SQLite's begins with the first read in it, so one is made at once. The temporary
// tables that were made in it stay.
void begin_reading(OdbcConnection& connection) {
    if (connection.server() != OdbcServer::sqlite) return;
    constexpr std::string_view first_read = "SELECT 1 FROM sqlite_master LIMIT 1";
    connection.run("BEGIN");
    try {
        OdbcStatement first(connection, first_read);
        first.run(first_read);
        OdbcRows rows(first);
        RowSet row(rows.columns().size());
        rows.read(row);
    } catch (...) {
        connection.rollback();
        throw;
    }
}

void end_reading(OdbcConnection& connection) noexcept {
    if (connection.server() != OdbcServer::sqlite) return;
    try {
        connection.run("COMMIT");
    } catch (const std::exception&) {
        connection.rollback();
    }
}

void require_temporary(std::string_view sql) {
    for (const TsqlStatement& statement : translate_tsql(sql))
        if (deletes(statement))
            throw odbc_error({}, "Diese Verbindung darf nichts ändern. Anweisung: " + std::string(sql));
}

}  // namespace prot
