#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/text_memory.h"
#include "platform/automation/date.h"

namespace prot {

/// Which value of which record, and by which column of the log its changes are found.
struct ValueKey {
    std::string_view table, column, key_column, key;
    std::string_view log_column = "dlPrimaryKey1";
};

/// Values of records at moments. Of each value the latest answer is remembered: an export walks the log in
/// the order of time.
class ValueMemory {
public:
    /// The value at `moment`, where an earlier answer tells it.
    std::optional<std::string> find(const ValueKey& key, Date moment) const {
        const Answer* const known =
            answers_.find({key.table, key.column, key.key_column, key.key, key.log_column});
        if (!known || !known->holds_at(moment)) return std::nullopt;
        return known->value;
    }

    /// no_later_change: the value holds for every later moment too.
    void remember(const ValueKey& key, Date moment, std::string value, bool no_later_change) {
        answers_.remember({key.table, key.column, key.key_column, key.key, key.log_column},
                          {moment, std::move(value), no_later_change});
    }

private:
    struct Answer {
        Date moment;
        std::string value;
        bool no_later_change;

        bool holds_at(Date other) const {
            return other == moment || (no_later_change && other.serial > moment.serial);
        }
    };

    TextMemory<Answer> answers_;
};

/// Answers of lookups that cannot change within a run, so that each is asked once.
struct LookupMemory {
    TextMemory<std::string> captions;  ///< by table and column
    ValueMemory values;
    std::optional<std::string> server_name;
};

}  // namespace prot
