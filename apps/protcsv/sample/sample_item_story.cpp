#include "apps/protcsv/sample/sample_item_story.h"

namespace prot::sample {
namespace {

using std::chrono::year;

LogRow rename_client(ItemDesk& desk, const Occasion& occasion, std::string_view short_name) {
    return desk.rename_client(occasion, 1002, short_name);
}

LogRow set_kind(ItemDesk& desk, const Occasion& occasion, std::string_view kind) {
    return desk.set_number(occasion, &Item::kind, number_of(kind));
}

LogRow set_block(ItemDesk& desk, const Occasion& occasion, std::string_view count) {
    return desk.set_number(occasion, &Item::dunning_block, number_of(count));
}

/// An older program wrote a letter where a number is kept today.
LogRow replace_letter_kind(ItemDesk& desk, const Occasion& occasion, std::string_view letter) {
    return desk.set_number_logged_as(occasion, &Item::kind, 1, "OP_ART", letter);
}

LogRow replace_odd_block(ItemDesk& desk, const Occasion& occasion, std::string_view former) {
    return desk.set_number_logged_as(occasion, &Item::dunning_block, 0, "OP_SPERR_KZ", former);
}

/// Another program spells the columns in lower case.
LogRow block_in_lower_case(ItemDesk& desk, const Occasion& occasion, std::string_view former) {
    return desk.set_number_logged_as(occasion, &Item::dunning_block, 5, "op_sperr_kz", former);
}

LogRow employee_in_lower_case(ItemDesk& desk, const Occasion& occasion, std::string_view former) {
    return desk.set_number_logged_as(occasion, &Item::employee, occasion.author.employee, "op_mitarbeiter",
                                     former);
}

constexpr Change<ItemDesk> add_item = tell<&ItemDesk::add_item>;
constexpr Change<ItemDesk> remove_item = tell<&ItemDesk::remove_item>;
constexpr Change<ItemDesk> touch = tell<&ItemDesk::touch>;
constexpr Change<ItemDesk> settle = tell<&ItemDesk::settle>;
constexpr Change<ItemDesk> set_text = set<&Item::text>;
constexpr Change<ItemDesk> set_note = set<&Item::note>;
constexpr Change<ItemDesk> mark_import = set<&Item::import_mark>;
constexpr Change<ItemDesk> lose_document = damage<&ItemDesk::change_terms, without_document>;
constexpr Change<ItemDesk> empty_document = damage<&ItemDesk::change_terms, with_empty_document>;
constexpr Change<ItemDesk> break_document = damage<&ItemDesk::change_terms, with_broken_document>;

// Each kind of change and of value.
// clang-format off
constexpr Step<ItemDesk> story[] = {
    {year{2023} / 11 / 13, add_item,      ""},
    {year{2023} / 11 / 22, set_block,     "1"},
    {year{2023} / 12 /  6, set_block,     "0"},
    {year{2023} / 12 / 20, set_text,      "Rechnung \"Nachtrag 3\"; Teilzahlung vereinbart"},
    {year{2024} /  1 / 10, set_kind,      "2"},
    {year{2024} /  1 / 24, set_block,     "2"},
    {year{2024} /  2 /  7, touch,         ""},
    {year{2024} /  2 / 21, set_block,     "3"},
    {year{2024} /  3 /  6, remove_item,   ""},
    {year{2024} /  3 / 20, set_note,      "Der Kunde rügt einen Mangel an der Lieferung. Bis zur Klärung durch Frau Groß ist "
                                          "der Posten nicht zu mahnen; der Betrag bleibt in voller Höhe bestehen."},
    {year{2024} /  4 /  3, set_block,     "4"},
    {year{2024} /  4 / 17, set_text,      "=Restbetrag aus Schlussrechnung"},
    {year{2024} /  5 /  2, set_kind,      "1"},
    {year{2024} /  5 / 15, settle,        ""},
    {year{2024} /  5 / 29, replace_letter_kind, "R"},
    {year{2024} /  6 / 12, set_block,     "5"},
    {year{2024} /  6 / 26, empty_document, ""},
    {year{2024} /  7 / 10, set_text,      "Ratenzahlung\r\n1. Rate am 01.08.\r\n2. Rate am 01.09."},
    {year{2024} /  7 / 24, set_block,     "6"},
    {year{2024} /  8 /  7, rename_client, "Dr. Müller, Anna"},
    {year{2024} /  8 / 21, set_kind,      "3"},
    {year{2024} /  9 /  4, set_block,     "7"},
    {year{2024} /  9 / 18, replace_odd_block, "99999999999"},
    {year{2024} / 10 /  2, set_block,     "8"},
    {year{2024} / 10 / 16, lose_document, ""},
    {year{2024} / 11 /  6, set_block,     "9"},
    {year{2024} / 11 / 20, set_text,      "Skonto < 3 % & Lieferung frei Haus"},
    {year{2024} / 12 /  4, set_block,     "10"},
    {year{2025} /  1 / 15, add_item,      ""},
    {year{2025} /  2 /  5, set_block,     "11"},
    {year{2025} /  2 / 26, block_in_lower_case, "2"},
    {year{2025} /  3 / 19, replace_odd_block, "gesperrt"},
    {year{2025} /  4 /  9, set_block,     "-1"},
    {year{2025} /  5 /  7, break_document, ""},
    {year{2025} /  6 /  4, employee_in_lower_case, "14"},
    {year{2025} /  7 /  2, mark_import,   "Bankabruf"},
    {year{2025} /  7 / 23, mark_import,   "Stapel 07/2025"},
    {year{2025} /  8 / 13, set_kind,      "0"},
    {year{2025} /  9 / 10, set_text,      "- storniert, siehe Gutschrift -"},
    {year{2025} / 10 /  8, remove_item,   ""},
    {year{2025} / 11 / 12, set_note,      "Stundung bis 31.03.2026 bewilligt.\r\nSchreiben liegt bei den Akten."},
    {year{2026} /  1 / 14, set_text,      "@Mahnwesen: bitte nicht mahnen"},
    {year{2026} /  3 / 11, remove_item,   ""},
    {year{2026} /  5 / 13, set_block,     "2"},
    {year{2026} /  8 / 12, add_item,      ""},
};
// clang-format on

}  // namespace

std::span<const Step<ItemDesk>> item_story() { return story; }

}  // namespace prot::sample
