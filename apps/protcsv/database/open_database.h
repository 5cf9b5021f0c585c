#pragma once

#include <memory>

#include "apps/protcsv/options/options.h"
#include "platform/host_database.h"

namespace prot {

/// Opens the database of a run: only a deletion that is no trial may write.
std::unique_ptr<HostDatabase> open_database(const Options& options);

/// What is said of the way to the database: "yes", "no" or "not asked for"; empty where there is none.
std::string_view encryption_of(const Options& options);

}  // namespace prot
