#include "tests/unit/platform/database_contract/implementations.h"

namespace prot {

namespace {
constexpr DatabaseImplementation implementations[] = {
    {"Sqlite", start_sqlite, true},
    {"SqliteReadingAhead", start_sqlite_that_reads_ahead, true},
};
}  // namespace

std::span<const DatabaseImplementation> database_implementations() { return implementations; }

}  // namespace prot
