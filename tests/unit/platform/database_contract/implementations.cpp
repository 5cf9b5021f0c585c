#include "tests/unit/platform/database_contract/implementations.h"

namespace prot {

namespace {
constexpr DatabaseImplementation implementations[] = {
    {"Sqlite", start_sqlite, true},
};
}  // namespace

std::span<const DatabaseImplementation> database_implementations() { return implementations; }

}  // namespace prot
