#include "apps/protcsv/sample/sample_framework_desk.h"

#include <algorithm>
#include <utility>

namespace prot::sample {
namespace {

constexpr std::int64_t most_frameworks = 500, most_positions = 50'000;
constexpr std::int64_t rows_per_framework = 400, rows_per_position = 4;
constexpr std::int64_t fewest_positions_of_one = 8;

// No more than this has a change of positions.
constexpr std::int64_t most_rows_of_a_position = 5;

// No ending, and no text, is common: the column is NULL then.
constexpr std::string_view endings[] = {" netto", " gesamt", " lt. Buchführung", " ohne Umlage", ""};
constexpr std::string_view hints[] = {"Abstimmung mit der Kostenstelle", "Nur zum Jahresende", "Vorläufig",
                                      "", ""};
constexpr std::string_view other_names[] = {"Erlöse", "Aufwand", "Sonstiges", "", ""};
constexpr std::string_view patterns[] = {"#.##0,00", "#.##0", "0,0 %", "#.##0;-#.##0"};
constexpr std::string_view imports[] = {"Abgleich", "Lieferung", ""};

std::int64_t framework_count(std::int64_t rows) {
    const auto known = static_cast<std::int64_t>(known_plans().size() + framework_role_count);
    return std::clamp(rows / rows_per_framework, known, most_frameworks);
}

std::int64_t positions_per_framework(std::int64_t rows) {
    const std::int64_t frameworks = framework_count(rows);
    return std::max(fewest_positions_of_one, std::min(rows / rows_per_position, most_positions) / frameworks);
}

std::int64_t positions_of(const FrameworkBook& book) {
    std::int64_t count = 0;
    for (const LinePart& line : book.lines) count += std::ssize(line.positions);
    return count;
}

/// A text of the list that differs from `text`.
template <class Range>
std::string other_than(std::string_view text, Range& list, Random& random) {
    std::string_view other = text;
    while (other == text) other = random.pick(list);
    return std::string(other);
}

}  // namespace

FrameworkDesk::FrameworkDesk(Random random, std::int64_t rows)
    : DeskOfLongChanges(rows), random_(random), maker_(positions_per_framework(rows)) {
    for (std::size_t role = 0; role < framework_role_count; ++role)
        cast_[role] = maker_.cast(static_cast<FrameworkRole>(role), random_);
    early_ones_ = static_cast<std::size_t>(framework_count(rows)) - framework_role_count;
    for (std::size_t number = 0; number < early_ones_; ++number)
        others_.push_back(maker_.other(number, random_));
    positions_ = positions_per_framework(rows) * static_cast<std::int64_t>(early_ones_);
}

LogRow FrameworkDesk::touch_any(const Occasion& occasion) {
    return log_change(any_position(any_book()).position, occasion, [](Position&) {});
}

LogRow FrameworkDesk::rename_position(const Occasion& occasion) {
    FrameworkBook& book = any_book();
    return log_change(any_position(book).position, occasion, [&](Position& position) {
        const std::string name = position_name(book.framework.type, position.entry);
        const std::string before = position.name;
        while (position.name == before) position.name = name + std::string(random_.pick(endings));
        position.import_mark = occasion.author.employee == 0 ? "Abgleich" : "";
    });
}

LogRow FrameworkDesk::renumber_position(const Occasion& occasion) {
    return log_change(any_position(any_book()).position, occasion, [&](Position& position) {
        position.number += static_cast<std::int32_t>(random_.between(1, 9));
    });
}

LogRow FrameworkDesk::annotate_position(const Occasion& occasion) {
    return log_change(any_position(any_book()).position, occasion,
                      [&](Position& position) { position.hint = other_than(position.hint, hints, random_); });
}

LogRow FrameworkDesk::add_any_position(const Occasion& occasion) {
    if (is_too_late(occasion, most_rows_of_a_position)) return touch_any(occasion);
    if (positions_ >= most_positions) return remove_any_position(occasion);
    FrameworkBook& book = any_book();
    ++positions_;
    return add_position(book, random_.pick(book.lines), occasion);
}

LogRow FrameworkDesk::remove_any_position(const Occasion& occasion) {
    FrameworkBook& book = any_book();
    LinePart& line = any_line(book);
    if (is_too_late(occasion, most_rows_of_a_position) || line.positions.size() == 1)
        return touch_any(occasion);
    const auto place = static_cast<std::size_t>(random_.below(std::ssize(line.positions)));
    --positions_;
    return remove_position(line, place, occasion);
}

LogRow FrameworkDesk::reassign(const Occasion& occasion) {
    Assignment& any = random_.pick(any_position(any_book()).assignments);
    return log_change(any, occasion, [&](Assignment& assignment) {
        if (random_.percent(90)) assignment.formula = FrameworkMaker::any_formula(random_);
        if (random_.percent(20)) assignment.quantities = FrameworkMaker::any_formula(random_);
    });
}

LogRow FrameworkDesk::change_cell(const Occasion& occasion) {
    FrameworkBook& book = any_book();
    Cell& any = random_.pick(any_position(book).cells);
    return log_change(any, occasion, [&](Cell& cell) {
        const std::int64_t dice = random_.below(100);
        if (dice < 40) cell.density_id = random_.pick(book.densities).id;
        if (dice >= 30) cell.display = (cell.display + 1) % 3;
        if (dice >= 70) cell.other_name = other_than(cell.other_name, other_names, random_);
        if (dice >= 90) cell.names[0] = other_than(cell.names[0], other_names, random_);
    });
}

LogRow FrameworkDesk::change_line_kind(const Occasion& occasion) {
    LineKind& any = random_.pick(any_book().lines).line_kind;
    return log_change(any, occasion, [&](LineKind& kind) {
        const std::int64_t dice = random_.below(100);
        if (dice < 60) kind.font = FrameworkMaker::any_font(random_);
        if (dice >= 50) kind.indent = (kind.indent + 2) % 8;
        if (dice >= 85) kind.import_mark = other_than(kind.import_mark, imports, random_);
    });
}

LogRow FrameworkDesk::change_column(const Occasion& occasion) {
    return log_change(any_column(), occasion, [&](ReportColumn& column) {
        const std::int64_t dice = random_.below(100);
        if (dice < 60) column.width = (column.width + static_cast<std::int32_t>(dice) % 7) % 20 + 8;
        if (dice >= 50) column.heading = column.name + std::string(random_.pick(endings));
    });
}

LogRow FrameworkDesk::change_format(const Occasion& occasion) {
    LinePart& line = random_.pick(any_book().lines);
    return log_change(random_.pick(line.formats), occasion, [&](ColumnFormat& format) {
        if (random_.percent(50)) format.decimals = (format.decimals + 1) % 4;
        format.pattern = other_than(format.pattern, patterns, random_);
    });
}

LogRow FrameworkDesk::change_framework(const Occasion& occasion) {
    const std::int64_t dice = random_.below(100);
    if (dice < 4) return drop_any(occasion);
    if (dice < 8 && std::ssize(others_) < most_frameworks) {
        FrameworkBook book = maker_.small(random_);
        if (!is_too_late(occasion, rows_of(book))) {
            positions_ += positions_of(book);
            return create(others_.emplace_back(std::move(book)), occasion);
        }
    }
    FrameworkBook& book = any_book();
    if (dice < 30)
        return log_change(random_.pick(book.densities), occasion, [](Density& density) { ++density.level; });
    if (dice < 50) return log_change(random_.pick(book.reports).report_kind, occasion, [](ReportKind&) {});
    return log_change(book.framework, occasion, [&](Framework& framework) {
        framework.valid_to = log_end + std::chrono::days(random_.between(30, 900));
    });
}

/// One of those that came after the beginning.
LogRow FrameworkDesk::drop_any(const Occasion& occasion) {
    const auto later_ones = std::ssize(others_) - static_cast<std::ptrdiff_t>(early_ones_);
    if (later_ones == 0) return touch_any(occasion);
    const auto place =
        static_cast<std::ptrdiff_t>(static_cast<std::int64_t>(early_ones_) + random_.below(later_ones));
    FrameworkBook& book = others_[static_cast<std::size_t>(place)];
    if (is_too_late(occasion, rows_of(book))) return touch_any(occasion);
    positions_ -= positions_of(book);
    LogRow row = dissolve(book, occasion);
    others_.erase(others_.begin() + place);
    return row;
}

LogRow FrameworkDesk::create(FrameworkBook& book, const Occasion& occasion) {
    book.exists = true;
    visit_records(book, [&](auto& record) { create_record(record, occasion); });
    return next_row();
}

/// What belongs to a record goes before it.
LogRow FrameworkDesk::dissolve(FrameworkBook& book, const Occasion& occasion) {
    book.exists = false;
    std::vector<LogRow> rows;
    visit_records(book, [&](const auto& record) { rows.push_back(log_deletion(record, occasion)); });
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) queue(std::move(*row));
    return next_row();
}

LogRow FrameworkDesk::add_position(FrameworkBook& book, LinePart& line, const Occasion& occasion) {
    PositionPart& part = line.positions.emplace_back(maker_.position(book, line, random_));
    create_record(part.position, occasion);
    for (Assignment& assignment : part.assignments) create_record(assignment, occasion);
    for (Cell& cell : part.cells) create_record(cell, occasion);
    return next_row();
}

LogRow FrameworkDesk::remove_position(LinePart& line, std::size_t place, const Occasion& occasion) {
    const PositionPart& part = line.positions[place];
    for (const Cell& cell : part.cells) delete_record(cell, occasion);
    for (const Assignment& assignment : part.assignments) delete_record(assignment, occasion);
    delete_record(part.position, occasion);
    line.positions.erase(line.positions.begin() + static_cast<std::ptrdiff_t>(place));
    return next_row();
}

LogRow FrameworkDesk::add_line(FrameworkBook& book, const Occasion& occasion, std::string_view name) {
    LinePart& part = book.lines.emplace_back(maker_.line(book, random_));
    part.line_kind.name = name;
    part.formats.push_back(maker_.format(part, book.reports.front().columns.front(), random_));
    create_record(part.line_kind, occasion);
    create_record(part.formats.front(), occasion);
    return next_row();
}

LogRow FrameworkDesk::remove_line(FrameworkBook& book, const Occasion& occasion) {
    const LinePart part = std::move(book.lines.back());
    book.lines.pop_back();
    for (const ColumnFormat& format : part.formats) delete_record(format, occasion);
    delete_record(part.line_kind, occasion);
    return next_row();
}

/// One with positions; there always is one.
LinePart& FrameworkDesk::any_line(FrameworkBook& book) {
    for (;;) {
        LinePart& line = random_.pick(book.lines);
        if (!line.positions.empty()) return line;
    }
}

PositionPart& FrameworkDesk::any_position(FrameworkBook& book) {
    return random_.pick(any_line(book).positions);
}

ReportColumn& FrameworkDesk::any_column() { return random_.pick(random_.pick(any_book().reports).columns); }

}  // namespace prot::sample
