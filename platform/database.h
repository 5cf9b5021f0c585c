#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/automation/date.h"
#include "platform/automation/value.h"
#include "platform/row_set.h"
#include "platform/row_stream.h"

namespace prot {

/// The host's database, one connection for the length of a run. Statements are T-SQL text; temporary tables
/// live as long as the connection. Every call fails with an AutomationError that holds the server's number
/// and text, the statement being part of the description. Once the connection itself has failed, every
/// further statement is answered with that error.
class Database {
public:
    virtual ~Database() = default;

    /// The first column of the first row; Null when no row came back.
    virtual Value query_value(std::string_view sql) = 0;

    /// All rows, in the server's order; empty when no row came back.
    virtual RowSet query_array(std::string_view sql) = 0;

    /// Sends a query whose rows are then read in batches; the caller reads them before it ends with the
    /// database. The first rows may be fetched at once or by the first batch. A database that only has arrays
    /// fetches all.
    virtual std::unique_ptr<RowStream> query_rows(std::string_view sql) {
        return std::make_unique<ArrayStream>(query_array(sql));
    }

    /// Runs one statement or a batch of them, without a result.
    virtual void execute(std::string_view sql) = 0;

    /// `date` as a literal of the server's dialect, quotes included, to be placed bare into a statement.
    virtual std::string date_literal(Date date) = 0;

    /// The wildcard of LIKE for any run of characters.
    virtual std::string like_wildcard() = 0;

    /// A run of look-ups begins, without a person between them: until end_lookups they see one state of the
    /// database where the server can give that, and it may save the work of locking for each. Fails when the
    /// database is locked: some look-ups answer a failed statement with a default, which a lock must not
    /// become. Never nested.
    virtual void begin_lookups() {}
    virtual void end_lookups() noexcept {}

    /// Raises the connection's error when the connection has failed; sends nothing. A run asks this before it
    /// calls its result complete, because some lookups answer a failed statement with a default.
    virtual void require_connection() {}
};

}  // namespace prot
