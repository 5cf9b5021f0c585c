#include "core/ProtQRBCsvBas.h"
#include "core/ZQErrorHandling.h"
#include "platform/automation/error.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_forms.h"

namespace prot {

namespace {

constexpr std::string_view owner = "ProtQRBCsvBas";

/// The log's way to write a column of a change document up to its old value; the LIKE search depends on every
/// letter.
std::string old_value_pattern(std::string_view sSpalte, Database& oDBU) {
    const std::string wildcard = oDBU.like_wildcard();
    return wildcard + "Name=\"" + std::string(sSpalte) + "\"><OldValue>" + wildcard;
}

/// The old value of a column in a change document; "_UNDEFINIERT_" when the document does not load.
std::string old_value(const std::string& document, std::string_view sSpalte, Run& run) {
    const auto oXML = create_change_document_reader(run.environment);
    if (!oXML->load(document)) return std::string(undefined);
    // Read directly: the text NULL stays here.
    return std::string(oXML->old_value_of(sSpalte));
}

std::string log_search(std::string_view sTabelle, std::string_view sSchluessel, std::string_view condition,
                       std::string_view pattern) {
    return std::string("SELECT TOP 1 dmData FROM tProtokoll WHERE dcTable = '")
        .append(sTabelle)
        .append("' AND dlPrimaryKey1 = ")
        .append(sSchluessel)
        .append(condition)
        .append(" AND dmData LIKE '")
        .append(pattern)
        .append("' ORDER BY ddDatum ASC");
}

std::string live_search(std::string_view sTabelle, std::string_view sSpalte,
                        std::string_view sSchluesselSpalte, std::string_view sSchluessel) {
    return std::string("SELECT [")
        .append(sSpalte)
        .append("] FROM [")
        .append(sTabelle)
        .append("] WHERE [")
        .append(sSchluesselSpalte)
        .append("] = ")
        .append(sSchluessel);
}

/// The server's name for a change that was made without an application login.
const std::string& server_name(Run& run) {
    constexpr int connection_fields = 1206;
    if (!run.memory.server_name)
        run.memory.server_name = run.environment.connection_information.fields(connection_fields)[9];
    return *run.memory.server_name;
}

}  // namespace

std::string PROT_gsGetValueByDate(std::string_view sTabelle, std::string_view sSpalte,
                                  std::string_view sSchluesselSpalte, std::string_view sSchluessel,
                                  Date dtDatum, Run& run) try {
    if (sSchluessel == undefined) return std::string(undefined);
    const ValueKey key{sTabelle, sSpalte, sSchluesselSpalte, sSchluessel};
    if (std::optional<std::string> known = run.memory.values.find(key, dtDatum)) return *std::move(known);
    const auto remember = [&](std::string value, bool no_later_change) {
        run.memory.values.remember(key, dtDatum, value, no_later_change);
        return value;
    };

    // The first change at or after the moment names the value that was in force. A moment is a second.
    Database& oDBU = run.oDBU;
    const std::string pattern = old_value_pattern(sSpalte, oDBU);
    const std::string from = " AND ddDatum >= " + oDBU.date_literal(add_seconds(dtDatum, -1));
    const std::string change = to_text(oDBU.query_value(log_search(sTabelle, sSchluessel, from, pattern)));
    if (!change.empty()) return remember(old_value(change, sSpalte, run), false);

    // Not changed since: the live value, or, when the row is gone, the one its deletion recorded.
    const RowSet live = oDBU.query_array(live_search(sTabelle, sSpalte, sSchluesselSpalte, sSchluessel));
    live.require_columns(1);
    if (!live.empty()) return remember(to_text(live.at(0, 0).value()), true);
    const std::string deletion =
        to_text(oDBU.query_value(log_search(sTabelle, sSchluessel, " AND dlEvent = 2 ", pattern)));
    return remember(deletion.empty() ? std::string(undefined) : old_value(deletion, sSpalte, run), true);
} catch (...) {
    end_with_notice(run.environment);
    return std::string(undefined);
}

std::string_view PROT_gsGetFieldDescription(std::string_view sTabelle, std::string_view sSpalte,
                                            Run& run) try {
    if (const std::string* const known = run.memory.captions.find({sTabelle, sSpalte})) return *known;
    const Value caption = run.oDBU.query_value(
        std::string("SELECT tSysQuvoColumns.dmDescription "
                    "FROM   tSysQuvoColumns INNER JOIN "
                    "tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables "
                    "WHERE tSysQuvoTables.dcTableName = '")
            .append(sTabelle)
            .append("' AND   tSysQuvoColumns.dcColumnName = '")
            .append(sSpalte)
            .append("'"));
    return run.memory.captions.remember({sTabelle, sSpalte},
                                        is_null(caption) ? std::string(undefined) : to_text(caption));
} catch (...) {
    end_with_notice(run.environment);
    return undefined;
}

void PROT_gGetUserInfo(std::string& sMitarbeiter, std::string& sDBBenutzer, Run& run) try {
    std::string database_user = "Standardbenutzer";
    if (sMitarbeiter.starts_with("_UNBEKANNT_")) {
        sMitarbeiter = "ohne Anmeldung an " + server_name(run);
        if (to_lower(sDBBenutzer) != "quvosqldbserver") database_user = sDBBenutzer;
    }
    sDBBenutzer = database_user;
} catch (...) {
    leave(owner, "PROT_gGetUserInfo");
}

}  // namespace prot
