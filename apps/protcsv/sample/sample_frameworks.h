#pragma once

#include <concepts>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "apps/protcsv/sample/sample_records.h"

/// Report frameworks of a sample database and the records that belong to them, their columns, and the log
/// rows of their changes. Empty texts and the null moment are NULL in the tables.
namespace prot::sample {

/// What every record has. Keys of different kinds lie in ranges apart from each other (first_key), so that
/// none fits into a table that it does not belong to.
struct Stored {
    std::int32_t id = 0;
    Moment changed;
    std::int32_t employee = 0;
};

/// A row of Auswertungsrahmen.
struct Framework : Stored {
    static constexpr std::int32_t first_key = 10'000'001;
    std::string name;
    std::int32_t type = 0;  ///< ARa_Art: 0 to 70
    std::int32_t kind = 0;  ///< ARa_Typ
    std::int32_t mark = 0;  ///< ARa_Kennzeichen; an office framework has that of its standard framework
    Day valid_from, valid_to;
    std::int32_t family = 0;  ///< the first version's key; all versions have one dcGUID
};
inline constexpr std::int32_t standard = 0, office = 1;

/// A row of Auswertungsdichte.
struct Density : Stored {
    static constexpr std::int32_t first_key = 20'000'001;
    std::int32_t framework_id = 0;
    std::string name;
    std::int32_t level = 0;
};

/// A row of Auswertungsart.
struct ReportKind : Stored {
    static constexpr std::int32_t first_key = 30'000'001;
    std::int32_t framework_id = 0;
    std::string name;
};

/// A row of Auswertungsspalte.
struct ReportColumn : Stored {
    static constexpr std::int32_t first_key = 40'000'001;
    std::int32_t report_kind_id = 0;
    std::string name, heading;
    std::int32_t width = 0;  ///< in characters
};

/// A row of Zeilenart.
struct LineKind : Stored {
    static constexpr std::int32_t first_key = 50'000'001;
    std::int32_t framework_id = 0;
    std::string name, font;
    std::int32_t indent = 0;  ///< in characters
    std::string import_mark;
};

/// A row of AuswertungsPosition.
struct Position : Stored {
    static constexpr std::int32_t first_key = 60'000'001;
    std::int32_t line_kind_id = 0;
    std::string name;
    std::int32_t number = 0;  ///< AP_NR: its place in the report
    std::string hint, import_mark;
    std::int32_t entry = 0;  ///< of the names that its type of framework has; not logged
};

/// A row of Auswertungszelle: a position in a density.
struct Cell : Stored {
    static constexpr std::int32_t first_key = 70'000'001;
    std::int32_t position_id = 0, density_id = 0;
    std::int32_t display = 1;  ///< 0 never, 1 always, 2 unless zero
    std::string other_name;
    std::string names[3];
};

/// A row of Formel_Position: the accounts that a position adds up, of one chart of accounts.
struct Assignment : Stored {
    static constexpr std::int32_t first_key = 80'000'001;
    std::int32_t position_id = 0, chart_id = 0;
    std::string formula;  ///< a memo
    std::string quantities;
};

/// A row of Spaltenformate: how a column shows the lines of one kind.
struct ColumnFormat : Stored {
    static constexpr std::int32_t first_key = 90'000'001;
    std::int32_t line_kind_id = 0, column_id = 0;
    std::int32_t decimals = 2;
    std::string pattern;
};

/// A row of Kontenrahmen. Its changes belong to no section.
struct Chart : Stored {
    std::string name;
    std::int32_t mark = 0;
};

/// A value as the tables hold it.
using ColumnValue = std::variant<std::int32_t, std::string, Moment>;

std::string logged_text(const ColumnValue& value);

/// A column of a table, with the members of a Field.
template <class Record>
struct Column {
    std::string_view column;
    std::string_view caption;  ///< empty: none
    ColumnValue (*value)(const Record& record);
    bool is_memo = false;

    std::string text(const Record& record) const { return logged_text(value(record)); }
};

template <class Record>
struct RecordTable {
    std::string_view name;  ///< of the table itself; the log writes it in capitals
    LoggedTable<Record, Column<Record>> log;
};

/// Of each kind of record above.
template <class Record>
const RecordTable<Record>& table_of();
// clang-format off
template <> const RecordTable<Framework>& table_of();
template <> const RecordTable<Density>& table_of();
template <> const RecordTable<ReportKind>& table_of();
template <> const RecordTable<ReportColumn>& table_of();
template <> const RecordTable<LineKind>& table_of();
template <> const RecordTable<Position>& table_of();
template <> const RecordTable<Cell>& table_of();
template <> const RecordTable<Assignment>& table_of();
template <> const RecordTable<ColumnFormat>& table_of();
template <> const RecordTable<Chart>& table_of();
// clang-format on

template <std::derived_from<Stored> Record>
LogRow log_row(const Occasion& occasion, const Record* before, const Record* after) {
    return log_row(table_of<Record>().log, occasion, before, after);
}

}  // namespace prot::sample
