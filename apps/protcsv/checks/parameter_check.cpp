#include "apps/protcsv/checks/parameter_check.h"

#include "apps/protcsv/checks/parameter_keys.h"

namespace prot {

namespace {

bool refuses(Command command, const Finding& finding) {
    return command == Command::delete_log || (command == Command::run && finding.selects_more);
}

}  // namespace

std::string about(std::string_view item) { return "--params: „" + std::string(item) + "“"; }

std::string lacks_colon(std::string_view item, std::string_view name) {
    return about(key_of(item)) + ": gleich hinter dem Schlüssel muss ein Doppelpunkt stehen; schreiben Sie " +
           std::string(name) + ":WERT";
}

CheckResult check_parameters(Command command, std::string_view parameters, const LogRequest& request,
                             SectionTable sections, Database& database, Environment& environment) {
    CheckResult result;
    result.understood = understand(parameters, sections, request.section, command == Command::delete_log,
                                   database, environment);
    const std::vector<HostItem> items = host_items(parameters, environment);
    const CheckedText text{command, parameters, request, sections, result.understood, items};
    for (const auto check : {check_host_keys, check_section_keys, check_other_items})
        for (Finding& finding : check(text)) {
            result.refused = result.refused || refuses(command, finding);
            result.lines.push_back(std::move(finding.sentence));
        }
    return result;
}

}  // namespace prot
