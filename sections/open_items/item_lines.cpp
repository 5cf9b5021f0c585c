#include "sections/open_items/item_lines.h"

#include "core/ZQErrorHandling.h"
#include "core/field_rules.h"
#include "platform/automation/text_forms.h"
#include "sections/open_items/item_selection.h"

namespace prot::open_items {

namespace {

/// Changes of the fields that only link the item to others, or say who touched it, are never exported.
constexpr CaptionRule caption_rules[] = {
    {{.field = "BU_ID"}, Caption::none()},           {{.field = "BUS_ID"}, Caption::none()},
    {{.field = "OP_ID"}, Caption::none()},           {{.field = "WJ_ID"}, Caption::none()},
    {{.field = "OP_DATUM"}, Caption::none()},        {{.field = "OP_MITARBEITER"}, Caption::none()},
    {{.field = "OP_AUSGLEICH_NR"}, Caption::none()},
};

std::string kind_of_item(std::int32_t kind) {
    if (kind == 1) return "Rechnung";
    if (kind == 2) return "Zahlung";
    return {};
}

std::string dunning_block(std::int32_t count) {
    if (count == 0) return "keine Sperrung";
    if (count >= 1 && count <= 9) return std::to_string(count) + " mal gesperrt";
    return {};
}

struct WordRule {
    FieldPattern fields;
    std::string (*words_of)(std::int32_t value);
};
constexpr WordRule word_rules[] = {
    {{.field = "OP_ART"}, kind_of_item},
    {{.field = "OP_SPERR_KZ"}, dunning_block},
};

}  // namespace

bool ItemLines::describe_record(const LogRow& row, CsvLine& line) {
    const Item& item = mGetOPInfos(row.number(LogColumn::dlPrimaryKey1));
    line[item_account] = item.account;
    line[item_number] = item.number;
    line[item_document_date] = item.document_date;
    return true;
}

std::string_view ItemLines::caption(const ChangedField& field) {
    return msDBGetFieldDescription(field, run_);
}

std::string ItemLines::translated_value(const ChangedField& field, std::string_view value) {
    return msTranslateID(value, field);
}

const ItemLines::Item& ItemLines::mGetOPInfos(std::int32_t lId) try {
    if (const Item* const known = items_.find(lId)) return *known;
    const RowSet rows = run_.oDBU.query_array(
        "SELECT OP_SKNR, OP_BELEG2, OP_DATUM_BELEG FROM OFFENER_POSTEN WHERE OP_ID = " + std::to_string(lId));
    rows.require_columns(3);
    Item item{"nicht vorhanden", {}, {}};
    if (!rows.empty()) {
        const auto text = [&rows](std::size_t column) { return to_text(rows.at(column, 0).value()); };
        item = {text(0), text(1), text(2)};
    }
    return items_.remember(lId, std::move(item));
} catch (...) {
    leave(owner, "mGetOPInfos");
}

std::string_view msDBGetFieldDescription(const ChangedField& field, Run& run) try {
    return caption_by(caption_rules, NameMatch::in_capitals, field, run);
} catch (...) {
    leave(owner, "msDBGetFieldDescription");
}

std::string msTranslateID(std::string_view value, const ChangedField& field) try {
    const WordRule* const rule = first_rule<WordRule>(word_rules, field, NameMatch::in_capitals);
    // A change without a moment is written as logged, in every section.
    if (!rule || field.row.without_date()) return {};
    const std::optional<std::int32_t> number = number_in_range(value);
    return number ? rule->words_of(*number) : std::string();
} catch (...) {
    leave(owner, "msTranslateID");
}

}  // namespace prot::open_items
