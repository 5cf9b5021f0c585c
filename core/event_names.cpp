#include "core/event_names.h"

#include <array>
#include <atomic>
#include <string>

#include "platform/automation/error.h"

namespace prot {

namespace {
constexpr std::array<std::string_view, 3> names = {"angelegt", "geändert", "gelöscht"};
// One for all threads of a host, which may run exporters side by side.
std::atomic<bool> filled = false;
}  // namespace

void fill_event_names() { filled = true; }

std::string_view event_name(std::int32_t dlEvent) {
    if (dlEvent < 0 || static_cast<std::size_t>(dlEvent) >= names.size())
        throw AutomationError(ErrorNumber::index_out_of_range,
                              "Index außerhalb des gültigen Bereichs: Ereignis " + std::to_string(dlEvent));
    return filled ? names[static_cast<std::size_t>(dlEvent)] : std::string_view();
}

}  // namespace prot
