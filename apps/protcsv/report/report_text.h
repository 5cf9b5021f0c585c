#pragma once

#include <optional>
#include <string>

#include "apps/protcsv/options/options.h"
#include "apps/protcsv/report/run_account.h"
#include "core/section_table.h"

namespace prot {

/// The version of the report's format: raised when a field changes its meaning or goes, not for new ones.
inline constexpr int report_format = 1;

/// What every report begins with.
inline constexpr std::string_view report_beginning = "{\n  \"report\": ";

/// A run's report. status: its exit status; nothing: it has not ended.
std::string report_text(const Options& options, SectionTable sections, RunAccount& account,
                        std::optional<int> status);

/// A parameter text with three asterisks for the value of each item pwd.
std::string without_passwords(std::string_view parameters);

}  // namespace prot
