#include "sections/report_frameworks/framework_memos.h"

#include "core/ProtQRBCsvBas.h"
#include "core/ZQErrorHandling.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_forms.h"
#include "sections/report_frameworks/frameworks.h"

namespace prot::report_frameworks {

namespace {

constexpr std::string_view account_assignments = "FORMEL_POSITION";

std::string text_at(const RowSet& rows, std::size_t column) { return to_text(rows.at(column, 0).value()); }

bool is_known(std::string_view number) { return !number.empty() && number != undefined; }

}  // namespace

std::string FrameworkMemos::msMemoWertNeu(std::int64_t idProtokoll) try {
    return memo(idProtokoll).value_or(std::string());
} catch (...) {
    leave(owner, "msMemoWertNeu");
}

std::string FrameworkMemos::msMemoWertAlt(const LogRow& row) try {
    if (std::optional<std::string> previous = previous_memo(row)) return *std::move(previous);
    std::string scratch;
    if (!upper_equals(row.text(LogColumn::dcTable, scratch), account_assignments)) return {};
    return standard_formula(row.number(LogColumn::dlSuchId1), row.number(LogColumn::dlSuchId2),
                            *row.moment());
} catch (...) {
    leave(owner, "msMemoWertAlt");
}

/// Nothing when the log row has no memo.
std::optional<std::string> FrameworkMemos::memo(std::int64_t idProtokoll) {
    const RowSet rows = run_.oDBU.query_array("SELECT dmData FROM tProtokollMemo WHERE flProtokoll = " +
                                              std::to_string(idProtokoll));
    rows.require_columns(1);
    if (rows.empty()) return std::nullopt;
    return text_at(rows, 0);
}

/// Of the record's log rows the last one that was written before this one.
std::optional<std::string> FrameworkMemos::previous_memo(const LogRow& row) {
    std::string scratch;
    const auto number = [&row](LogColumn column) { return std::to_string(row.number(column)); };
    const RowSet rows =
        run_.oDBU.query_array(std::string("SELECT idProtokoll FROM tProtokoll WHERE  dcTable = '")
                                  .append(row.text(LogColumn::dcTable, scratch))
                                  .append("' AND dlPrimaryKey1 = ")
                                  .append(number(LogColumn::dlPrimaryKey1))
                                  .append(" AND dlSuchId1 = ")
                                  .append(number(LogColumn::dlSuchId1))
                                  .append(" AND dlSuchId2 = ")
                                  .append(number(LogColumn::dlSuchId2))
                                  .append(" AND idProtokoll <> ")
                                  .append(std::to_string(row.id()))
                                  .append(" ORDER BY ddDatum"));
    rows.require_columns(1);
    for (std::size_t i = rows.rows(); i > 0; --i) {
        const std::int32_t id = number_of(rows.at(0, i - 1));
        if (id < row.id()) return memo(id);
    }
    return std::nullopt;
}

std::string FrameworkMemos::standard_formula(std::int32_t chart, std::int32_t position, Date dtDatum) {
    const std::string& mark = mark_of_chart(chart);
    if (!is_known(mark)) return {};
    const std::optional<Position> known = position_at(position, dtDatum);
    if (!known || known->name == undefined || !is_known(known->framework_type) ||
        !is_known(known->framework_mark))
        return {};
    return to_text(run_.oDBU.query_value(
        msFormelAltSQL(known->name, known->framework_type, known->framework_mark, mark)));
}

const std::string& FrameworkMemos::mark_of_chart(std::int32_t chart) {
    if (const std::string* const known = chart_marks_.find(chart)) return *known;
    const std::string sql = "SELECT KR_Kennzeichen FROM Kontenrahmen WHERE KR_Id = " + std::to_string(chart);
    return chart_marks_.remember(chart, to_text(run_.oDBU.query_value(sql)));
}

/// By the live tables, or by the log when the position is gone.
std::optional<FrameworkMemos::Position> FrameworkMemos::position_at(std::int32_t position, Date dtDatum) {
    const LivePosition& live = live_position(position);
    return live.exists ? live.position : logged_position(position, dtDatum);
}

const FrameworkMemos::LivePosition& FrameworkMemos::live_position(std::int32_t position) {
    enum : std::size_t { name, type, kind, mark, columns };
    if (const LivePosition* const known = live_positions_.find(position)) return *known;
    const RowSet rows = run_.oDBU.query_array(
        "Select AuswertungsPosition.Ap_Bezeichnung, Auswertungsrahmen.ARa_Art, Auswertungsrahmen.ARa_typ, "
        "Auswertungsrahmen.ARa_Kennzeichen FROM AuswertungsPosition, Zeilenart, Auswertungsrahmen"
        " WHERE AuswertungsPosition.AP_ID = " +
        std::to_string(position) +
        " AND AuswertungsPosition.ZA_ID = Zeilenart.ZA_ID AND Zeilenart.ARA_ID = Auswertungsrahmen.ARA_ID");
    rows.require_columns(columns);
    LivePosition live{!rows.empty(), std::nullopt};
    if (live.exists && !rows.at(name, 0).is_null())
        live.position = Position{text_at(rows, name), text_at(rows, type), text_at(rows, mark)};
    return live_positions_.remember(position, std::move(live));
}

/// Nothing as soon as one step of the way to the framework is not known.
std::optional<FrameworkMemos::Position> FrameworkMemos::logged_position(std::int32_t position, Date dtDatum) {
    const auto value_of = [&](std::string_view table, std::string_view column, std::string_view key_column,
                              std::string_view key) {
        return PROT_gsGetValueByDate(table, column, key_column, key, dtDatum, run_);
    };
    const std::string id = std::to_string(position);
    Position found;
    found.name = value_of("AUSWERTUNGSPOSITION", "Ap_Bezeichnung", "Ap_Id", id);
    if (found.name == undefined) return std::nullopt;
    const std::string line_kind = value_of("AUSWERTUNGSPOSITION", "Za_Id", "Ap_Id", id);
    if (!is_known(line_kind)) return std::nullopt;
    const std::string framework = value_of("ZEILENART", "ARa_Id", "Za_Id", line_kind);
    if (!is_known(framework)) return std::nullopt;
    found.framework_mark = value_of("AUSWERTUNGSRAHMEN", "ARa_Kennzeichen", "ARa_Id", framework);
    if (!is_known(found.framework_mark)) return std::nullopt;
    found.framework_type = value_of("AUSWERTUNGSRAHMEN", "ARa_Art", "ARa_Id", framework);
    return found;
}

std::string msFormelAltSQL(std::string_view sPosition, std::string_view sArt, std::string_view sKennzeichen,
                           std::string_view sKontenrahmen) try {
    return std::string(
               "Select Formel_Position.Fo_Formel FROM KONTENRAHMEN, FORMEL_POSITION, AUSWERTUNGSPOSITION, "
               "ZEILENART, AUSWERTUNGSRAHMEN WHERE FORMEL_POSITION.AP_ID = AUSWERTUNGSPOSITION.AP_ID"
               " AND AUSWERTUNGSPOSITION.ZA_ID = ZEILENART.ZA_ID"
               " AND ZEILENART.ARA_ID = AUSWERTUNGSRAHMEN.ARA_ID"
               " AND FORMEL_POSITION.KR_ID = KONTENRAHMEN.KR_ID"
               " AND AUSWERTUNGSPOSITION.AP_BEZEICHNUNG = '")
        .append(sPosition)
        .append("' AND AUSWERTUNGSRAHMEN.ARA_ART = ")
        .append(sArt)
        .append(" AND AUSWERTUNGSRAHMEN.ARA_KENNZEICHEN = ")
        .append(sKennzeichen)
        .append(" AND AUSWERTUNGSRAHMEN.ARA_TYP =  0 AND KONTENRAHMEN.KR_Kennzeichen = ")
        .append(sKontenrahmen);
} catch (...) {
    leave(owner, "msFormelAltSQL");
}

}  // namespace prot::report_frameworks
