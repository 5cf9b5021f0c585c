#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/text_memory.h"
#include "platform/automation/date.h"

namespace prot {

/// Which value of which record, and by which column of the log its changes are found.
struct ValueKey {
    std::string_view table, column, key_column, key;
    std::string_view log_column = "dlPrimaryKey1";
};

/// Values of records at moments. Of each value two answers are remembered, the latest ones: an export walks
/// the log in the order of time, and looks back a few seconds where a record is deleted.
class ValueMemory {
public:
    /// The value at `moment`, where an earlier answer tells it.
    std::optional<std::string> find(const ValueKey& key, Date moment) const {
        return value_of(key, [moment](const Answer& answer) { return answer.holds_at(moment); });
    }

    /// The value that no later change concerns, where an earlier answer tells it, at whatever moment.
    std::optional<std::string> find_unchanged(const ValueKey& key) const {
        return value_of(key, [](const Answer& answer) { return answer.no_later_change; });
    }

    /// no_later_change: the value holds for every later moment too.
    void remember(const ValueKey& key, Date moment, std::string value, bool no_later_change) {
        Answer answer{moment, std::move(value), no_later_change};
        Column& column = columns_[{key.table, key.column, key.key_column, key.log_column}];
        column[std::string(key.key)].add(std::move(answer));
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

    /// Few values are asked for at more than one moment.
    struct Answers {
        std::unique_ptr<Answer> latest, earlier;

        /// An answer that holds for ever goes for none that holds for a moment.
        void add(Answer answer) {
            const bool keeps_earlier = earlier && earlier->no_later_change && !answer.no_later_change;
            if (!keeps_earlier) earlier = std::move(latest);
            latest = std::make_unique<Answer>(std::move(answer));
        }
    };

    /// Of one column of a table, by the record's key.
    using Column = std::unordered_map<std::string, Answers>;

    template <typename Fits>
    std::optional<std::string> value_of(const ValueKey& key, Fits fits) const {
        const Column* const column = columns_.find({key.table, key.column, key.key_column, key.log_column});
        if (!column) return std::nullopt;
        const auto known = column->find(std::string(key.key));
        if (known == column->end()) return std::nullopt;
        for (const std::unique_ptr<Answer>* const answer : {&known->second.latest, &known->second.earlier})
            if (*answer && fits(**answer)) return (*answer)->value;
        return std::nullopt;
    }

    TextMemory<Column> columns_;
};

/// The caption of each field in records of each event, once it is known. The words live as long as the run.
class CaptionMemory {
public:
    /// event: 0 to 2, or any other that there is no rule for. Null: not known.
    const std::string_view* find(std::size_t field, std::int32_t event) const {
        const std::size_t place = place_of(field, event);
        return place < captions_.size() && captions_[place] ? &*captions_[place] : nullptr;
    }
    void remember(std::size_t field, std::int32_t event, std::string_view words) {
        const std::size_t place = place_of(field, event);
        if (place >= captions_.size()) captions_.resize(place + 1);
        captions_[place] = words;
    }

private:
    static constexpr std::size_t events = 4;
    static std::size_t place_of(std::size_t field, std::int32_t event) {
        return field * events + (event >= 0 && event <= 2 ? static_cast<std::size_t>(event) : events - 1);
    }

    std::vector<std::optional<std::string_view>> captions_;
};

/// Answers of lookups that cannot change within a run, so that each is asked once.
struct LookupMemory {
    TextMemory<std::string> captions;  ///< by table and column
    CaptionMemory captions_of_fields;  ///< what the rules of the section made of them
    ValueMemory values;
    std::optional<std::string> server_name;
};

}  // namespace prot
