#pragma once

#include <string_view>

#include "apps/protcsv/console/console.h"
#include "apps/protcsv/displays/choose_displays.h"
#include "apps/protcsv/options/options.h"
#include "core/section_table.h"

/// What the commands do. Each returns the exit status; AutomationError and UsageError, which a person reads
/// as one line, reach the caller.
namespace prot {

inline constexpr int exit_done = 0;
inline constexpr int exit_error = 1;
inline constexpr int exit_usage = 2;
inline constexpr int exit_cancelled = 3;
inline constexpr int exit_incomplete = 4;  ///< written, but something that should be in the file is not
inline constexpr int exit_no_data = 5;     ///< there is nothing to be written, and that was not to be

inline constexpr std::string_view standard_output_refuses =
    "Die Standardausgabe lässt sich nicht beschreiben.";

/// Writes `text` to standard output; an error when it does not arrive.
int print(const Console& console, std::string_view text);

/// Writes one line of the program's own to standard error.
void complain(const Console& console, std::string_view text);

/// In a catch block only: tells what was caught. The exit status.
int tell_failure(const Console& console);

int print_sections(const Console& console, SectionTable sections);

/// Writes the sample database beside its place and moves it there; an existing file is replaced only when
/// asked for.
int write_sample(const Options& options, const Console& console);

/// export, delete and run: opens the database and runs the section's exporter. An error of the run itself is
/// shown as a problem report. On success standard output gets the path of the finished file. `displays` makes
/// those of the run.
int run_log(
    const Options& options, const Console& console, SectionTable sections,
    const MakeDisplays& displays = [](const DisplayMeans& means) { return choose_displays(means); });

/// Whether the parameter text of an unattended run chooses anything in the section; true for any other run.
/// Shows nothing.
bool parameters_fit(const Options& options, const Console& console, SectionTable sections);

/// export: the same for each of its sections, one after the other, if the parameter text fits them all. Ends
/// with the gravest of their exit statuses; a person who cancels one cancels those behind it.
int run_sections(const Options& options, const Console& console, SectionTable sections);

}  // namespace prot
