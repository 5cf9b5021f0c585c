#include "apps/protcsv/sample/sample_framework_plans.h"

namespace prot::sample {
namespace {

using std::chrono::year;

constexpr std::size_t names_per_type = 6;

struct TypeRow {
    std::int32_t type;
    std::string_view title;
    std::string_view positions[names_per_type];
};

// No name has an apostrophe: the search for the formula of a standard framework writes names into statements
// as they are.
// clang-format off
constexpr TypeRow types[] = {
    { 0, "Bilanz",                    {"Sachanlagen", "Vorräte", "Forderungen aus Lieferungen und Leistungen", "Gezeichnetes Kapital", "Rückstellungen", "Umsatzerlöse"}},
    {10, "BAB",                       {"Fertigungsmaterial", "Fertigungslöhne", "Gemeinkosten Verwaltung", "Gemeinkosten Vertrieb", "Energiekosten", "Kalkulatorische Zinsen"}},
    {20, "BWA",                       {"Umsatzerlöse", "Materialeinsatz", "Personalkosten", "Raumkosten", "Kfz-Kosten", "Werbe- und Reisekosten"}},
    {30, "Anlagenspiegel",            {"Anschaffungskosten zu Beginn", "Zugänge", "Abgänge", "Umbuchungen", "Abschreibungen des Jahres", "Buchwert am Ende"}},
    {40, "Kapitalkontenentwicklung",  {"Kapital zu Beginn", "Einlagen", "Entnahmen", "Gewinnanteil", "Zinsen auf Kapitalkonten", "Kapital am Ende"}},
    {45, "Ergebnisverwendung",        {"Jahresüberschuss", "Gewinnvortrag", "Verlustvortrag", "Einstellung in Rücklagen", "Ausschüttung", "Vortrag auf neue Rechnung"}},
    {50, "Kapitalflussrechnung",      {"Jahresergebnis", "Abschreibungen auf Anlagen", "Zunahme der Rückstellungen", "Abnahme der Vorräte", "Auszahlungen für Investitionen", "Aufnahme von Krediten"}},
    {55, "Liquidität",                {"Bankguthaben", "Kassenbestand", "Offene Forderungen", "Offene Verbindlichkeiten", "Freie Kreditlinie", "Steuern der nächsten 30 Tage"}},
    {60, "Liquiditätsvorschau",       {"Erwartete Einzahlungen", "Erwartete Auszahlungen", "Löhne und Gehälter", "Steuern und Abgaben", "Tilgung", "Bestand am Monatsende"}},
    {70, "Rating",                    {"Eigenkapitalquote", "Umsatzrendite", "Schuldendienstfähigkeit", "Anlagendeckung", "Liquidität zweiten Grades", "Lagerumschlag"}},
};

constexpr std::string_view branches[] = {
    "Apotheken", "Ärzte", "Bauträger", "Einzelhandel", "Gastgewerbe", "Großhandel", "Handwerk", "Landwirtschaft", "Pflegedienste", "Vereine",
};
// clang-format on

const TypeRow& type_row(std::int32_t type) {
    const TypeRow* row = types;
    while (row->type != type) ++row;
    return *row;
}

// clang-format off
constexpr FrameworkPlan cast_plans[framework_role_count] = {
    {"Bilanz/GuV nach HGB",                         0, standard, 1, year{2016} / 1 / 1, year{2024} / 12 / 31},
    {"Bilanz/GuV nach HGB",                         0, standard, 2, year{2025} / 1 / 1, {}, FrameworkPlan::version_of_the_one_before},
    {"BWA Grundauswertung",                        20, standard, 1},
    {"BWA Gastronomie",                            20, standard, 3, year{2019} / 1 / 1, {}, FrameworkPlan::small},
    {"Liquidität Projekte",                        55, standard, 2, year{2024} / 1 / 1, {}, FrameworkPlan::small_and_new},
    {"BWA \"Kanzlei Weiß\"; Mandanten",            20, office,   1, year{2021} / 7 / 1},
    {"BWA Handwerk bis 2023",                      20, office,   1, {}, year{2023} / 12 / 31, FrameworkPlan::small},
};

// What stands at the end changes most.
constexpr FrameworkPlan all_known_plans[] = {
    {"Bilanz/GuV Kanzlei Weiß",                     0, office,   2, year{2025} / 1 / 1},
    {"BAB Kanzlei Weiß",                           10, office,   1},
    {"Anlagenspiegel Kanzlei Weiß",                30, office,   1, {}, year{2026} / 6 / 30},
    {"Kapitalkonten der Sozietäten",               40, office,   1},
    {"Ergebnisverwendung mit Tantieme",            45, office,   1, year{2020} / 1 / 1, year{2026} / 12 / 31},
    {"Kapitalflussrechnung kurz",                  50, office,   1},
    {"Tagesstatus mit Kreditlinien",               55, office,   1},
    {"Vorschau 3 Monate",                          60, office,   1, year{2023} / 4 / 1},
    {"Rating für Bankgespräche",                   70, office,   1},
    {"Bilanz Kleinstkapitalgesellschaft",           0, standard, 3},
    {"Betriebsabrechnung Industrie",               10, standard, 1, year{2018} / 1 / 1, year{2025} / 12 / 31},
    {"BWA Handwerk",                               20, standard, 2},
    {"Anlagenspiegel brutto",                      30, standard, 1},
    {"Kapitalkontenentwicklung Personengesellschaft", 40, standard, 1},
    {"Ergebnisverwendung GmbH",                    45, standard, 1, {}, year{2026} / 12 / 31},
    {"Kapitalflussrechnung indirekt",              50, standard, 1},
    {"Tagesstatus",                                55, standard, 1},
    {"Vorschau 12 Monate",                         60, standard, 1, year{2022} / 1 / 1},
    {"Rating Mittelstand",                         70, standard, 1},
};
// clang-format on

constexpr std::int32_t first_later_mark = 100, first_small_mark = 1000;

struct Validity {
    Day from, to;
};
constexpr Validity validities[] = {
    {}, {year{2020} / 1 / 1, {}}, {{}, year{2027} / 12 / 31}, {year{2015} / 1 / 1, year{2025} / 12 / 31}};

/// Two by two, a pattern and its copy, of one type after another.
struct Later {
    explicit Later(std::size_t number)
        : is_copy(number % 2 == 1),
          type(types[number / 2 % std::size(types)]),
          round(number / 2 / std::size(types)),
          validity(validities[number / 2 % std::size(validities)]) {}

    bool is_copy;
    const TypeRow& type;
    std::size_t round;
    const Validity& validity;
};

}  // namespace

const FrameworkPlan& cast_plan(FrameworkRole role) { return cast_plans[role]; }

std::span<const FrameworkPlan> known_plans() { return all_known_plans; }

FrameworkPlan later_plan(std::size_t number) {
    const Later later(number);
    return {.type = later.type.type,
            .kind = later.is_copy ? office : standard,
            .mark = first_later_mark + static_cast<std::int32_t>(later.round),
            .valid_from = later.validity.from,
            .valid_to = later.validity.to};
}

std::string later_name(std::size_t number) {
    const Later later(number);
    std::string name(later.type.title);
    return name.append(" ").append(numbered(branches, later.round)).append(later.is_copy ? ", Kanzlei" : "");
}

FrameworkPlan small_plan(std::size_t number) {
    return {.type = types[number % std::size(types)].type,
            .kind = standard,
            .mark = first_small_mark + static_cast<std::int32_t>(number),
            .nature = FrameworkPlan::small_and_new};
}

std::string small_name(std::size_t number) { return "Projekt " + numbered(branches, number); }

std::string position_name(std::int32_t type, std::int32_t entry) {
    return numbered(type_row(type).positions, static_cast<std::size_t>(entry));
}

std::string numbered(std::span<const std::string_view> names, std::size_t number) {
    std::string name(names[number % names.size()]);
    if (number >= names.size())
        name.append(" (").append(std::to_string(number / names.size() + 1)).append(")");
    return name;
}

}  // namespace prot::sample
