#include "core/ProtQRBCsvBas.h"
#include "core/ZQErrorHandling.h"
#include "core/value_search.h"
#include "platform/automation/ascii.h"
#include "platform/automation/error.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_forms.h"

namespace prot {

namespace {

constexpr std::string_view owner = "ProtQRBCsvBas";

/// The server's name for a change that was made without an application login.
const std::string& server_name(Run& run) {
    constexpr int connection_fields = 1206;
    if (!run.memory.server_name)
        run.memory.server_name = run.environment.connection_information.fields(connection_fields)[9];
    return *run.memory.server_name;
}

/// Whether `text` is a number as SQL writes one: digits, at most one point, a sign before them.
bool is_plain_number(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    bool digits = false, point = false;
    for (const char c : text) {
        const bool is_point = c == '.' && !point;
        if (!is_point && !is_ascii_digit(c)) return false;
        point |= is_point;
        digits |= !is_point;
    }
    return digits;
}

}  // namespace

std::string PROT_gsGetValueByDate(std::string_view sTabelle, std::string_view sSpalte,
                                  std::string_view sSchluesselSpalte, std::string_view sSchluessel,
                                  Date dtDatum, Run& run) try {
    if (sSchluessel == undefined) return std::string(undefined);
    const ValueKey key{sTabelle, sSpalte, sSchluesselSpalte, sSchluessel};
    if (std::optional<std::string> known = run.memory.values.find(key, dtDatum)) return *std::move(known);
    Database& oDBU = run.oDBU;
    const auto value_in = [&](const std::string& document) {
        return old_value(document, sSpalte, run.environment).value_or(std::string(undefined));
    };
    const auto remember = [&](std::string value, bool no_later_change) {
        run.memory.values.remember(key, dtDatum, value, no_later_change);
        return value;
    };

    const std::string change = first_change(key, dtDatum, oDBU);
    if (!change.empty()) return remember(value_in(change), false);

    // Not changed since: the live value, or, when the row is gone, the one its deletion recorded.
    if (std::optional<std::string> known = run.memory.values.find_unchanged(key))
        return remember(*std::move(known), true);
    const RowSet live = oDBU.query_array(live_search(key));
    live.require_columns(1);
    if (!live.empty()) return remember(to_text(live.at(0, 0).value()), true);
    const std::string deletion = deletion_of(key, oDBU);
    return remember(deletion.empty() ? std::string(undefined) : value_in(deletion), true);
} catch (...) {
    // A key that is no number makes no statement, so that nothing could have been found.
    if (is_plain_number(sSchluessel))
        end_with_notice(run.environment);
    else
        end_quietly();
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
