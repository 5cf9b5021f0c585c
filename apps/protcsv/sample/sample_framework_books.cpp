#include "apps/protcsv/sample/sample_framework_books.h"

namespace prot::sample {
namespace {

using std::chrono::days;
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

constexpr std::string_view line_kinds[] = {"Einzelposten", "Zwischensumme", "Summe", "Überschrift"};
constexpr std::string_view densities[] = {"Kurzfassung", "Normalfassung", "Einzelnachweis"};
constexpr std::string_view report_kinds[] = {"Monatsauswertung", "Jahresvergleich"};
constexpr std::string_view columns[] = {"Lfd. Monat", "Vorjahr", "Abweichung in %"};
constexpr std::string_view fonts[] = {"normal", "fett", "kursiv"};
constexpr std::string_view operators[] = {" + ", " - "};
// clang-format on

/// How many parts a framework has.
struct Extent {
    std::size_t densities, reports, columns, lines, formats;
};
constexpr Extent usual = {3, 2, 3, 4, 2};
constexpr Extent smallest = {1, 1, 1, 1, 1};
constexpr std::int64_t fewest_positions = 2;

const TypeRow& type_row(std::int32_t type) {
    const TypeRow* row = types;
    while (row->type != type) ++row;
    return *row;
}

/// The names of a list one after another, and then all again with a number.
template <std::size_t count>
std::string numbered(const std::string_view (&names)[count], std::size_t number) {
    std::string name(names[number % count]);
    if (number >= count) name.append(" (").append(std::to_string(number / count + 1)).append(")");
    return name;
}

}  // namespace

struct FrameworkPlan {
    std::string_view name;
    std::int32_t type, kind, mark;
    Day valid_from = {}, valid_to = {};  ///< the null day: no limit
    enum { full, small, small_and_new, version_of_the_one_before } nature = full;
};

namespace {

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
constexpr FrameworkPlan known_plans[] = {
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

}  // namespace

FrameworkBook FrameworkMaker::cast(Role role, Random& random) { return make(cast_plans[role], random); }

std::size_t FrameworkMaker::known_count() { return std::size(known_plans); }

FrameworkBook FrameworkMaker::other(std::size_t number, Random& random) {
    if (number < known_count()) return make(known_plans[number], random);
    const std::size_t pair = (number - known_count()) / 2;
    const bool is_copy = (number - known_count()) % 2 == 1;
    const TypeRow& type = types[pair % std::size(types)];
    const std::size_t round = pair / std::size(types);
    std::string name(type.title);
    name.append(" ").append(numbered(branches, round)).append(is_copy ? ", Kanzlei" : "");
    const Validity& validity = validities[pair % std::size(validities)];
    return make({.name = name,
                 .type = type.type,
                 .kind = is_copy ? office : standard,
                 .mark = first_later_mark + static_cast<std::int32_t>(round),
                 .valid_from = validity.from,
                 .valid_to = validity.to},
                random);
}

FrameworkBook FrameworkMaker::small(Random& random) {
    const std::int32_t number = small_ones_++;
    const std::string name = "Projekt " + numbered(branches, static_cast<std::size_t>(number));
    return make({.name = name,
                 .type = types[static_cast<std::size_t>(number) % std::size(types)].type,
                 .kind = standard,
                 .mark = first_small_mark + number,
                 .nature = FrameworkPlan::small_and_new},
                random);
}

FrameworkBook FrameworkMaker::make(const FrameworkPlan& plan, Random& random) {
    const bool is_small = plan.nature == FrameworkPlan::small || plan.nature == FrameworkPlan::small_and_new;
    const Extent& extent = is_small ? smallest : usual;
    FrameworkBook book;
    book.exists = plan.nature != FrameworkPlan::small_and_new;
    book.framework = record<Framework>(random);
    Framework& framework = book.framework;
    framework.name = plan.name;
    framework.type = plan.type;
    framework.kind = plan.kind;
    framework.mark = plan.mark;
    framework.valid_from = plan.valid_from;
    framework.valid_to = plan.valid_to;
    framework.family =
        plan.nature == FrameworkPlan::version_of_the_one_before ? framework.id - 1 : framework.id;
    while (book.densities.size() < extent.densities) book.densities.push_back(density(book, random));
    while (book.reports.size() < extent.reports) book.reports.push_back(report(book, random));
    for (ReportPart& part : book.reports)
        while (part.columns.size() < extent.columns) part.columns.push_back(column(part, random));
    while (book.lines.size() < extent.lines) book.lines.push_back(line(book, random));
    for (LinePart& part : book.lines)
        for (const ReportColumn& shown : std::span(book.reports.front().columns).first(extent.formats))
            part.formats.push_back(format(part, shown, random));
    const std::int64_t count = is_small ? fewest_positions : positions_;
    for (std::int64_t number = 0; number < count; ++number) {
        LinePart& part = book.lines[static_cast<std::size_t>(number) % book.lines.size()];
        part.positions.push_back(position(book, part, random));
    }
    return book;
}

Density FrameworkMaker::density(const FrameworkBook& book, Random& random) {
    Density density = record<Density>(random);
    density.framework_id = book.framework.id;
    density.name = numbered(densities, book.densities.size());
    density.level = static_cast<std::int32_t>(book.densities.size()) + 1;
    return density;
}

ReportPart FrameworkMaker::report(const FrameworkBook& book, Random& random) {
    ReportPart part;
    part.report_kind = record<ReportKind>(random);
    part.report_kind.framework_id = book.framework.id;
    part.report_kind.name = numbered(report_kinds, book.reports.size());
    return part;
}

ReportColumn FrameworkMaker::column(const ReportPart& report, Random& random) {
    ReportColumn column = record<ReportColumn>(random);
    column.report_kind_id = report.report_kind.id;
    column.name = numbered(columns, report.columns.size());
    column.heading = column.name;
    column.width = static_cast<std::int32_t>(random.between(10, 18));
    return column;
}

LinePart FrameworkMaker::line(const FrameworkBook& book, Random& random) {
    LinePart part;
    part.line_kind = record<LineKind>(random);
    part.line_kind.framework_id = book.framework.id;
    part.line_kind.name = numbered(line_kinds, book.lines.size());
    part.line_kind.font = any_font(random);
    part.line_kind.indent = static_cast<std::int32_t>(random.below(3)) * 2;
    return part;
}

ColumnFormat FrameworkMaker::format(const LinePart& line, const ReportColumn& column, Random& random) {
    ColumnFormat format = record<ColumnFormat>(random);
    format.line_kind_id = line.line_kind.id;
    format.column_id = column.id;
    format.pattern = "#.##0,00";
    return format;
}

/// With a cell, and one or two assignments; the same for the same entry, so that copies have what their
/// pattern has.
PositionPart FrameworkMaker::position(FrameworkBook& book, const LinePart& line, Random& random) {
    PositionPart part;
    Position& position = part.position;
    position = record<Position>(random);
    position.line_kind_id = line.line_kind.id;
    position.entry = book.entries++;
    position.number = 10 * (position.entry + 1);
    position.name = position_name(book.framework, position);
    const auto entry = static_cast<std::size_t>(position.entry);
    part.cells.push_back(cell(position, book.densities[entry % book.densities.size()], random));
    part.assignments.push_back(assignment(position, entry, random));
    if (entry % 2 == 1) part.assignments.push_back(assignment(position, entry + 1, random));
    return part;
}

Cell FrameworkMaker::cell(const Position& position, const Density& density, Random& random) {
    Cell cell = record<Cell>(random);
    cell.position_id = position.id;
    cell.density_id = density.id;
    return cell;
}

Assignment FrameworkMaker::assignment(const Position& position, std::size_t chart, Random& random) {
    Assignment assignment = record<Assignment>(random);
    assignment.position_id = position.id;
    assignment.chart_id = charts()[chart % charts().size()].id;
    assignment.formula = any_formula(random);
    return assignment;
}

std::string FrameworkMaker::position_name(const Framework& framework, const Position& position) {
    return numbered(type_row(framework.type).positions, static_cast<std::size_t>(position.entry));
}

/// Sums of balances. One draw a statement: the order of draws within an expression differs between compilers.
std::string FrameworkMaker::any_formula(Random& random) {
    std::string formula;
    for (std::int64_t terms = random.between(1, 4); terms > 0; --terms) {
        if (!formula.empty()) formula += random.pick(operators);
        const std::int64_t first = random.between(400, 879) * 10;
        const std::int64_t last = first + random.between(1, 99);
        formula.append("S(").append(std::to_string(first)).append(":").append(std::to_string(last)) += ")";
    }
    return formula;
}

std::string_view FrameworkMaker::any_font(Random& random) { return random.pick(fonts); }

/// Made before the log begins.
template <class Record>
Record FrameworkMaker::record(Random& random) {
    constexpr std::int32_t keys_of_a_kind = 10'000'000;
    Record record;
    record.id = Record::first_key + records_[Record::first_key / keys_of_a_kind - 1]++;
    record.changed = log_begin - days(random.between(1, 900)) + std::chrono::hours(9);
    record.employee = any_employee(random);
    return record;
}

std::span<const Chart> charts() {
    const auto chart = [](std::int32_t id, std::string_view name, std::int32_t mark) {
        Chart made;
        made.id = id;
        made.name = name;
        made.mark = mark;
        return made;
    };
    static const Chart all[] = {
        chart(11, "Kontenrahmen Handel und Gewerbe", 1),
        chart(12, "Kontenrahmen Industrie", 2),
        chart(13, "Kontenrahmen Handwerk", 3),
        chart(14, "Kontenrahmen Land- und Forstwirtschaft", 4),
        chart(15, "Kontenrahmen Vereine und Stiftungen", 5),
    };
    return all;
}

}  // namespace prot::sample
