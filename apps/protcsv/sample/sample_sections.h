#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "apps/protcsv/sample/sample_clients.h"
#include "apps/protcsv/sample/sample_log.h"
#include "apps/protcsv/sample/sample_tables.h"

namespace prot::sample {

/// What one log section adds to a sample database. Its changes come first, one by one; its master data are
/// written afterwards, as the changes left them.
class Section {
public:
    virtual ~Section() = default;

    /// Makes one change at `moment`, later than all before, and returns its log row, or the first of them.
    virtual LogRow log_change(Moment moment) = 0;

    /// Whether the latest change has more log rows, of other tables: log_change returns them next, with the
    /// moment of that change.
    virtual bool goes_on() const { return false; }

    /// Creates the section's own tables, and those it shares when they are not there; writes its records.
    virtual void write_master_data(SqliteFile& file) const = 0;

    virtual std::span<const Caption> captions() const = 0;
};

struct SectionKind {
    std::int32_t number;      ///< IDSysQuvoLogSections
    std::uint64_t stream;     ///< its chance: a number that no other section has, below 1000
    std::int64_t usual_rows;  ///< of the small log, and the section's share in a larger one
    /// rows: how many changes will be asked for. clients: of the whole database; they outlive the section.
    std::unique_ptr<Section> (*create)(Random random, std::int64_t rows, ClientBook& clients);
};

// Each in a file of its own.
std::unique_ptr<Section> create_exchange_rates(Random random, std::int64_t rows, ClientBook& clients);
/// Brings the clients; sections that need them stand behind it.
std::unique_ptr<Section> create_open_items(Random random, std::int64_t rows, ClientBook& clients);

std::unique_ptr<Section> create_customers(Random random, std::int64_t rows, ClientBook& clients);
std::unique_ptr<Section> create_suppliers(Random random, std::int64_t rows, ClientBook& clients);
std::unique_ptr<Section> create_report_frameworks(Random random, std::int64_t rows, ClientBook& clients);

/// All sections. A new one leaves the others their content, as every section has its own chance and its own
/// moments.
std::span<const SectionKind> section_kinds();

}  // namespace prot::sample
