#pragma once

#include <string>

#include "apps/protcsv/options/options.h"

/// The files of a run must not take each other's place, nor that of a file that none of them replaces. Each
/// function raises UsageError.
namespace prot {

/// The log of statements replaces an earlier one only.
void require_own_statement_log(const Options& options);

/// The report replaces an earlier one only.
void require_own_report(const Options& options);

/// `output`: where the CSV file will be.
void require_own_output(const Options& options, const std::string& output);

}  // namespace prot
