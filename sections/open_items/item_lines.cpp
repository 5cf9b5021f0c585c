#include "sections/open_items/item_lines.h"

#include <algorithm>

#include "core/ZQErrorHandling.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_forms.h"
#include "sections/open_items/item_selection.h"

namespace prot::open_items {

namespace {

/// Fields that only link the item to others, or say who touched it; changes of them are never exported.
constexpr std::string_view suppressed_fields[] = {"BU_ID",    "BUS_ID",         "OP_ID",          "WJ_ID",
                                                  "OP_DATUM", "OP_MITARBEITER", "OP_AUSGLEICH_NR"};

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

struct Translation {
    std::string_view field;  ///< in capitals; logged names are compared without letter case
    std::string (*text_of)(std::int32_t value);
};
constexpr Translation translations[] = {
    {"OP_ART", kind_of_item},
    {"OP_SPERR_KZ", dunning_block},
};

}  // namespace

bool ItemLines::describe_record(const LogRow& row, CsvLine& line) {
    const Item& item = mGetOPInfos(row.number(LogColumn::dlPrimaryKey1));
    line[item_account] = item.account;
    line[item_number] = item.number;
    line[item_document_date] = item.document_date;
    return true;
}

std::string_view ItemLines::caption(std::string_view field, std::string_view table, const LogRow&) {
    return msDBGetFieldDescription(field, table, run_);
}

void ItemLines::translate_values(std::string_view field, std::string_view, const LogRow& row, CsvLine& line) {
    // A change without a moment is written as logged, in every section.
    if (row.text(LogColumn::ddDatum, scratch_).empty()) return;
    translate_both(line, item_captions.size(),
                   [field](std::string_view value) { return msTranslateID(value, field); });
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

std::string_view msDBGetFieldDescription(std::string_view sFeld, std::string_view sTabelle, Run& run) try {
    const auto is_logged_as = [sFeld](std::string_view field) { return upper_equals(sFeld, field); };
    if (std::ranges::any_of(suppressed_fields, is_logged_as)) return {};
    return caption_or_empty(sFeld, sTabelle, run);
} catch (...) {
    leave(owner, "msDBGetFieldDescription");
}

std::string msTranslateID(std::string_view sWert, std::string_view sFeld) try {
    for (const Translation& translation : translations) {
        if (!upper_equals(sFeld, translation.field)) continue;
        const std::optional<std::int32_t> number = number_in_range(sWert);
        return number ? translation.text_of(*number) : std::string();
    }
    return {};
} catch (...) {
    leave(owner, "msTranslateID");
}

}  // namespace prot::open_items
