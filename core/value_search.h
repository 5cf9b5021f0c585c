#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/lookup_memory.h"
#include "platform/database.h"
#include "platform/environment.h"

/// Where the value of a record at a moment may stand: in the documents of its changes, or in its table. The
/// log is always tProtokoll here, whatever the section's log table.
namespace prot {

/// The document of the first change of the value at or after `moment`, whose old value was in force then;
/// empty when it has not changed since.
std::string first_change(const ValueKey& key, Date moment, Database& oDBU);

/// The document of the record's deletion, if that tells the value; else empty.
std::string deletion_of(const ValueKey& key, Database& oDBU);

/// The statement that reads the live value.
std::string live_search(const ValueKey& key);

/// The old value of a column in a change document, read directly: the text NULL stays. Nothing when the
/// document does not load.
std::optional<std::string> old_value(std::string_view document, std::string_view column,
                                     Environment& environment);

}  // namespace prot
