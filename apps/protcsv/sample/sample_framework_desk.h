#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "apps/protcsv/sample/sample_framework_books.h"
#include "apps/protcsv/sample/sample_story.h"

namespace prot::sample {

/// The desk where report frameworks are kept: their present state, and the ways in which they change. Every
/// change keeps the present state and the log in step and returns its log row, or the first of them.
class FrameworkDesk : public DeskOfLongChanges {
public:
    /// rows: of the log to come; the more rows, the more frameworks and positions there are from the start.
    FrameworkDesk(Random random, std::int64_t rows);

    // Everyday changes. They happen to everybody but those whom the story is about.
    LogRow touch_any(const Occasion& occasion);  ///< only when and by whom
    LogRow rename_position(const Occasion& occasion);
    LogRow renumber_position(const Occasion& occasion);
    LogRow annotate_position(const Occasion& occasion);
    LogRow add_any_position(const Occasion& occasion);
    LogRow remove_any_position(const Occasion& occasion);
    LogRow reassign(const Occasion& occasion);  ///< other accounts
    LogRow change_cell(const Occasion& occasion);
    LogRow change_line_kind(const Occasion& occasion);
    LogRow change_column(const Occasion& occasion);
    LogRow change_format(const Occasion& occasion);
    LogRow change_framework(const Occasion& occasion);  ///< now and then a new one, or one less

    // Changes of one framework.
    LogRow create(FrameworkBook& book, const Occasion& occasion);
    LogRow dissolve(FrameworkBook& book, const Occasion& occasion);
    LogRow add_position(FrameworkBook& book, LinePart& line, const Occasion& occasion);
    LogRow remove_position(LinePart& line, std::size_t place, const Occasion& occasion);
    LogRow add_line(FrameworkBook& book, const Occasion& occasion, std::string_view name);
    /// One without positions.
    LogRow remove_line(FrameworkBook& book, const Occasion& occasion);

    Random& random() { return random_; }
    FrameworkMaker& maker() { return maker_; }
    FrameworkBook& cast(FrameworkRole role) { return cast_[role]; }

    std::span<const FrameworkBook> cast() const { return cast_; }
    std::span<const FrameworkBook> others() const { return others_; }

private:
    FrameworkBook& any_book() { return any_of(others_, random_); }
    LinePart& any_line(FrameworkBook& book);
    PositionPart& any_position(FrameworkBook& book);
    ReportColumn& any_column();
    LogRow drop_any(const Occasion& occasion);

    Random random_;
    FrameworkMaker maker_;
    std::array<FrameworkBook, framework_role_count> cast_;
    std::vector<FrameworkBook> others_;
    std::size_t early_ones_ = 0;  ///< of the others; those behind came later
    std::int64_t positions_ = 0;  ///< of the others
};

}  // namespace prot::sample
