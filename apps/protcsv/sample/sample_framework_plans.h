#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "apps/protcsv/sample/sample_frameworks.h"

/// Which report frameworks a sample database has, and what they and their positions are called.
namespace prot::sample {

/// Those whom the story is about, and what they are. Office frameworks are copies of the standard framework
/// with their type and mark.
enum FrameworkRole : std::size_t {
    balance_before,   ///< standard; the first version of the next one, under the same name
    balance,          ///< standard
    earnings,         ///< standard
    earnings_gone,    ///< standard; deleted in the story, with everything
    cash_new,         ///< standard; created in the story
    office_earnings,  ///< office
    office_gone,      ///< office; deleted in the story, with everything
    framework_role_count,
};

/// What is peculiar to one framework.
struct FrameworkPlan {
    std::string_view name = {};
    std::int32_t type = 0, kind = standard, mark = 0;
    Day valid_from = {}, valid_to = {};  ///< the null day: no limit
    enum { full, small, small_and_new, version_of_the_one_before } nature = full;
};

const FrameworkPlan& cast_plan(FrameworkRole role);

/// Those besides the cast that every sample database has.
std::span<const FrameworkPlan> known_plans();

/// One more for a larger database: a standard framework, and next its copy for the office.
FrameworkPlan later_plan(std::size_t number);
std::string later_name(std::size_t number);

/// One that is made, and perhaps deleted, while the log is written.
FrameworkPlan small_plan(std::size_t number);
std::string small_name(std::size_t number);

/// Of a position in frameworks of that type; no two entries have the same.
std::string position_name(std::int32_t type, std::int32_t entry);

/// The names of a list one after another, and then all again with a number.
std::string numbered(std::span<const std::string_view> names, std::size_t number);

}  // namespace prot::sample
