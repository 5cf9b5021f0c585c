#pragma once

#include <string>
#include <string_view>

#include "apps/protcsv/options/options.h"

/// What is asked for, in words that a person reads.
namespace prot {

std::string period_text(const LogRequest& request);  ///< "01.01.2026 bis 31.01.2026", "alle Tage"
std::string user_text(const LogRequest& request);    ///< the name, or "alle"
std::string events_text(const LogRequest& request);  ///< "angelegt, gelöscht", "alle", "keine"

/// What stands above the fields of a filter form: what is chosen besides, and that a deletion deletes.
std::string form_notice(const LogRequest& request, bool deletes);

}  // namespace prot
