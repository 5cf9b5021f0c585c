#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "apps/protcsv/deletion/deletion.h"
#include "apps/protcsv/deletion/deletion_boxes.h"
#include "apps/protcsv/deletion/log_archive.h"
#include "apps/protcsv/host.h"
#include "apps/protcsv/options/options.h"
#include "apps/protcsv/report/run_account.h"
#include "core/section_table.h"

namespace prot {

/// What a run has besides when it deletes: what it says before and behind its question, the trial, the
/// archive.
class DeletionRun {
public:
    /// All of them outlive it.
    DeletionRun(const Options& options, SectionTable sections, RunAccount& account, Host& host,
                Displays& displays);

    MessageBoxes& boxes() { return boxes_; }

    /// The database that the exporter gets. statements: where its own go; database: behind them.
    /// export_selection: see SectionExporter.
    Database& stand_before(Database& statements, HostDatabase& database,
                           std::function<void()> export_selection);

    /// Lets go of the database; what is not at its end is undone.
    void step_aside();

    /// What became of it, in lines for a person; quiet: only what must be said.
    std::string end_text(bool quiet) const;

    /// Where the archive is; empty: there is none.
    const std::string& archive() const { return account_.deletion->folder; }

private:
    const Section& section() const;
    std::string subject() const;
    std::string trial();
    std::filesystem::path archive_place() const;
    void export_into(const std::filesystem::path& folder, const std::function<void()>& export_selection);

    const Options& options_;
    const SectionTable sections_;
    RunAccount& account_;
    Host& host_;
    DeletionBoxes boxes_;
    std::optional<LogArchive> archive_;
    std::optional<Deletion> deletion_;
};

}  // namespace prot
