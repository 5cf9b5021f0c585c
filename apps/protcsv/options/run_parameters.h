#pragma once

#include <string_view>

#include "apps/protcsv/options/options.h"
#include "platform/environment.h"

namespace prot {

/// The keys that the unattended host itself reads from a parameter text: sektion (number or name, required),
/// mitarbeiter, datvon, datbis, neu, aend, loe (1 or 0, ja or nein). The text is split at "/"; the first item
/// that begins with a key and a colon counts; values are trimmed, an empty one counts as not given. As soon
/// as one of neu, aend, loe is given the missing ones are 0; without any, all kinds are asked for. Raises
/// UsageError, which names the key.
LogRequest read_run_parameters(std::string_view parameters, SectionTable sections, Environment& environment);

}  // namespace prot
