#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "apps/protcsv/console/interruption.h"
#include "apps/protcsv/deletion/selected_records.h"
#include "platform/forwarding_database.h"
#include "platform/host_database.h"

namespace prot {

/// What went from the log.
struct Deleted {
    std::int64_t records = 0;
    std::int64_t memos = 0;
};

/// What is kept of records before they go.
class DeletionArchive {
public:
    virtual ~DeletionArchive() = default;

    /// Keeps the records, safe from a loss of power, or raises an error; then nothing goes. No transaction is
    /// open.
    virtual void keep(const SelectedRecords& records) = 0;

    /// Of the records that are kept: ids in ascending order, number of memo texts.
    virtual const std::vector<std::int64_t>& ids() const = 0;
    virtual std::int64_t memos() const = 0;

    /// What became of the log: the records went, they did not (what was kept goes again), or nobody knows.
    virtual void records_went(const Deleted& deleted) noexcept = 0;
    virtual void nothing_went() noexcept = 0;
    virtual void outcome_is_unknown() noexcept = 0;
};

/// Stands between an exporter that deletes and the database. Counts what goes. With an archive, the
/// exporter's statements run in one transaction, and only records that the archive holds go: what is selected
/// and what went is compared with it, and any difference undoes all.
class Deletion : public ForwardingDatabase {
public:
    /// statements: where the exporter's go. database: the one behind them. archive: null for none.
    Deletion(Database& statements, HostDatabase& database, DeletionArchive* archive)
        : ForwardingDatabase(statements), statements_(statements), database_(database), archive_(archive) {}
    ~Deletion() override;

    Value query_value(std::string_view sql) override;
    void execute(std::string_view sql) override;

    /// How many there are of what the exporter has counted.
    Deleted found();

    /// What has gone so far; nothing before the first statement that deletes is done. With an archive, all or
    /// nothing.
    const std::optional<Deleted>& deleted() const { return deleted_; }

    /// Whether the records themselves have gone.
    bool is_complete() const { return is_complete_; }

private:
    void begin(std::string_view sql);
    void run(std::string_view sql);
    void finish();
    void undo() noexcept;

    Database& statements_;
    HostDatabase& database_;
    DeletionArchive* const archive_;
    std::optional<SelectedRecords> counted_, going_;
    std::int64_t records_found_ = 0;
    std::optional<Deleted> deleted_;
    Deleted so_far_;
    bool is_complete_ = false;
    bool keeps_ = false;  // the archive holds something whose fate is open
    bool in_transaction_ = false;
    std::optional<InterruptionsWait>
        wait_;  // from the transaction's beginning until the archive knows its end
};

}  // namespace prot
