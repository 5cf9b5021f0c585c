#include "sections/open_items/fiscal_years.h"

#include "core/log_row.h"
#include "platform/automation/text_forms.h"

namespace prot::open_items {

namespace {

enum YearColumn : std::size_t { year_id, first_day, last_day, year_type, designation, person, year_columns };
enum YearType { planned = 2, group = 4 };

/// The day as dd.mm.yyyy; nothing without one.
std::string day_of(const Cell& cell) {
    const std::optional<Date> date = date_of(cell);
    if (!date) return {};
    CivilTime day = to_civil(*date);
    day.hour = day.minute = day.second = 0;
    return to_text(to_date(day));
}

std::string text_of(const RowSet& rows, std::size_t row) {
    std::string text = day_of(rows.at(first_day, row)) + " - " + day_of(rows.at(last_day, row));
    const std::int32_t type = number_of(rows.at(year_type, row));
    if (type == planned) {
        const std::string name = to_text(rows.at(designation, row).value());
        text += " (" + (name.empty() ? std::string("Planjahr") : name) + ")";
    }
    if (type == group) text += " (Konz)";
    return text;
}

}  // namespace

std::vector<FiscalYear> fiscal_years(Database& oDBU, std::string_view restriction) {
    const RowSet rows = oDBU.query_array(
        std::string(
            "SELECT     Person_Wirtschaftsjahr.WJ_Id,     Zeitraum.Zt_Von,     Zeitraum.Zt_Bis,"
            "     dlWJTyp,     Person_Wirtschaftsjahr.WJ_Bezeichnung,     Person_Wirtschaftsjahr.Ps_Id"
            " FROM Zeitraum      INNER JOIN Person_Wirtschaftsjahr"
            " ON Zeitraum.Zt_Id = Person_Wirtschaftsjahr.Zt_Id WHERE (Person_Wirtschaftsjahr.PS_Id ")
            .append(restriction)
            .append(")  Order By Person_Wirtschaftsjahr.Ps_id, dlWJTyp, Zeitraum.Zt_Bis DESC"));
    rows.require_columns(year_columns);
    std::vector<FiscalYear> years;
    for (std::size_t row = 0; row < rows.rows(); ++row)
        years.push_back({number_of(rows.at(year_id, row)), text_of(rows, row)});
    return years;
}

}  // namespace prot::open_items
