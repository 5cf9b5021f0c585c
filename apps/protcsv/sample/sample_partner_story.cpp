#include "apps/protcsv/sample/sample_partner_story.h"

namespace prot::sample {
namespace {

using std::chrono::year;

using DossierChange = ChangeOf<PartnerDesk, Dossier>;

Partner& partner(Dossier& dossier) { return dossier.partner; }
Person& person(Dossier& dossier) { return dossier.person; }
Address& first_address(Dossier& dossier) { return dossier.residences.front().address; }
AddressLink& last_address_link(Dossier& dossier) { return dossier.residences.back().link; }
BankAccount& last_account(Dossier& dossier) { return dossier.bankings.back().account; }
AccountExtra& last_extra(Dossier& dossier) { return *dossier.bankings.back().extra; }

template <std::size_t index>
Terms& terms(PartnerLists& lists) {
    return lists.terms[index];
}
Terms& usual_terms(PartnerLists& lists) { return usual(lists.terms).front(); }
template <ListKind list, std::size_t index>
ListEntry& entry(PartnerLists& lists) {
    return lists.of(list)[index];
}
template <std::size_t index>
Bank& bank(PartnerLists& lists) {
    return lists.banks[index];
}

/// A record of the dossier refers to a record of the lists in that field.
template <auto record, auto field, auto listed>
LogRow refer(PartnerDesk& desk, Dossier& dossier, const Occasion& occasion, std::string_view) {
    const std::int32_t id = listed(desk.lists()).id;
    return log_change(record(dossier), occasion, [id](auto& changed) { changed.*field = id; });
}

// What happens in the lists.
template <auto listed, auto field>
LogRow set_listed(PartnerDesk& desk, const Occasion& occasion, std::string_view text) {
    return log_change(listed(desk.lists()), occasion, [text](auto& changed) { give(changed.*field, text); });
}

template <auto listed>
LogRow list(PartnerDesk& desk, const Occasion& occasion, std::string_view) {
    auto& record = listed(desk.lists());
    record.exists = true;
    return log_creation(record, occasion);
}

template <auto listed>
LogRow unlist(PartnerDesk& desk, const Occasion& occasion, std::string_view) {
    auto& record = listed(desk.lists());
    record.exists = false;
    return log_row(occasion, &record, nullptr);
}

LogRow rename(PartnerDesk& desk, Dossier& dossier, const Occasion& occasion, std::string_view ending) {
    return desk.rename(dossier, occasion, dossier.personal_data.name + std::string(ending));
}

LogRow move(PartnerDesk& desk, Dossier& dossier, const Occasion& occasion, std::string_view) {
    return desk.move(first_address(dossier), occasion);
}

LogRow touch(PartnerDesk&, Dossier& dossier, const Occasion& occasion, std::string_view) {
    return log_change(dossier.partner, occasion, [](Partner&) {});
}

template <Role role>
LogRow set_regulator(PartnerDesk& desk, Dossier& dossier, const Occasion& occasion, std::string_view) {
    return log_change(dossier.partner, occasion,
                      [&](Partner& changed) { changed.regulator = desk.cast(role).person.id; });
}

template <std::size_t index>
LogRow add_purpose(PartnerDesk& desk, Dossier& dossier, const Occasion& occasion, std::string_view) {
    return desk.add_purpose(dossier, occasion, desk.lists().of(ListKind::purposes)[index].id);
}

LogRow assign_shared_terms(PartnerDesk&, Dossier& dossier, const Occasion& occasion, std::string_view) {
    return log_change(dossier.partner, occasion, [](Partner& changed) { changed.terms = shared_terms; });
}

template <std::size_t index>
constexpr DossierChange assign_terms = refer<partner, &Partner::terms, terms<index>>;
template <std::size_t index>
constexpr DossierChange assign_dunning = refer<partner, &Partner::dunning, entry<ListKind::dunning, index>>;
template <std::size_t index>
constexpr DossierChange assign_texts = refer<partner, &Partner::texts, entry<ListKind::text_groups, index>>;
template <std::size_t index>
constexpr DossierChange assign_bank = refer<last_account, &BankAccount::bank_id, bank<index>>;

/// Another program spells the columns in lower case.
LogRow terms_in_lower_case(PartnerDesk& desk, Dossier& dossier, const Occasion& occasion, std::string_view) {
    const std::string former = std::to_string(dossier.partner.terms);
    LogRow row = assign_terms<0>(desk, dossier, occasion, "");
    return logged_as(std::move(row), "klkd_id", former, std::to_string(dossier.partner.terms));
}

/// An older program wrote a word where a key is kept today.
LogRow text_group_in_words(PartnerDesk& desk, Dossier& dossier, const Occasion& occasion,
                           std::string_view former) {
    LogRow row = assign_texts<0>(desk, dossier, occasion, "");
    return logged_as(std::move(row), "MTH_ID", former, std::to_string(*dossier.partner.texts));
}

constexpr DossierChange create = act<&PartnerDesk::create>;
constexpr DossierChange dissolve = act<&PartnerDesk::dissolve>;
constexpr DossierChange add_residence = act<&PartnerDesk::add_residence>;
constexpr DossierChange remove_residence = act<&PartnerDesk::remove_residence>;
constexpr DossierChange add_extra = act<&PartnerDesk::add_extra>;
constexpr DossierChange open_account = act<&PartnerDesk::open_account>;
constexpr DossierChange close_account = act<&PartnerDesk::close_account>;
constexpr DossierChange unlink_account = act<&PartnerDesk::unlink_account>;
constexpr DossierChange remove_purpose = act<&PartnerDesk::remove_purpose>;
constexpr DossierChange set_limit = set_in<partner, &Partner::limit>;
constexpr DossierChange set_discount = set_in<partner, &Partner::discount>;
constexpr DossierChange set_terms = set_in<partner, &Partner::terms>;
constexpr DossierChange set_dunning = set_in<partner, &Partner::dunning>;
constexpr DossierChange set_texts = set_in<partner, &Partner::texts>;
constexpr DossierChange set_regulator_number = set_in<partner, &Partner::regulator>;
constexpr DossierChange set_reference = set_in<partner, &Partner::reference>;
constexpr DossierChange set_note = set_in<partner, &Partner::note>;
constexpr DossierChange set_memo = set_in<partner, &Partner::memo>;
constexpr DossierChange mark_import = set_in<partner, &Partner::import_mark>;
constexpr DossierChange set_vat_id = set_in<person, &Person::vat_id>;
constexpr DossierChange set_attention = set_in<person, &Person::attention>;
constexpr DossierChange set_street = set_in<first_address, &Address::street>;
constexpr DossierChange set_address_type = set_in<last_address_link, &AddressLink::type>;
constexpr DossierChange set_holder = set_in<last_account, &BankAccount::holder>;
constexpr DossierChange set_bank = set_in<last_account, &BankAccount::bank_id>;
constexpr DossierChange set_iban = set_in<last_account, &BankAccount::iban>;
constexpr DossierChange set_extra = set_in<last_extra, &AccountExtra::note>;
constexpr DossierChange set_extra_mandate = set_in<last_extra, &AccountExtra::mandate>;
constexpr DossierChange lose_document = damage_of<set_limit, without_document>;
constexpr DossierChange empty_document = damage_of<set_limit, with_empty_document>;
constexpr DossierChange break_document = damage_of<set_limit, with_broken_document>;

// Each kind of change and of value. The numbers that a form proposes have most of them.
// clang-format off
constexpr Step<PartnerDesk> story[] = {
    {year{2023} / 11 /  7, on<baker_second, create>,                        ""},
    {year{2024} /  1 / 16, on<baker_first, set_limit>,                      "2500000"},
    {year{2024} /  1 / 26, on<baker_first, assign_terms<1>>,                ""},
    {year{2024} /  2 /  6, on<doctor_first, move>,                          ""},
    {year{2024} /  2 / 16, on<baker_first, rename>,                         " & Co."},
    {year{2024} /  3 /  7, on<baker_first, set_regulator<baker_regulator>>, ""},
    {year{2024} /  3 / 18, on<baker_first, add_purpose<0>>,                 ""},
    {year{2024} /  3 / 27, on<doctor_first, assign_dunning<1>>,             ""},
    {year{2024} /  4 /  8, set_listed<terms<0>, &Terms::name>,              "10 Tage 2 %, 45 Tage netto"},
    {year{2024} /  4 / 16, on<doctor_first, assign_bank<1>>,                ""},
    {year{2024} /  4 / 26, on<baker_first, set_extra>,                      "Nur für \"Abschläge\"; siehe Vertrag"},
    {year{2024} /  5 /  7, on<baker_second, set_attention>,                 "Frau Groß \"persönlich\"; Buchhaltung"},
    {year{2024} /  5 / 17, set_listed<terms<0>, &Terms::due_days>,          "45"},
    {year{2024} /  5 / 27, on<baker_first, touch>,                          ""},
    {year{2024} /  6 /  6, on<doctor_second, rename>,                       " und Partner"},
    {year{2024} /  6 / 26, set_listed<terms<0>, &Terms::days2>,             "20"},
    {year{2024} /  7 /  8, on<baker_second, open_account>,                  ""},
    {year{2024} /  7 / 26, on<baker_second, add_extra>,                     ""},
    {year{2024} /  8 /  6, set_listed<entry<ListKind::dunning, 1>, &ListEntry::name>, "Nach Rückfrage, ab 100 EUR"},
    {year{2024} /  8 / 16, on<baker_first, set_memo>,                       "Ansprechpartnerin ist Frau Groß. Rechnungen gehen vorab per E-Mail an die Buchhaltung;\r\n"
                                                                         "Rückfragen nur vormittags."},
    {year{2024} /  8 / 26, on<baker_second, empty_document>,                "1500000"},
    {year{2024} /  9 /  5, on<doctor_first, set_dunning>,                   "0"},
    {year{2024} /  9 / 16, on<baker_second, set_note>,                      "Lieferung nur \"frei Haus\"; Skonto nach Absprache"},
    {year{2024} /  9 / 25, unlist<entry<ListKind::dunning, 1>>,             ""},
    {year{2024} / 10 /  7, on<baker_second, unlink_account>,                ""},
    {year{2024} / 10 / 15, on<baker_first, set_discount>,                   "250"},
    {year{2024} / 10 / 25, on<baker_second, set_holder>,                    "K. Fröhlich, Treuhandkonto"},
    {year{2024} / 11 /  5, on<baker_first, remove_purpose>,                 ""},
    {year{2024} / 11 / 15, list<terms<2>>,                                  ""},
    {year{2024} / 11 / 25, on<doctor_first, assign_terms<2>>,               ""},
    {year{2024} / 12 /  5, set_listed<terms<2>, &Terms::rate1>,             "250"},
    {year{2024} / 12 / 16, on<doctor_first, add_residence>,                 ""},
    {year{2025} /  1 /  6, on<baker_second, assign_shared_terms>,           ""},
    {year{2025} /  1 / 14, on<doctor_first, set_address_type>,              "3"},
    {year{2025} /  1 / 24, on<doctor_first, assign_shared_terms>,           ""},
    {year{2025} /  2 / 14, on<baker_first, set_street>,                     "Seestraße 12\r\nTor 3"},
    {year{2025} /  2 / 24, set_listed<usual_terms, &Terms::name>,           "Zahlbar binnen 7 Tagen ohne Abzug"},
    {year{2025} /  3 /  6, on<baker_first, set_regulator_number>,           "0"},
    {year{2025} /  3 / 17, set_listed<usual_terms, &Terms::due_days>,       "7"},
    {year{2025} /  3 / 26, on<baker_first, assign_texts<1>>,                ""},
    {year{2025} /  4 /  7, on<doctor_first, remove_residence>,              ""},
    {year{2025} /  4 / 28, on<doctor_second, set_note>,                     "=Summe offener Rechnungen"},
    {year{2025} /  5 /  6, set_listed<entry<ListKind::text_groups, 0>, &ListEntry::name>, "Texte mit Anrede"},
    {year{2025} /  5 / 16, on<doctor_first, set_regulator<doctor_regulator>>, ""},
    {year{2025} /  5 / 26, on<baker_first, set_texts>,                      "0"},
    {year{2025} /  6 /  5, on<doctor_first, set_vat_id>,                    ""},
    {year{2025} /  6 / 16, unlist<entry<ListKind::text_groups, 1>>,         ""},
    {year{2025} /  6 / 25, on<doctor_second, dissolve>,                     ""},
    {year{2025} /  9 / 15, on<baker_second, lose_document>,                 "1800000"},
    {year{2025} /  9 / 24, list<entry<ListKind::purposes, 2>>,              ""},
    {year{2025} / 10 /  6, on<baker_first, add_purpose<2>>,                 ""},
    {year{2025} / 10 / 14, set_listed<entry<ListKind::purposes, 2>, &ListEntry::name>, "Nur nach Rückfrage"},
    {year{2025} / 10 / 27, on<doctor_first, set_note>,                      "- gesperrt bis zur Klärung -"},
    {year{2025} / 11 /  4, on<baker_first, remove_purpose>,                 ""},
    {year{2025} / 11 / 14, set_listed<bank<0>, &Bank::name>,                "Bankhaus am Markt"},
    {year{2025} / 11 / 24, on<doctor_first, assign_bank<0>>,                ""},
    {year{2025} / 12 /  4, on<doctor_first, set_terms>,                     "0"},
    {year{2025} / 12 / 15, on<baker_first, terms_in_lower_case>,            ""},
    {year{2025} / 12 / 19, unlist<terms<1>>,                                ""},
    {year{2025} / 12 / 24, unlist<entry<ListKind::purposes, 2>>,            ""},
    {year{2026} /  1 /  5, on<doctor_first, assign_terms<2>>,               ""},
    {year{2026} /  1 / 13, on<baker_second, move>,                          ""},
    {year{2026} /  1 / 26, list<bank<2>>,                                   ""},
    {year{2026} /  2 /  3, on<baker_first, assign_bank<2>>,                 ""},
    {year{2026} /  2 / 13, on<baker_first, mark_import>,                    "Abgleich 02/2026"},
    {year{2026} /  2 / 23, on<baker_first, text_group_in_words>,            "alt"},
    {year{2026} /  3 /  5, on<baker_second, rename>,                        " (vorm. \"Alte Post\"; Groß)"},
    {year{2026} /  3 / 25, unlist<bank<2>>,                                 ""},
    {year{2026} /  4 /  6, on<baker_second, set_note>,                      "@Einkauf: Preise < Liste & frei Haus"},
    {year{2026} /  4 / 14, on<doctor_first, close_account>,                 ""},
    {year{2026} /  5 / 15, on<baker_second, break_document>,                "2200000"},
    {year{2026} /  5 / 25, on<baker_first, set_extra_mandate>,              ""},
    {year{2026} /  6 /  4, on<baker_second, set_reference>,                 "+49-4711"},
    {year{2026} /  6 / 15, on<baker_second, set_iban>,                      "DE00 0000 0000 0000 0000 00"},
    {year{2026} /  6 / 24, on<baker_second, set_bank>,                      "0"},
    {year{2026} /  7 /  6, on<baker_first, set_limit>,                      "0"},
};
// clang-format on

}  // namespace

std::span<const Step<PartnerDesk>> partner_story() { return story; }

}  // namespace prot::sample
