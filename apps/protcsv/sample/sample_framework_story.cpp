#include "apps/protcsv/sample/sample_framework_story.h"

#include <utility>

namespace prot::sample {
namespace {

using std::chrono::year;

using BookChange = ChangeOf<FrameworkDesk, FrameworkBook>;

// The records that the story is about.
Framework& framework(FrameworkBook& book) { return book.framework; }
Density& density(FrameworkBook& book) { return book.densities.back(); }
ReportKind& report_kind(FrameworkBook& book) { return book.reports.front().report_kind; }
ReportColumn& column(FrameworkBook& book) { return book.reports.front().columns.back(); }
LineKind& line_kind(FrameworkBook& book) { return book.lines.front().line_kind; }
ColumnFormat& format(FrameworkBook& book) { return book.lines.front().formats.front(); }
PositionPart& first_part(FrameworkBook& book) { return book.lines.front().positions.front(); }
PositionPart& last_part(FrameworkBook& book) { return book.lines.back().positions.back(); }
Position& position(FrameworkBook& book) { return first_part(book).position; }
Position& last_position(FrameworkBook& book) { return last_part(book).position; }
Cell& cell(FrameworkBook& book) { return first_part(book).cells.front(); }
Assignment& assignment(FrameworkBook& book) { return first_part(book).assignments.front(); }
Assignment& last_assignment(FrameworkBook& book) { return last_part(book).assignments.back(); }

std::vector<Density>& densities(FrameworkBook& book) { return book.densities; }
std::vector<ReportColumn>& columns(FrameworkBook& book) { return book.reports.front().columns; }
std::vector<ColumnFormat>& formats(FrameworkBook& book) { return book.lines.front().formats; }
std::vector<Cell>& cells(FrameworkBook& book) { return first_part(book).cells; }
std::vector<Assignment>& assignments(FrameworkBook& book) { return first_part(book).assignments; }

template <auto list, class Record>
LogRow add(FrameworkBook& book, const Occasion& occasion, Record record) {
    return log_creation(list(book).emplace_back(std::move(record)), occasion);
}

LogRow add_density(FrameworkDesk& desk, FrameworkBook& book, const Occasion& occasion, std::string_view) {
    return add<densities>(book, occasion, desk.maker().density(book, desk.random()));
}

LogRow add_column(FrameworkDesk& desk, FrameworkBook& book, const Occasion& occasion, std::string_view) {
    return add<columns>(book, occasion, desk.maker().column(book.reports.front(), desk.random()));
}

LogRow add_format(FrameworkDesk& desk, FrameworkBook& book, const Occasion& occasion, std::string_view) {
    return add<formats>(book, occasion, desk.maker().format(book.lines.front(), column(book), desk.random()));
}

LogRow add_cell(FrameworkDesk& desk, FrameworkBook& book, const Occasion& occasion, std::string_view) {
    return add<cells>(book, occasion, desk.maker().cell(position(book), density(book), desk.random()));
}

LogRow add_assignment(FrameworkDesk& desk, FrameworkBook& book, const Occasion& occasion, std::string_view) {
    constexpr std::size_t another_chart = 3;
    return add<assignments>(book, occasion,
                            desk.maker().assignment(position(book), another_chart, desk.random()));
}

template <auto list>
LogRow remove_last(FrameworkDesk&, FrameworkBook& book, const Occasion& occasion, std::string_view) {
    const auto removed = std::move(list(book).back());
    list(book).pop_back();
    return log_deletion(removed, occasion);
}

LogRow add_line(FrameworkDesk& desk, FrameworkBook& book, const Occasion& occasion, std::string_view name) {
    return desk.add_line(book, occasion, name);
}

LogRow add_position(FrameworkDesk& desk, FrameworkBook& book, const Occasion& occasion, std::string_view) {
    return desk.add_position(book, book.lines.back(), occasion);
}

LogRow remove_position(FrameworkDesk& desk, FrameworkBook& book, const Occasion& occasion, std::string_view) {
    LinePart& line = book.lines.back();
    return desk.remove_position(line, line.positions.size() - 1, occasion);
}

/// Its last line kind's last position becomes one of the first line kind.
LogRow move_position(FrameworkDesk&, FrameworkBook& book, const Occasion& occasion, std::string_view) {
    std::vector<PositionPart>& from = book.lines.back().positions;
    LogRow row = log_change(from.back().position, occasion,
                            [&](Position& moved) { moved.line_kind_id = book.lines.front().line_kind.id; });
    book.lines.front().positions.push_back(std::move(from.back()));
    from.pop_back();
    return row;
}

LogRow move_cell(FrameworkDesk&, FrameworkBook& book, const Occasion& occasion, std::string_view) {
    const std::int32_t density_id = density(book).id;
    return log_change(cell(book), occasion, [density_id](Cell& moved) { moved.density_id = density_id; });
}

/// Until the end of that year; without a year, for good.
LogRow limit(FrameworkDesk&, FrameworkBook& book, const Occasion& occasion, std::string_view last_year) {
    return log_change(book.framework, occasion, [last_year](Framework& limited) {
        limited.valid_to = last_year.empty() ? Day() : Day(year{number_of(last_year)} / 12 / 31);
    });
}

LogRow touch(FrameworkDesk&, FrameworkBook& book, const Occasion& occasion, std::string_view) {
    return log_change(position(book), occasion, [](Position&) {});
}

constexpr BookChange create = act<&FrameworkDesk::create>;
constexpr BookChange dissolve = act<&FrameworkDesk::dissolve>;
constexpr BookChange remove_line = act<&FrameworkDesk::remove_line>;
constexpr BookChange rename_framework = set_in<framework, &Framework::name>;
constexpr BookChange rename_density = set_in<density, &Density::name>;
constexpr BookChange rename_report = set_in<report_kind, &ReportKind::name>;
constexpr BookChange rename_column = set_in<column, &ReportColumn::name>;
constexpr BookChange set_heading = set_in<column, &ReportColumn::heading>;
constexpr BookChange set_width = set_in<column, &ReportColumn::width>;
constexpr BookChange rename_line = set_in<line_kind, &LineKind::name>;
constexpr BookChange set_font = set_in<line_kind, &LineKind::font>;
constexpr BookChange mark_line_import = set_in<line_kind, &LineKind::import_mark>;
constexpr BookChange set_decimals = set_in<format, &ColumnFormat::decimals>;
constexpr BookChange set_pattern = set_in<format, &ColumnFormat::pattern>;
constexpr BookChange rename_position = set_in<position, &Position::name>;
constexpr BookChange rename_last = set_in<last_position, &Position::name>;
constexpr BookChange renumber = set_in<last_position, &Position::number>;
constexpr BookChange set_hint = set_in<last_position, &Position::hint>;
constexpr BookChange mark_import = set_in<position, &Position::import_mark>;
constexpr BookChange set_display = set_in<cell, &Cell::display>;
constexpr BookChange set_other_name = set_in<cell, &Cell::other_name>;
constexpr BookChange assign = set_in<assignment, &Assignment::formula>;
constexpr BookChange assign_last = set_in<last_assignment, &Assignment::formula>;
constexpr BookChange assign_quantities = set_in<assignment, &Assignment::quantities>;
constexpr BookChange lose_memo = damage_of<assign, without_memo>;
constexpr BookChange lose_document = damage_of<rename_last, without_document>;
constexpr BookChange empty_document = damage_of<rename_last, with_empty_document>;
constexpr BookChange break_document = damage_of<rename_last, with_broken_document>;
constexpr BookChange lose_date = damage_of<rename_last, without_date>;

/// Another program spells the columns in lower case.
LogRow rename_in_lower_case(FrameworkDesk& desk, FrameworkBook& book, const Occasion& occasion,
                            std::string_view name) {
    const std::string former = last_position(book).name;
    return logged_as(rename_last(desk, book, occasion, name), "ap_bezeichnung", former, name);
}

// Each kind of change and of value, first on frameworks that are gone at the end.
// clang-format off
constexpr Step<FrameworkDesk> story[] = {
    {year{2023} / 11 / 14, on<cash_new, create>,                  ""},
    {year{2024} /  2 / 13, on<earnings, assign>,                  "S(8000:8199) + S(8300:8399)"},
    {year{2024} /  2 / 22, on<earnings, rename_last>,             "Werbung und Reisen"},
    {year{2024} /  3 /  4, on<earnings_gone, rename_position>,    "Erlöse Speisen und Getränke"},
    {year{2024} /  3 / 13, on<office_gone, assign>,               "S(8400:8419)"},
    {year{2024} /  3 / 22, on<earnings, assign>,                  "S(8000:8199)\r\n- S(8700:8749); siehe \"Skonti\"\r\n- S(8750:8799)"},
    {year{2024} /  4 /  2, on<earnings_gone, set_display>,        "2"},
    {year{2024} /  4 / 11, on<earnings, limit>,                   "2028"},
    {year{2024} /  4 / 19, on<earnings_gone, assign>,             "S(8500:8519) - S(8590)"},
    {year{2024} /  4 / 29, on<balance, rename_column>,            "Abw. \"absolut\"; in EUR"},
    {year{2024} /  5 /  8, on<earnings_gone, set_font>,           "unterstrichen"},
    {year{2024} /  5 / 16, on<balance, set_decimals>,             "0"},
    {year{2024} /  5 / 27, on<earnings_gone, set_width>,          "24"},
    {year{2024} /  6 /  4, on<office_earnings, assign>,           "S(8000:8299)"},
    {year{2024} /  6 / 13, on<earnings_gone, rename_line>,        "Posten der Küche"},
    {year{2024} /  6 / 24, on<earnings_gone, set_pattern>,        "#.##0;-#.##0"},
    {year{2024} /  7 /  2, on<earnings_gone, dissolve>,           ""},
    {year{2024} / 10 /  1, on<earnings, add_line>,                "Statistik"},
    {year{2024} / 10 / 21, on<earnings, add_position>,            ""},
    {year{2024} / 11 / 18, on<earnings, rename_last>,             "Anzahl Gäste"},
    {year{2024} / 11 / 27, on<office_gone, rename_position>,      "Umsatz Handwerk"},
    {year{2024} / 12 /  5, on<earnings, assign>,                  "S(8000:8199) - S(8700:8799)"},
    {year{2024} / 12 / 16, on<office_gone, rename_line>,          "Posten, alt"},
    {year{2025} /  1 /  7, on<earnings, assign_last>,             "M(9000:9010)"},
    {year{2025} /  1 / 15, on<earnings, remove_position>,         ""},
    {year{2025} /  2 /  7, on<earnings, remove_line>,             ""},
    {year{2025} /  2 / 25, on<earnings, renumber>,                "95"},
    {year{2025} /  3 /  5, on<earnings, set_hint>,                "Ohne Bewirtung\r\n(siehe Kostenstelle 400)"},
    {year{2025} /  3 / 13, on<earnings, lose_memo>,               "S(8000:8189) - S(8700:8799)"},
    {year{2025} /  3 / 24, on<earnings, assign>,                  "S(8000:8189)"},
    {year{2025} /  4 /  1, on<earnings, assign_quantities>,       "M(8000:8189)"},
    {year{2025} /  4 /  9, on<earnings, move_cell>,               ""},
    {year{2025} /  4 / 17, on<earnings, set_other_name>,          "Erlöse"},
    {year{2025} /  4 / 28, on<balance, add_cell>,                 ""},
    {year{2025} /  5 /  7, on<office_gone, dissolve>,             ""},
    {year{2025} /  8 /  6, on<earnings, touch>,                   ""},
    {year{2025} /  8 / 14, on<cash_new, rename_framework>,        "Liquidität \"Projekte\"; Bau"},
    {year{2025} /  8 / 22, on<earnings, rename_in_lower_case>,    "Werbe- und Reisekosten"},
    {year{2025} /  9 /  1, on<balance, add_column>,               ""},
    {year{2025} /  9 /  9, on<balance, set_heading>,              "Plan\r\n2026"},
    {year{2025} /  9 / 17, on<balance, remove_last<columns>>,     ""},
    {year{2025} /  9 / 26, on<earnings, set_hint>,                ""},
    {year{2025} / 10 /  7, on<earnings, add_assignment>,          ""},
    {year{2025} / 10 / 15, on<earnings, remove_last<assignments>>, ""},
    {year{2025} / 10 / 24, on<balance, add_density>,              ""},
    {year{2025} / 11 /  3, on<balance, rename_density>,           "Prüferfassung"},
    {year{2025} / 11 / 11, on<balance, rename_report>,            "Halbjahresauswertung"},
    {year{2025} / 11 / 19, on<earnings, move_position>,           ""},
    {year{2025} / 11 / 28, on<earnings, mark_import>,             "Lieferung 11/2025"},
    {year{2025} / 12 /  8, on<earnings, mark_line_import>,        "Lieferung 12/2025"},
    {year{2025} / 12 / 16, on<balance, empty_document>,           "Ergebnis"},
    {year{2026} /  1 /  7, on<balance, rename_last>,              "=Summe der Umsatzerlöse"},
    {year{2026} /  1 / 15, on<balance, rename_last>,              "- davon gegen Gesellschafter -"},
    {year{2026} /  1 / 23, on<balance, set_hint>,                 "Nur < 5 Jahre & mit Nachweis"},
    {year{2026} /  2 /  2, on<balance, lose_document>,            "Ergebnis vor Steuern"},
    {year{2026} /  2 / 10, on<balance, add_format>,               ""},
    {year{2026} /  2 / 18, on<balance, remove_last<formats>>,     ""},
    {year{2026} /  2 / 26, on<balance, remove_last<cells>>,       ""},
    {year{2026} /  3 /  6, on<balance_before, limit>,             "2025"},
    {year{2026} /  3 / 16, on<balance, break_document>,           "Ergebnis nach Steuern"},
    {year{2026} /  3 / 25, on<balance, lose_date>,                "Jahresergebnis"},
    {year{2026} /  4 /  3, on<balance, remove_position>,          ""},
    {year{2026} /  4 / 28, on<office_earnings, rename_last>,      "Reisekosten \"Inland\"; ohne Werbung"},
    {year{2026} /  5 /  6, on<office_earnings, assign>,           "S(8000:8298); ohne \"8299\""},
    {year{2026} /  5 / 15, on<office_earnings, move_cell>,        ""},
    {year{2026} /  5 / 25, on<office_earnings, rename_column>,    "Abweichung"},
    {year{2026} /  6 /  3, on<office_earnings, set_decimals>,     "1"},
    {year{2026} /  6 / 11, on<office_earnings, set_font>,         "kapitälchen"},
    {year{2026} /  6 / 19, on<balance_before, set_hint>,          "@Prüfer: bitte abstimmen"},
    {year{2026} /  6 / 30, on<earnings, limit>,                   ""},
};
// clang-format on

}  // namespace

std::span<const Step<FrameworkDesk>> framework_story() { return story; }

}  // namespace prot::sample
