#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "apps/protcsv/commands.h"
#include "apps/protcsv/options/usage_error.h"
#include "platform/automation/text_parts.h"

namespace prot {

namespace {

const Section& section_of(const Options& options, SectionTable sections) {
    return *std::ranges::find(sections, options.request.section, &Section::number);
}

std::vector<Options> one_for_each(const Options& options, SectionTable sections) {
    std::vector<Options> runs;
    for (const std::int32_t number : options.sections) {
        Options& one = runs.emplace_back(options);
        one.sections = {number};
        one.request.section = number;
        const std::string_view name = section_of(one, sections).name;
        one.report = replaced(one.report, "{section}", name);
        one.statement_log = replaced(one.statement_log, "{section}", name);
    }
    return runs;
}

std::string title_of(const Options& options, SectionTable sections) {
    return std::string(section_of(options, sections).title);
}

/// How grave a status is beside others.
std::ptrdiff_t weight_of(int status) {
    constexpr int by_weight[] = {exit_done,      exit_no_data, exit_incomplete,
                                 exit_cancelled, exit_usage,   exit_error};
    return std::ranges::find(by_weight, status) - std::begin(by_weight);
}

/// What ends one section does not end those behind it.
int status_of(const Options& options, const Console& console, SectionTable sections) {
    try {
        return run_log(options, console, sections);
    } catch (...) {
        return tell_failure(console);
    }
}

}  // namespace

int run_sections(const Options& options, const Console& console, SectionTable sections) {
    if (options.sections.size() < 2) return run_log(options, console, sections);
    const std::vector<Options> runs = one_for_each(options, sections);
    for (const Options& one : runs)
        if (!parameters_fit(one, console, sections))
            throw UsageError("--params: der Text passt nicht zum Bereich " + title_of(one, sections));
    int gravest = exit_done;
    for (const Options& one : runs) {
        const int status = status_of(one, console, sections);
        if (weight_of(status) > weight_of(gravest)) gravest = status;
        if (status == exit_cancelled) break;
    }
    return gravest;
}

}  // namespace prot
