#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "apps/protcsv/sample/sample_framework_plans.h"
#include "apps/protcsv/sample/sample_frameworks.h"

/// Report frameworks of a sample database with all that belongs to them.
namespace prot::sample {

struct PositionPart {
    Position position;
    std::vector<Cell> cells;
    std::vector<Assignment> assignments;
};

struct LinePart {
    LineKind line_kind;
    std::vector<ColumnFormat> formats;
    std::vector<PositionPart> positions;
};

struct ReportPart {
    ReportKind report_kind;
    std::vector<ReportColumn> columns;
};

struct FrameworkBook {
    bool exists = true;
    Framework framework;
    std::vector<Density> densities;
    std::vector<ReportPart> reports;
    std::vector<LinePart> lines;
    std::int32_t entries = 0;  ///< names of positions that have been used
};

/// visit(record) for every record, kind by kind, none before the record that it belongs to.
template <class Book, class Visit>
void visit_records(Book& book, Visit visit) {
    visit(book.framework);
    for (auto& density : book.densities) visit(density);
    for (auto& report : book.reports) visit(report.report_kind);
    for (auto& report : book.reports)
        for (auto& column : report.columns) visit(column);
    for (auto& line : book.lines) visit(line.line_kind);
    for (auto& line : book.lines)
        for (auto& format : line.formats) visit(format);
    for (auto& line : book.lines)
        for (auto& part : line.positions) visit(part.position);
    for (auto& line : book.lines)
        for (auto& part : line.positions)
            for (auto& assignment : part.assignments) visit(assignment);
    for (auto& line : book.lines)
        for (auto& part : line.positions)
            for (auto& cell : part.cells) visit(cell);
}

inline std::int64_t rows_of(const FrameworkBook& book) {
    std::int64_t rows = 0;
    visit_records(book, [&rows](const auto&) { ++rows; });
    return rows;
}

/// Makes books, and parts of them that are new.
class FrameworkMaker {
public:
    /// positions: of a usual framework.
    explicit FrameworkMaker(std::int64_t positions) : positions_(positions) {}

    /// They are asked for in the order of the roles, before any other.
    FrameworkBook cast(FrameworkRole role, Random& random);

    /// One of the others that every sample database has, or, beyond them, one more.
    FrameworkBook other(std::size_t number, Random& random);

    /// A standard framework with a part of each kind, two positions among them.
    FrameworkBook small(Random& random);

    // They belong to what is given, but are not in it yet.
    Density density(const FrameworkBook& book, Random& random);
    ReportPart report(const FrameworkBook& book, Random& random);
    ReportColumn column(const ReportPart& report, Random& random);
    LinePart line(const FrameworkBook& book, Random& random);
    ColumnFormat format(const LinePart& line, const ReportColumn& column, Random& random);
    PositionPart position(FrameworkBook& book, const LinePart& line, Random& random);
    Cell cell(const Position& position, const Density& density, Random& random);
    Assignment assignment(const Position& position, std::size_t chart, Random& random);

    static std::string any_formula(Random& random);
    static std::string_view any_font(Random& random);

private:
    FrameworkBook make(const FrameworkPlan& plan, Random& random);

    template <class Record>
    Record record(Random& random);

    std::int64_t positions_;
    std::array<std::int32_t, 9> records_{};  ///< made so far, by the first digit of their keys
    std::size_t small_ones_ = 0;
};

/// The charts of accounts, the same in every sample database.
std::span<const Chart> charts();

}  // namespace prot::sample
