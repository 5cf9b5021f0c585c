#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "apps/protcsv/checks/understood_text.h"
#include "apps/protcsv/options/options.h"
#include "apps/protcsv/options/run_parameters.h"

namespace prot {

/// What a parameter text says and a run would not do, or would do otherwise.
struct Finding {
    std::string
        sentence;  ///< one German line: the item as it is written, what is wrong, what to write instead
    bool selects_more = true;  ///< the run would select more than the text says, or something else
};

/// What a check looks at; all of it outlives the check.
struct CheckedText {
    Command command;
    std::string_view parameters;
    const LogRequest& request;
    SectionTable sections;
    const UnderstoodText& understood;
    const std::vector<HostItem>& host_items;
};

using Findings = std::vector<Finding>;

/// The findings about items of the section's own keys.
Findings check_section_keys(const CheckedText& text);
/// About items that begin with none of them, and about what is no item at all.
Findings check_other_items(const CheckedText& text);
/// About the keys that the unattended host reads.
Findings check_host_keys(const CheckedText& text);

/// The lines for a person.
struct CheckResult {
    std::vector<std::string> lines;
    bool refused = false;  ///< the run must not take place
    UnderstoodText understood;
};

/// Checks a text that is not empty before a run of `command`. A deletion is refused for each finding, `run`
/// for those that select more than they say, an export for none.
CheckResult check_parameters(Command command, std::string_view parameters, const LogRequest& request,
                             SectionTable sections, Database& database, Environment& environment);

/// The beginning of each sentence: "--params: „ITEM“".
std::string about(std::string_view item);

/// What is said of an item whose key, `name`, stands there without its colon.
std::string lacks_colon(std::string_view item, std::string_view name);

}  // namespace prot
