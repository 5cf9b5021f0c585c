#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/automation/date.h"

namespace prot {

/// Answers of lookups that cannot change within a run, so that each is asked once. References to answers stay
/// valid for the life of the memory.
class LookupMemory {
public:
    /// The value of one column of one record around a moment.
    struct ValueByDate {
        Date moment;
        std::string value;
        bool no_later_change = false;  ///< the value holds for every later moment too

        bool answers(Date other) const {
            return other == moment || (no_later_change && other.serial > moment.serial);
        }
    };

    using Captions = std::unordered_map<std::string, std::string>;
    using ValuesByDate = std::unordered_map<std::string, ValueByDate>;

    Captions captions;            ///< by table and column
    ValuesByDate values_by_date;  ///< the latest answer by table, column, key column and key
    std::optional<std::string> server_name;

    /// The key made of `parts`; valid until the next call.
    const std::string& key(std::initializer_list<std::string_view> parts) {
        key_.clear();
        for (const std::string_view part : parts) key_.append(part).push_back('\0');
        return key_;
    }

private:
    std::string key_;
};

}  // namespace prot
