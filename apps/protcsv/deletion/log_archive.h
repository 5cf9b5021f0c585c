#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "apps/protcsv/deletion/archive_file.h"
#include "apps/protcsv/deletion/deletion.h"
#include "apps/protcsv/report/run_account.h"

namespace prot {

/// What an archive has others do.
struct ArchiveMakers {
    /// Exports the selection into the folder, by way of the account; raises an error when the file would lack
    /// anything.
    std::function<void(const std::filesystem::path& folder)> export_into;
    /// The text of the receipt, from the account. status: exit status of the run; nothing: it goes on.
    std::function<std::string(std::optional<int> status)> receipt;
};

/// A folder of the owner's alone with the records of a deletion: an SQLite file with their rows and what
/// explains them, a CSV file for reading, a receipt. All of it is read back and flushed before anything goes.
class LogArchive : public DeletionArchive {
public:
    /// place: the archive's folder; where that name is taken, it gets -2, -3 and so on. Nothing is replaced.
    LogArchive(std::filesystem::path place, std::int32_t section, HostDatabase& source, RunAccount& account,
               ArchiveMakers makers);

    void keep(const SelectedRecords& records) override;
    const std::vector<std::int64_t>& ids() const override { return ids_; }
    std::int64_t memos() const override { return memos_; }
    void records_went(const Deleted& deleted) noexcept override;
    void nothing_went() noexcept override;
    void outcome_is_unknown() noexcept override;

    /// What could not be written behind the deletion; empty: all is well.
    const std::string& trouble() const { return trouble_; }

    static constexpr std::string_view database_name = "archiv.db";
    static constexpr std::string_view receipt_name = "beleg.json";

private:
    void copy_rows(const SelectedRecords& records);
    void copy_piece(ArchiveFile& file, const SelectedRecords& records, std::span<const std::int64_t> ids);
    void copy_explanations(ArchiveFile& file);
    void export_csv();
    void write_receipt(std::optional<int> status);
    void finish(std::string_view state, std::optional<int> status) noexcept;
    void flush();
    void name_unfinished_files();

    const std::filesystem::path place_;
    const std::int32_t section_;
    HostDatabase& source_;
    RunAccount& account_;
    const ArchiveMakers makers_;

    std::filesystem::path folder_;    // empty: not made
    std::vector<std::string> files_;  // in it, to be removed when nothing went
    std::vector<std::int64_t> ids_;
    std::int64_t memos_ = 0;
    std::set<std::string> tables_;  // dcTable of the records
    std::string trouble_;
};

}  // namespace prot
