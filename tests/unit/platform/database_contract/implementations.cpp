#include "tests/unit/platform/database_contract/implementations.h"

namespace prot {

namespace {
constexpr DatabaseImplementation implementations[] = {
    {"Sqlite", start_sqlite, true, true},
    {"SqliteReadingAhead", start_sqlite_that_reads_ahead, true, true},
#ifndef _WIN32  // for the tests of that system there is no driver that opens a file by its Windows name
    {"SqliteThroughOdbc", start_sqlite_through_odbc, true, false},
    {"SqlServerDouble", start_sql_server_double, false, true},
#endif
};
}  // namespace

std::span<const DatabaseImplementation> database_implementations() { return implementations; }

}  // namespace prot
