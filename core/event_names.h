#pragma once

#include <cstdint>
#include <string_view>

/// The names of the event codes, one table for the process. It is empty until the entry class has run once: a
/// host that drives an exporter directly gets empty names, and hosts depend on that.
namespace prot {

void fill_event_names();

/// The name of event code dlEvent. Outside 0 to 2: automation error 9 (index).
std::string_view event_name(std::int32_t dlEvent);

}  // namespace prot
