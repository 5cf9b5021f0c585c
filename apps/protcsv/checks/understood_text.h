#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/section_table.h"
#include "platform/batch_reading.h"
#include "platform/database.h"
#include "platform/environment.h"

namespace prot {

/// What a parameter text chooses in a section, as the section itself reads it.
struct UnderstoodText {
    /// One choice that holds.
    struct Choice {
        std::string item;     ///< as it stands in the text
        std::string read_as;  ///< its value as it was understood
        std::string meaning;  ///< what was chosen, as the form shows it; empty: read_as says it
    };

    std::vector<std::string_view> keys;  ///< that the section knows, as they are compared
    std::vector<BatchReading> readings;  ///< as the section told them
    std::optional<std::string>
        filter_text;  ///< what the file's first line would say; nothing when the text does
                      ///< not do, so that a person is asked, or when reading it failed

    /// Whether "autostart" was found, so that anything was read.
    bool has_autostart() const;

    /// The last choice of each key, in the order of reading.
    std::vector<Choice> choices() const;
};

/// Lets the section read `parameters`, shows nothing and asks nobody. Sends what its filter needs. Empty
/// where the table has no such section.
UnderstoodText understand(std::string_view parameters, SectionTable sections, std::int32_t section,
                          bool deleting, Database& database, const Environment& environment);

}  // namespace prot
