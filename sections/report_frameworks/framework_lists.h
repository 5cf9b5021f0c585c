#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/database.h"
#include "platform/environment.h"
#include "platform/forms/form.h"
#include "sections/report_frameworks/frameworks.h"

/// What the filter form offers from the database.
namespace prot::report_frameworks {

struct ListedFramework {
    std::int32_t ARa_Id = 0;
    std::string name;
    Date ddGueltigVon, ddGueltigBis;  ///< the null date when open, or not known
};

/// The frameworks of the chosen type and kind.
std::vector<ListedFramework> live_frameworks(const Filter& chosen, Database& oDBU);

/// Likewise those that the log knows as deleted, in the order of their deletion, each as often as it was
/// deleted. A document that does not load tells of none.
std::vector<ListedFramework> deleted_frameworks(const Filter& chosen, Database& oDBU,
                                                Environment& environment);

/// By name.
std::vector<Entry> charts_of_accounts(Database& oDBU);

/// How a framework's entry goes on behind its name: the months from and to which it is valid, with a blank in
/// front. The null date is open; nothing is said when both are.
std::string msGueltigKeit(Date dtVon, Date dtBis);

}  // namespace prot::report_frameworks
