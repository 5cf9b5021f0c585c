#include "sections/report_frameworks/framework_lists.h"

#include <array>
#include <cstdio>

#include "core/ProtQRBCsvBas.h"
#include "core/log_row.h"
#include "platform/automation/date_text.h"
#include "platform/automation/text_forms.h"

namespace prot::report_frameworks {

namespace {

std::string text_at(const RowSet& rows, std::size_t column, std::size_t row) {
    return to_text(rows.at(column, row).value());
}

/// " = type AND column = kind" of the chosen frameworks, by two columns.
std::string of_type_and_kind(const Filter& chosen, std::string_view type_column,
                             std::string_view kind_column) {
    return std::string(type_column)
        .append(" = ")
        .append(std::to_string(chosen.mlAuswertungsart))
        .append(" AND ")
        .append(kind_column)
        .append(" = ")
        .append(std::to_string(chosen.mbyRahmenTyp));
}

/// A month as mm/yyyy; empty for the null date.
std::string month_of(Date date) {
    if (to_text(date) == "00:00:00") return {};
    const CivilTime day = to_civil(date);
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%02d/%04d", day.month, day.year);
    return text.data();
}

std::string msGueltigkeitAufb(const std::string& sVon, const std::string& sBis) {
    if (!sVon.empty() && !sBis.empty()) return " (" + sVon + "-" + sBis + ")";
    if (!sVon.empty()) return " (Gültig ab " + sVon + ")";
    if (!sBis.empty()) return " (Gültig bis " + sBis + ")";
    return {};
}

}  // namespace

std::vector<ListedFramework> live_frameworks(const Filter& chosen, Database& oDBU) {
    enum : std::size_t { id, name, valid_from, valid_to, columns };
    const RowSet rows = oDBU.query_array(
        "SELECT ARa_Id,        ARa_Bezeichnung,        ddGueltigVon,        ddGueltigBis  "
        " FROM Auswertungsrahmen   WHERE " +
        of_type_and_kind(chosen, "ARa_Art", "       ARa_Typ") +
        " Order by  dcGUID,  ARa_Bezeichnung,  ddGueltigVon");
    rows.require_columns(columns);
    std::vector<ListedFramework> frameworks;
    for (std::size_t row = 0; row < rows.rows(); ++row)
        frameworks.push_back({number_of(rows.at(id, row)), text_at(rows, name, row),
                              date_if_any(rows.at(valid_from, row)).value_or(Date()),
                              date_if_any(rows.at(valid_to, row)).value_or(Date())});
    return frameworks;
}

std::vector<ListedFramework> deleted_frameworks(const Filter& chosen, Database& oDBU,
                                                Environment& environment) {
    const RowSet rows = oDBU.query_array(
        "SELECT dmData FROM tProtokoll WHERE dcTable = 'AuswertungsRahmen' AND dlEvent = 2 AND " +
        of_type_and_kind(chosen, "dlSuchId2", "dlSuchId3") + " ORDER BY ddDatum ASC");
    rows.require_columns(1);
    std::vector<ListedFramework> frameworks;
    if (rows.empty()) return frameworks;
    const auto oXML = create_change_document_reader(environment);
    for (std::size_t row = 0; row < rows.rows(); ++row) {
        if (!oXML->load(text_at(rows, 0, row))) continue;
        std::string name(oXML->old_value_of("ARa_Bezeichnung"));
        const std::optional<std::int32_t> id = number_in_range(oXML->old_value_of("ARa_Id"));
        frameworks.push_back({id.value_or(0), std::move(name), {}, {}});
    }
    return frameworks;
}

std::vector<Entry> charts_of_accounts(Database& oDBU) {
    enum : std::size_t { id, name, columns };
    const RowSet rows =
        oDBU.query_array("SELECT KR_Id, KR_Bezeichnung FROM Kontenrahmen ORDER BY KR_Bezeichnung");
    rows.require_columns(columns);
    std::vector<Entry> charts;
    for (std::size_t row = 0; row < rows.rows(); ++row)
        charts.push_back({number_of(rows.at(id, row)), text_at(rows, name, row)});
    return charts;
}

std::string msGueltigKeit(Date dtVon, Date dtBis) {
    const std::string sVon = month_of(dtVon);
    return msGueltigkeitAufb(sVon, month_of(dtBis));
}

}  // namespace prot::report_frameworks
