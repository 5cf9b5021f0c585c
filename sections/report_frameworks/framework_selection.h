#pragma once

#include <string>
#include <string_view>

#include "sections/report_frameworks/frameworks.h"

/// Which log rows belong to the frameworks of a filter. A row knows its immediate parents alone, so each
/// piece looks for them in two ways: through the live tables, and through the parents' own log rows where
/// those have been deleted.
namespace prot::report_frameworks {

/// The live ids of the chosen frameworks, a subselect in parentheses.
std::string framework_ids(const Filter& filter);

/// The condition that completes the main log query; sRahmenIds is framework_ids. A deletion (pbLoeschen)
/// takes the rows of frameworks, densities and report kinds too, which an export never shows, deliberately.
std::string msWHERE(const Filter& filter, std::string_view sRahmenIds, bool pbLoeschen);

/// What identifies the chosen frameworks among their own log rows.
std::string msSQL_ARaArt(const Filter& filter);

}  // namespace prot::report_frameworks
