#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/error.h"
#include "platform/database.h"

namespace prot {

/// The rows of a query as they are stored.
struct StoredRows {
    std::vector<std::string> columns;  ///< names
    RowSet rows;  ///< no date among the cells: it is the text or number that stands there
};

/// Nobody can tell whether a transaction came to its end or was undone.
class UnknownOutcome : public AutomationError {
    using AutomationError::AutomationError;
};

/// What the program's own database objects can do beyond what an exporter asks of one: copy rows, and delete
/// in one transaction.
class HostDatabase : public Database {
public:
    /// The name by which people know the server; of an SQLite file its name without folder.
    virtual std::string server_name() = 0;

    virtual StoredRows query_stored(std::string_view sql) = 0;

    /// Rows that the last DELETE deleted.
    virtual std::int64_t deleted_rows() = 0;

    /// Begins a transaction beside which nobody else can write; to be short. Not within look-ups, never
    /// nested.
    virtual void begin_transaction() = 0;

    /// Raises UnknownOutcome where nobody can tell what became of it; else a transaction whose commit fails
    /// is undone. Either way it has ended.
    virtual void commit() = 0;

    /// Undoes the transaction. A connection that is lost undoes it, too.
    virtual void rollback() noexcept = 0;
};

}  // namespace prot
