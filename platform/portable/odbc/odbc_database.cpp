#include "platform/portable/odbc/odbc_database.h"

#include <utility>

#include "platform/automation/date_text.h"
#include "platform/portable/odbc/odbc_connections.h"
#include "platform/portable/odbc/odbc_queries.h"
#include "platform/portable/odbc/odbc_row_stream.h"
#include "platform/portable/odbc/odbc_rows.h"
#include "platform/portable/tsql/tsql_translations.h"

namespace prot {

namespace {

class OdbcDatabase : public HostDatabase {
public:
    explicit OdbcDatabase(OdbcSource source) : access_(source.access), connections_(std::move(source)) {}

    Value query_value(std::string_view sql) override {
        const TsqlStatement& query = require_query(sql);
        OdbcStatement statement(connections_.with_room(), sql);
        run_query(statement, query);
        OdbcRows rows(statement);
        RowSet first(rows.columns().size());
        return rows.read(first) && first.columns() > 0 ? first.at(0, 0).value() : Value();
    }

    RowSet query_array(std::string_view sql) override {
        return std::move(query(sql, OdbcDates::as_dates).rows);
    }

    std::unique_ptr<RowStream> query_rows(std::string_view sql) override {
        connections_.require();
        return std::make_unique<OdbcRowStream>(connections_, sql);
    }

    void execute(std::string_view sql) override {
        connections_.require();
        if (access_ == OdbcAccess::read_only) require_temporary(sql);
        deleted_rows_ = run_batch(connections_.first(), sql);
    }

    std::string date_literal(Date date) override { return '\'' + literal_text(date) + '\''; }

    std::string like_wildcard() override { return "%"; }

    void begin_lookups() override {
        connections_.require();
        begin_reading(connections_.first());
    }
    void end_lookups() noexcept override { end_reading(connections_.first()); }

    void require_connection() override { connections_.require(); }

    std::string server_name() override { return connections_.first().server_name(); }

    StoredRows query_stored(std::string_view sql) override { return query(sql, OdbcDates::as_stored); }

    std::int64_t deleted_rows() override { return deleted_rows_; }

    void begin_transaction() override {
        connections_.require();
        connections_.first().begin_transaction();
    }
    void commit() override { connections_.first().commit(); }
    void rollback() noexcept override { connections_.first().rollback(); }

private:
    bool is_sqlite() { return connections_.first().server() == OdbcServer::sqlite; }

    /// Whatever the server's rights say, a query is one SELECT that changes nothing.
    const TsqlStatement& require_query(std::string_view sql) {
        connections_.require();
        return translations_.of_query(sql);
    }

    StoredRows query(std::string_view sql, OdbcDates dates) {
        const TsqlStatement& query = require_query(sql);
        OdbcStatement statement(connections_.with_room(), sql);
        run_query(statement, query);
        OdbcRows rows(statement, dates);
        StoredRows result;
        for (const OdbcColumn& column : rows.columns()) result.columns.push_back(column.name);
        result.rows = RowSet(result.columns.size());
        while (rows.read(result.rows)) {
        }
        statement.finish();  // an error behind the last row
        return result;
    }

    // The form that SQL Server reads alike under every language and DATEFORMAT; SQLite compares texts, as its
    // columns hold them. Source: SQL Server, "ISO 8601" in the documentation of datetime.
    std::string literal_text(Date date) {
        if (is_sqlite()) return iso_text(to_civil(date));
        std::string text = iso_text(date);
        text[10] = 'T';
        return text;
    }

    const OdbcAccess access_;
    OdbcConnections connections_;
    TsqlTranslations translations_;
    std::int64_t deleted_rows_ = 0;
};

}  // namespace

std::unique_ptr<HostDatabase> open_odbc_database(OdbcSource source) {
    return std::make_unique<OdbcDatabase>(std::move(source));
}

}  // namespace prot
