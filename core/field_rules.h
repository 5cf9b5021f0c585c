#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/changed_field.h"
#include "core/run.h"
#include "platform/automation/letter_case.h"

/// Tables of rules about fields, in the order in which they count: the first rule that fits a field holds.
namespace prot {

/// The fields that a rule is about; an empty text stands for any table, or any field.
struct FieldPattern {
    std::string_view table{}, field{};
};

/// How a logged name is compared with that of a rule: as it is, or in capitals. Capitals need rules in
/// capitals.
enum class NameMatch { exact, in_capitals };

inline bool matches(std::string_view logged, std::string_view wanted, NameMatch match) {
    return match == NameMatch::exact ? logged == wanted : upper_equals(logged, wanted);
}

inline bool matches(const FieldPattern& pattern, const ChangedField& field, NameMatch match) {
    return (pattern.field.empty() || matches(field.name, pattern.field, match)) &&
           (pattern.table.empty() || matches(field.table, pattern.table, match));
}

/// The first rule whose member `fields` fits; null when there is none.
template <class Rule>
const Rule* first_rule(std::span<const Rule> rules, const ChangedField& field, NameMatch match) {
    for (const Rule& rule : rules)
        if (matches(rule.fields, field, match)) return &rule;
    return nullptr;
}

/// Where the caption of a changed field comes from.
struct Caption {
    enum class Kind { general, none, text };
    Kind kind = Kind::general;
    std::string_view words{};

    static constexpr Caption general() { return {}; }             ///< by the field descriptions
    static constexpr Caption none() { return {Kind::none, {}}; }  ///< the field gets no line
    static constexpr Caption text(std::string_view w) { return {Kind::text, w}; }  ///< always these words
};

/// Records of which events a rule is about.
enum class Events : std::uint8_t { created = 1, changed = 2, deleted = 4, all = 7 };

/// One rule about captions. A field that no rule fits has the general caption.
struct CaptionRule {
    FieldPattern fields;
    Caption caption;
    Events events = Events::all;
};

/// A field that holds the id of a record, which a reader knows by a name.
struct IdRule {
    FieldPattern fields;
    std::string_view text_of_none;               ///< for id 0
    std::string_view table, column, key_column;  ///< where the name stands, and the id
    std::string_view column_in_front{};          ///< stands before the name, parted by a blank; may be none
};

/// The name that the record had at `moment`, by PROT_gsGetValueByDate.
std::string name_by(const IdRule& rule, std::int32_t id, Date moment, Run& run);

/// The caption of a changed field; empty when it gets no line. Valid for the life of the run. A field that
/// should have a general caption and has none is told to the notices.
std::string_view caption_by(std::span<const CaptionRule> rules, NameMatch match, const ChangedField& field,
                            Run& run);

}  // namespace prot
