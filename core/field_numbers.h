#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "core/text_memory.h"

namespace prot {

/// Numbers the changed fields of a run by table and name, so that what is known of a field can be found by
/// its number. A log has some hundreds of fields; what a hostile one has beyond `most` has no number.
class FieldNumbers {
public:
    static constexpr std::size_t most = 4096;

    /// The number of the field, from 0; always the same for one field.
    std::optional<std::size_t> number_of(std::string_view table, std::string_view name) {
        // Records of one table mostly name their fields in one order.
        Field* field = last_ ? last_->next : nullptr;
        if (!field || field->name != name || field->table != table) field = find(table, name);
        if (!field) return std::nullopt;
        if (last_) last_->next = field;
        last_ = field;
        return field->number;
    }

private:
    struct Field {
        std::string table, name;
        std::size_t number;
        Field* next;  // what came behind it the last time; may be null
    };

    Field* find(std::string_view table, std::string_view name) {
        if (Field* const* const known = by_name_.find({table, name})) return *known;
        if (fields_.size() == most) return nullptr;
        fields_.push_back({std::string(table), std::string(name), fields_.size(), nullptr});
        return by_name_.remember({table, name}, &fields_.back());
    }

    std::deque<Field> fields_;
    TextMemory<Field*> by_name_;
    Field* last_ = nullptr;
};

}  // namespace prot
