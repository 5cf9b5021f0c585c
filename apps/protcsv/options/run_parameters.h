#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "apps/protcsv/options/options.h"
#include "platform/environment.h"

namespace prot {

/// The keys that the unattended host itself reads from a parameter text, without their colon.
std::span<const std::string_view> host_keys();

/// An item of a parameter text that begins with one of them and a colon.
struct HostItem {
    std::string_view key;
    std::string item;   ///< as it stands in the text, without its slash
    std::string value;  ///< without blanks around it
};

/// All of them, in the order of the text, which is split at "/".
std::vector<HostItem> host_items(std::string_view parameters, Environment& environment);

struct RunParameters {
    LogRequest request;               ///< its section is 0 when there is none
    std::vector<std::string> errors;  ///< of what cannot be read, a German line each that names the key
};

/// What the unattended host reads: sektion (number or name, required), mitarbeiter, datvon, datbis, neu,
/// aend, loe (1 or 0, ja or nein). The first item of a key counts; an empty one counts as not given. As soon
/// as one of neu, aend, loe is given the missing ones are 0; without any, all kinds are asked for.
RunParameters read_run_parameters(std::string_view parameters, SectionTable sections,
                                  Environment& environment);

}  // namespace prot
