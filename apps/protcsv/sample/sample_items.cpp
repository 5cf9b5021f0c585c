#include "apps/protcsv/sample/sample_items.h"

namespace prot::sample {
namespace {

/// A number as text, without a value for 0.
std::string optional_number(std::int32_t number) {
    return number == 0 ? std::string() : std::to_string(number);
}

std::string due_text(const Item& item) { return item.due == Day() ? std::string() : german_text(item.due); }

std::string discount_text(const Item& item) {
    return item.discount == 0 ? std::string() : decimal_text(item.discount, 2);
}

// clang-format off
constexpr Field<Item> item_fields[] = {
    {"OP_ID",            [](const Item& item) { return std::to_string(item.id); }},
    {"WJ_ID",            [](const Item& item) { return std::to_string(item.year_id); }},
    {"BU_ID",            [](const Item& item) { return std::to_string(booking_id(item)); }},
    {"BUS_ID",           [](const Item& item) { return std::to_string(batch_id(item)); }},
    {"OP_SKNR",          [](const Item& item) { return std::to_string(item.account); }},
    {"OP_BELEG2",        document_number},
    {"OP_DATUM_BELEG",   [](const Item& item) { return german_text(item.document_date); }},
    {"OP_DATUM_FAELLIG", due_text},
    {"OP_ART",           [](const Item& item) { return std::to_string(item.kind); }},
    {"OP_BETRAG",        [](const Item& item) { return decimal_text(item.amount, 2); }},
    {"OP_SKONTO",        discount_text},
    {"OP_SPERR_KZ",      [](const Item& item) { return std::to_string(item.dunning_block); }},
    {"OP_MAHNSTUFE",     [](const Item& item) { return optional_number(item.dunning_level); }},
    {"OP_TEXT",          [](const Item& item) { return std::string(item.text); }},
    {"OP_NOTIZ",         [](const Item& item) { return std::string(item.note); }, true},
    {"OP_IMPORT_KZ",     [](const Item& item) { return std::string(item.import_mark); }},
    {"OP_AUSGLEICH_NR",  [](const Item& item) { return optional_number(item.settlement); }},
    {"OP_DATUM",         [](const Item& item) { return german_text(item.changed); }},
    {"OP_MITARBEITER",   [](const Item& item) { return optional_number(item.employee); }},
};
// clang-format on

constexpr LoggedTable<Item> logged_items = {
    "OFFENER_POSTEN", item_fields, [](const Item& item) {
        return LogKeys{.primary_key1 = item.id, .search_ids = {item.id, item.account, item.year_id}};
    }};

constexpr std::int32_t bookings_before = 700'000;
constexpr std::int32_t items_per_batch = 25;

}  // namespace

std::int32_t booking_id(const Item& item) { return bookings_before + item.id; }

std::int32_t batch_id(const Item& item) { return 1 + item.id / items_per_batch; }

std::string document_number(const Item& item) {
    if (item.document == 0) return {};
    return std::string(item.series) + std::to_string(item.document);
}

LogRow log_row(const Occasion& occasion, const Item* before, const Item* after) {
    return log_row(logged_items, occasion, before, after);
}

}  // namespace prot::sample
