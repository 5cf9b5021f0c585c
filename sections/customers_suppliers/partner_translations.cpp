#include "sections/customers_suppliers/partner_translations.h"

#include <algorithm>
#include <optional>

#include "core/ZQErrorHandling.h"
#include "platform/automation/ascii.h"
#include "platform/automation/text_forms.h"
#include "platform/automation/text_parts.h"

namespace prot::customers_suppliers {

namespace {

// clang-format off
constexpr std::array<IdRule, 7> id_rules(const Ledger& ledger) {
    const std::string_view master = ledger.msStammTabelle, number = ledger.msNrSpalte, person = ledger.msPsIdSpalte;
    return {{
        {{.field = "KLKD_ID"}, "ohne Zahlungskonditionen", "TKULIEFKOND",        "dcBezeichnung",  "IDKLK"},
        {{.field = "MB_ID"},   "ohne Mahnbedingungen",     "MAHNBEDINGUNGEN_V4", "Mb_Bezeichnung", "MB_ID"},
        {{.field = "MTH_ID"},  "ohne Texthauptgruppe",     "TTEXTHAUPTGRUPPE",   "dcBezeichnung",  "IDTH"},
        {{.field = "FLVWZ"},   "ohne Verwendungszweck",    "TVERWENDZWECK",      "dcBezeichnung",  "IDVWZ"},
        {{.field = "BA_ID"},   "ohne Bank",                "TBANK",              "dcBezeichnung",  "idBank", "dcBLZ"},
        // The person's id is looked up as the key of the master table, deliberately.
        {{.field = "PS_ID_SAMMEL_KUNDE"}, "ohne Zentralregulierer", master, number, person},
        {{.field = "PS_ID_SAMMEL_LIEF"},  "ohne Zentralregulierer", master, number, person},
    }};
}
// clang-format on

bool is_digits(std::string_view text) { return !text.empty() && std::ranges::all_of(text, is_ascii_digit); }

/// The whole number nearest to a value that is a number from its first to its last character, else 0. Nothing
/// outside 32 bits.
std::optional<std::int32_t> id_in(std::string_view value) {
    std::string_view digits = trim_blanks(value);
    if (digits.starts_with('-') || digits.starts_with('+')) digits.remove_prefix(1);
    std::string number(trim_blanks(value));
    const std::size_t comma = digits.find_first_of(",.");
    const bool is_number = is_digits(digits.substr(0, comma)) &&
                           (comma == std::string_view::npos || is_digits(digits.substr(comma + 1)));
    if (!is_number) return 0;
    std::ranges::replace(number, ',', '.');
    return number_in_range(number);
}

}  // namespace

PartnerTranslations::PartnerTranslations(Run& run, const Ledger& ledger)
    : run_(run), rules_(id_rules(ledger)) {}

std::string PartnerTranslations::msTranslateID(std::string_view vWert, const ChangedField& field) try {
    const IdRule* const rule = first_rule<IdRule>(rules_, field, NameMatch::in_capitals);
    if (!rule) return {};
    const std::optional<Date> moment = field.row.moment();
    const std::optional<std::int32_t> id = id_in(vWert);
    return moment && id ? name_by(*rule, *id, *moment, run_) : std::string();
} catch (...) {
    leave(owner, "msTranslateID");
}

}  // namespace prot::customers_suppliers
