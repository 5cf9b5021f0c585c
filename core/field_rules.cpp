#include "core/field_rules.h"

#include "core/ProtQRBCsvBas.h"

namespace prot {

namespace {

bool is_about(Events events, const LogRow& row) {
    if (events == Events::all) return true;
    const std::int32_t dlEvent = row.number(LogColumn::dlEvent);
    return dlEvent >= 0 && dlEvent <= 2 && (static_cast<unsigned>(events) >> dlEvent & 1U) != 0;
}

Caption caption_rule(std::span<const CaptionRule> rules, NameMatch match, const ChangedField& field) {
    for (const CaptionRule& rule : rules)
        if (matches(rule.fields, field, match) && is_about(rule.events, field.row)) return rule.caption;
    return Caption::general();
}

}  // namespace

std::string name_by(const IdRule& rule, std::int32_t id, Date moment, Run& run) {
    if (id == 0) return std::string(rule.text_of_none);
    const auto value_of = [&](std::string_view column) {
        return PROT_gsGetValueByDate(rule.table, column, rule.key_column, std::to_string(id), moment, run);
    };
    std::string name;
    if (!rule.column_in_front.empty()) name = value_of(rule.column_in_front);
    if (!name.empty()) name += ' ';
    return name + value_of(rule.column);
}

std::string_view caption_by(std::span<const CaptionRule> rules, NameMatch match, const ChangedField& field,
                            Run& run) {
    const std::int32_t event = field.row.number(LogColumn::dlEvent);
    if (field.number)
        if (const std::string_view* const known = run.memory.captions_of_fields.find(*field.number, event))
            return *known;
    const Caption caption = caption_rule(rules, match, field);
    std::string_view words = caption.words;
    if (caption.kind == Caption::Kind::general) {
        words = PROT_gsGetFieldDescription(field.table, field.name, run);
        if (words.empty() || words == undefined) {
            // Each of these is counted, and a lookup that failed is asked again.
            run.environment.notices.field_without_caption(field.table, field.name);
            return {};
        }
    }
    if (field.number) run.memory.captions_of_fields.remember(*field.number, event, words);
    return words;
}

}  // namespace prot
