#include "tests/unit/platform/database_contract/implementations.h"

namespace prot {

namespace {
constexpr DatabaseImplementation implementations[] = {
    {"Sqlite", start_sqlite, true, true},
    {"SqliteReadingAhead", start_sqlite_that_reads_ahead, true, true},
    {"SqliteThroughOdbc", start_sqlite_through_odbc, true, false},
#ifndef _WIN32
    {"SqlServerDouble", start_sql_server_double, false, true},
#endif
};
}  // namespace

std::span<const DatabaseImplementation> database_implementations() { return implementations; }

}  // namespace prot
