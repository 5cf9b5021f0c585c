#pragma once

#include <functional>
#include <string>

#include "apps/protcsv/console/console.h"
#include "apps/protcsv/options/options.h"
#include "apps/protcsv/report/run_account.h"
#include "core/section_table.h"

namespace prot {

/// What a run left in the world, as --report FILE writes it: one JSON object, described in the handbook.
class RunReport {
public:
    /// All of them outlive it. Raises UsageError when the report's place is that of another file of the run,
    /// or of a file that is no earlier report.
    RunReport(const Options& options, const Console& console, SectionTable sections, RunAccount& account);

    /// Runs `run`, which returns the exit status, and writes the report, also when it raises an error.
    /// Returns the exit status, that of an error when the report cannot be written. A file says that the run
    /// did not end until it has, so that no earlier report passes for that of a run that was killed; when
    /// that cannot be written, AutomationError, and nothing is run.
    int around(const std::function<int()>& run);

private:
    bool wanted() const { return !options_.report.empty(); }
    bool end(int status) noexcept;
    void write(const std::string& text) const;

    const Options& options_;
    const Console& console_;
    SectionTable sections_;
    RunAccount& account_;
};

}  // namespace prot
