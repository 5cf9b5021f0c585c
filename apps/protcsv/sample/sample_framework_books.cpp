#include "apps/protcsv/sample/sample_framework_books.h"

namespace prot::sample {
namespace {

using std::chrono::days;

constexpr std::string_view line_kinds[] = {"Einzelposten", "Zwischensumme", "Summe", "Überschrift"};
constexpr std::string_view densities[] = {"Kurzfassung", "Normalfassung", "Einzelnachweis"};
constexpr std::string_view report_kinds[] = {"Monatsauswertung", "Jahresvergleich"};
constexpr std::string_view columns[] = {"Lfd. Monat", "Vorjahr", "Abweichung in %"};
constexpr std::string_view fonts[] = {"normal", "fett", "kursiv"};
constexpr std::string_view operators[] = {" + ", " - "};

/// How many parts a framework has.
struct Extent {
    std::size_t densities, reports, columns, lines, formats;
};
constexpr Extent usual = {3, 2, 3, 4, 2};
constexpr Extent smallest = {1, 1, 1, 1, 1};
constexpr std::int64_t fewest_positions = 2;

}  // namespace

FrameworkBook FrameworkMaker::cast(FrameworkRole role, Random& random) {
    return make(cast_plan(role), random);
}

FrameworkBook FrameworkMaker::other(std::size_t number, Random& random) {
    const std::span<const FrameworkPlan> known = known_plans();
    if (number < known.size()) return make(known[number], random);
    FrameworkBook book = make(later_plan(number - known.size()), random);
    book.framework.name = later_name(number - known.size());
    return book;
}

FrameworkBook FrameworkMaker::small(Random& random) {
    FrameworkBook book = make(small_plan(small_ones_), random);
    book.framework.name = small_name(small_ones_++);
    return book;
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
    position.name = position_name(book.framework.type, position.entry);
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
