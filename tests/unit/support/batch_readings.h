#pragma once

#include <string>
#include <vector>

#include "platform/batch_reading.h"

namespace prot::test {

/// A reading in one line: what became of the item, its key, the item, its value as understood and what was
/// chosen.
inline std::string line_of(const BatchReading& reading) {
    constexpr const char* uses[] = {"unknown", "early", "unread",  "passed over",
                                    "absent",  "idle",  "crossed", "taken"};
    std::string line = uses[static_cast<std::size_t>(reading.use)];
    line.append(" ").append(reading.key).append("|").append(reading.item).append("|").append(reading.read_as);
    return line.append("|").append(reading.meaning).append(reading.listed ? "" : " (not listed)");
}

inline std::vector<std::string> lines_of(const std::vector<BatchReading>& readings) {
    std::vector<std::string> lines;
    for (const BatchReading& reading : readings) lines.push_back(line_of(reading));
    return lines;
}

}  // namespace prot::test
