#include "apps/protcsv/sample/sample_dossiers.h"

#include <array>
#include <utility>

namespace prot::sample {
namespace {

using std::chrono::days;

constexpr std::array<std::int32_t, 2> first_keys = {1'000'001, 1'000'002};
constexpr std::array<std::int32_t, 2> first_numbers = {10'000, 70'000};
constexpr std::int32_t key_step = 2;

// Clients whom every sample database has, however many rows are logged, and whatever else is.
constexpr std::size_t known_to_all = static_cast<std::size_t>(ClientBook::fewest_clients);

// clang-format off
struct CastRow {
    std::int32_t client_number;
    BothSides short_name, name;
    bool exists = true;
};
constexpr CastRow cast_rows[role_count] = {
    {123, {"Hotel Seeblick", "Mühle Weißach"},           {"Hotel Seeblick Betriebs-GmbH", "Kunstmühle Weißach GmbH & Co. KG"}},
    {123, {"Café Käthe", "Molkerei Almtal"},             {"Café Käthe, Inh. K. Fröhlich", "Molkerei Almtal eG"}, false},
    {123, {"Gastroverbund Süd", "Backbedarf Süd"},       {"Einkaufsverbund Gastronomie Süd eG", "Zentraleinkauf Backbedarf Süd eG"}},
    {1,   {"Gemeinde Löwenstein", "Medizintechnik Çelik"}, {"Gemeinde Löwenstein, Betriebsärztlicher Dienst", "Medizintechnik Çelik GmbH"}},
    {1,   {"Pflegeheim \"Abendrot\"; Groß", "Praxisbedarf Röder"}, {"Pflegeheim \"Abendrot\"; Träger Groß", "Röder Praxisbedarf \"24\"; Versand"}},
    {1,   {"Abrechnung Nord", "Ärzteeinkauf Nord"},      {"Ärztliche Abrechnungsstelle Nord", "Einkaufsgemeinschaft der Ärzte Nord eG"}},
};

constexpr std::string_view streets[] = {
    "Am Mühlbach", "Bahnhofstraße", "Birkenweg", "Dr.-Löffler-Straße", "Gewerbepark", "Große Gasse", "Hauptstraße",
    "Industriestraße", "Kirchplatz", "Lindenallee", "Marktplatz", "Schloßstraße", "Schulgasse", "Talweg", "Ziegeleiweg",
};

struct Town {
    std::string_view postcode, name, district;
};
constexpr Town towns[] = {
    {"04999", "Altmühl", ""},     {"19999", "Küstrow", ""},        {"26999", "Großheide", "Süderfehn"},
    {"39999", "Schönfeld", ""},   {"49999", "Nordermoor", ""},     {"59999", "Hüttendorf", "Hüttendorf-West"},
    {"74999", "Löwenstein", ""},  {"79999", "Innerthal", ""},      {"83999", "Weißach", "Oberweißach"},
    {"97999", "Öhringen", ""},
};

constexpr std::string_view attentions[] = {"Frau Seidel", "Herrn Göbel", "Buchhaltung", "Einkauf", "", "", ""};
constexpr std::string_view account_notes[] = {"Konto für Erstattungen", "Nur Lastschriften", "Abweichender Inhaber", "Mandat bei den Akten"};
// clang-format on

constexpr std::int32_t germany = 49;
constexpr std::int32_t address_of_company = 1;

constexpr std::int64_t of_busiest = 50, of_busy = 80;  // in percent

std::size_t any_client(Random& random) {
    const std::int64_t dice = random.below(100);
    const std::size_t choice = dice < of_busiest ? 1
                               : dice < of_busy  ? ClientBook::busy_clients
                                                 : known_to_all;
    return static_cast<std::size_t>(random.below(static_cast<std::int64_t>(choice)));
}

std::string any_digits(int count, Random& random) {
    std::string digits;
    while (count-- > 0) digits += static_cast<char>('0' + random.below(10));
    return digits;
}

/// The check digits of an IBAN. Source: ISO 7064, MOD 97-10; a letter counts 10 for A to 35 for Z.
std::string check_digits(std::string_view country, const std::string& number) {
    std::string digits = number;
    for (const char letter : country) digits += std::to_string(letter - 'A' + 10);
    digits += "00";
    int rest = 0;
    for (const char digit : digits) rest = (rest * 10 + (digit - '0')) % 97;
    const std::string check = std::to_string(98 - rest);
    return check.size() == 1 ? "0" + check : check;
}

}  // namespace

DossierMaker::DossierMaker(Side side, ClientBook& clients)
    : side_(side),
      clients_(&clients),
      next_key_(first_keys[static_cast<std::size_t>(side)]),
      next_numbers_(known_to_all, first_numbers[static_cast<std::size_t>(side)]) {}

Dossier DossierMaker::cast(Role role, PartnerLists& lists, Random& random) {
    const CastRow& row = cast_rows[role];
    const auto client = &clients_->of_number(row.client_number) - clients_->clients().data();
    Dossier dossier = of_client(static_cast<std::size_t>(client), std::string(of_side(row.short_name, side_)),
                                std::string(of_side(row.name, side_)), lists, random);
    dossier.exists = row.exists;
    dossier.partner.terms = row.client_number == 1 ? shared_terms : lists.terms.front().id;
    dossier.partner.dunning.reset();
    dossier.partner.texts = lists.of(ListKind::text_groups).front().id;
    return dossier;
}

Dossier DossierMaker::any(PartnerLists& lists, Random& random) {
    return any_of_client(any_client(random), lists, random);
}

/// One draw a statement, here and below: the order of draws within an expression differs between compilers.
Dossier DossierMaker::any_of_client(std::size_t client, PartnerLists& lists, Random& random) {
    std::string name = any_name(random);
    std::string full_name = name;
    full_name.append(" ").append(random.pick(company_forms()));
    Dossier dossier = of_client(client, std::move(name), std::move(full_name), lists, random);
    Partner& partner = dossier.partner;
    partner.terms = random.pick(lists.usual_terms);
    partner.dunning = random.pick(usual(lists.of(ListKind::dunning))).id;
    partner.texts = random.pick(usual(lists.of(ListKind::text_groups))).id;
    partner.discount = random.percent(30) ? static_cast<std::int32_t>(random.between(1, 40)) * 25 : 0;
    dossier.person.attention = random.pick(attentions);
    return dossier;
}

Residence DossierMaker::residence(const Dossier& dossier, Random& random) {
    Residence residence;
    residence.address.id = take_key();
    residence.address.country = germany;
    residence.link = {residence.address.id, dossier.person.id, address_of_company};
    move(residence.address, random);
    return residence;
}

Banking DossierMaker::banking(const Dossier& dossier, PartnerLists& lists, Random& random) {
    const Bank& bank = random.pick(usual(lists.banks));
    Banking banking;
    banking.account.id = take_key();
    banking.account.bank_id = bank.id;
    banking.account.iban = iban(bank, random);
    banking.account.holder = dossier.person.short_name;
    return banking;
}

AccountExtra DossierMaker::extra(const BankAccount& account, Random& random) {
    AccountExtra extra;
    extra.id = take_key();
    extra.account_id = account.id;
    annotate(extra, random);
    extra.mandate = "M-" + std::to_string(account.id);
    extra.mandate_day = log_begin - days(random.between(30, 2000));
    return extra;
}

void DossierMaker::annotate(AccountExtra& extra, Random& random) {
    const std::string before = extra.note;
    while (extra.note == before) extra.note = random.pick(account_notes);
}

std::string DossierMaker::any_name(Random& random) {
    std::string name(random.pick(trades()));
    return name.append(" ").append(random.pick(families()));
}

void DossierMaker::move(Address& address, Random& random) {
    const std::string before = address.street;
    while (address.street == before) {
        address.street = random.pick(streets);
        address.street.append(" ").append(std::to_string(random.between(1, 120)));
    }
    const Town& town = random.pick(towns);
    address.postcode = town.postcode;
    address.town = town.name;
    address.district = town.district;
}

std::string DossierMaker::iban(const Bank& bank, Random& random) {
    const std::string_view country = bank.code.empty() ? "AT" : "DE";
    std::string number(bank.code);
    number += any_digits(bank.code.empty() ? 16 : 10, random);
    return std::string(country) + check_digits(country, number) + number;
}

/// With one address and one account.
Dossier DossierMaker::of_client(std::size_t client, std::string short_name, std::string name,
                                PartnerLists& lists, Random& random) {
    Dossier dossier;
    dossier.person.id = take_key();
    dossier.person.short_name = std::move(short_name);
    dossier.person.name = name;
    dossier.person.vat_id = "DE" + any_digits(9, random);
    dossier.personal_data = {take_key(), dossier.person.id, std::move(name)};
    Partner& partner = dossier.partner;
    partner.side = side_;
    partner.id = take_key();
    partner.number = next_numbers_[client]++;
    partner.person_id = dossier.person.id;
    partner.client_id = clients_->clients()[client].id;
    partner.limit = random.between(1, 200) * 50'000;
    partner.reference = any_digits(6, random);
    partner.changed = log_begin - days(random.between(1, 900)) + std::chrono::hours(9);
    partner.employee = any_employee(random);
    dossier.residences.push_back(residence(dossier, random));
    dossier.bankings.push_back(banking(dossier, lists, random));
    return dossier;
}

std::int32_t DossierMaker::take_key() { return std::exchange(next_key_, next_key_ + key_step); }

}  // namespace prot::sample
