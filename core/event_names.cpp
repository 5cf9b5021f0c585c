#include "core/event_names.h"

#include <array>
#include <string>

#include "platform/automation/error.h"

namespace prot {

namespace {
constexpr std::array<std::string_view, 3> names = {"angelegt", "geändert", "gelöscht"};
std::array<std::string_view, 3> table;
}  // namespace

void fill_event_names() { table = names; }

std::string_view event_name(std::int32_t dlEvent) {
    if (dlEvent < 0 || static_cast<std::size_t>(dlEvent) >= table.size())
        throw AutomationError(ErrorNumber::index_out_of_range,
                              "Index außerhalb des gültigen Bereichs: Ereignis " + std::to_string(dlEvent));
    return table[static_cast<std::size_t>(dlEvent)];
}

}  // namespace prot
