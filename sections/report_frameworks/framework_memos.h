#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/id_memory.h"
#include "core/log_row.h"
#include "core/run.h"

namespace prot::report_frameworks {

/// The long texts that a change document names by a mark alone.
class FrameworkMemos {
public:
    explicit FrameworkMemos(Run& run) : run_(run) {}

    /// The text that a log row was written with; empty when there is none.
    std::string msMemoWertNeu(std::int64_t idProtokoll);

    /// The text before the change of `row`, which has a moment: that of the record's previous log row, or,
    /// for the formula of an account assignment, the formula of the same position in the standard framework
    /// of the same type and mark, for the same chart of accounts; empty when there is none.
    std::string msMemoWertAlt(const LogRow& row);

private:
    /// By what the same position of a standard framework is known.
    struct Position {
        std::string name, framework_type, framework_mark;
    };

    struct LivePosition {
        bool exists;
        std::optional<Position> position;  ///< nothing: it has no name
    };

    std::optional<std::string> memo(std::int64_t idProtokoll);
    std::optional<std::string> previous_memo(const LogRow& row);
    std::string standard_formula(std::int32_t chart, std::int32_t position, Date dtDatum);
    const std::string& mark_of_chart(std::int32_t chart);
    const LivePosition& live_position(std::int32_t position);
    std::optional<Position> position_at(std::int32_t position, Date dtDatum);
    std::optional<Position> logged_position(std::int32_t position, Date dtDatum);

    Run& run_;
    IdMemory<std::string> chart_marks_;  // each asked once in a run
    IdMemory<LivePosition> live_positions_;
};

/// The statement whose first value is the formula of a position in the standard framework of a type and mark,
/// for the chart of accounts of a mark. The marks are numbers and stand bare; a name with an apostrophe
/// breaks the statement.
std::string msFormelAltSQL(std::string_view sPosition, std::string_view sArt, std::string_view sKennzeichen,
                           std::string_view sKontenrahmen);

}  // namespace prot::report_frameworks
