#include "core/ProtQRBCsvBas.h"

#include <array>
#include <cstdio>
#include <vector>

#include "core/Prot0000UtilitiesBAS.h"
#include "core/ZQErrorHandling.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_forms.h"
#include "platform/automation/utf8.h"

namespace prot {

namespace {

constexpr std::string_view owner = "ProtQRBCsvBas";
constexpr std::string_view delete_title = "Löschen Stammdatenprotokoll";

constexpr std::string_view create_reader_command =
    "\r\nFehler beim Zugriff auf die srvZQXml.dll\r\nSet oXML = New srvZQXml.DOMSelectClass";

/// The name without its first letter: tProtokoll, Protokoll.
std::string without_first_letter(std::string_view name) { return encode_utf8(decode_utf8(name).erase(0, 1)); }

std::string replace_all(std::string text, std::string_view from, std::string_view to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

std::string event_condition(std::int32_t lAktion) {
    constexpr std::int32_t all = 7;
    if (lAktion == all) return {};
    if (lAktion == 0) return " 1 = 2 AND ";
    std::string codes;
    for (const auto& [bit, code] : {std::pair{1, "0, "}, std::pair{2, "1, "}, std::pair{4, "2, "}})
        if (lAktion & bit) codes += code;
    // A mask of higher bits only leaves no code: the statement is invalid, and the server says so.
    if (!codes.empty()) codes.resize(codes.size() - 2);
    return " dlEvent IN(" + codes + ") AND ";
}

/// Whether the person wants the counted records deleted.
bool mbLoeschenAbfrage(Environment& environment, const std::string& sAnzahl) try {
    if (to_long(val(sAnzahl)) < 1) {
        environment.message_boxes.show(
            "Für die getätigten Einstellungen wurden keine zu löschenden Protokollsätze gefunden.",
            BoxStyle::information, delete_title);
        return false;
    }
    const bool several = val(sAnzahl) > 0;  // always, behind the test above: one record reads "wurden" too
    const std::string question = std::string("Für die getätigten Einstellungen wurde")
                                     .append(several ? "n " : " ")
                                     .append(sAnzahl)
                                     .append(" Protokolls")
                                     .append(several ? "ätze" : "atz")
                                     .append(" gefunden.")
                                     .append(line_break)
                                     .append(line_break)
                                     .append("Sollen die Protokollsätze endgültig gelöscht werden?");
    return environment.message_boxes.show(question, BoxStyle::question_yes_no, delete_title) ==
           BoxAnswer::yes;
} catch (...) {
    end_quietly();
    return false;
}

std::vector<std::string> line_of(std::size_t cells) { return std::vector<std::string>(cells); }

}  // namespace

std::string_view gsXMLGetValue(ChangeDocumentReader& oXML, std::int32_t column, ColumnPart part) try {
    const std::string_view value = oXML.part(column, part);
    return value == "NULL" ? std::string_view() : value;
} catch (...) {
    leave(owner, "gsXMLGetValue");
}

std::unique_ptr<ChangeDocumentReader> create_change_document_reader(Environment& environment) {
    return with_failing_command(create_reader_command, [&environment] {
        return environment.components.create_change_document_reader();
    });
}

std::string log_table(Database& oDBU, std::int32_t lSection) {
    return to_text(
        oDBU.query_value("SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = " +
                         std::to_string(lSection)));
}

std::string log_id_column(std::string_view table) { return "id" + without_first_letter(table); }

std::string gsMainSelect(Database& oDBU, std::int32_t lSection, std::int32_t lAktion, Date dtVon, Date dtBis,
                         std::string_view sUser, bool bLoeschen) try {
    const std::string table = log_table(oDBU, lSection);
    std::string sql;
    if (bLoeschen) {
        sql = "DELETE " + table;
    } else {
        sql = "SELECT " + log_id_column(table) +
              ", dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, "
              "dcSystemUser, dcApplication, dlPrimaryKey1, dlSuchId1,  dlSuchId2,  dlSuchId3,  dlSuchId4"
              " FROM " +
              table;
    }
    sql += " WHERE ";
    if (!sUser.empty()) sql.append("dcUser = '").append(sUser).append("' AND ");
    if (!dtVon.is_null()) sql += "ddDatum >= " + oDBU.date_literal(dtVon) + " AND ";
    // The bound is the day after, included: a change at midnight of the following day still counts.
    if (!dtBis.is_null()) sql += "ddDatum <= " + oDBU.date_literal(Date{dtBis.serial + 1}) + " AND ";
    return sql + event_condition(lAktion);
} catch (...) {
    leave(owner, "gsMainSelect");
}

void gMainDelete(Environment& environment, Database& oDBU, std::int32_t lSection,
                 const std::string& sSQL) try {
    const std::string table = log_table(oDBU, lSection);
    environment.screen_pointer.set(Pointer::hourglass);
    const std::string count = to_text(oDBU.query_value(replace_all(sSQL, "DELETE", "SELECT COUNT(*) FROM")));
    environment.screen_pointer.set(Pointer::standard);
    if (!mbLoeschenAbfrage(environment, count)) return;

    environment.screen_pointer.set(Pointer::hourglass);
    // Memo rows first, so that none is left without its log record. Only tProtokoll has them.
    if (to_lower(table) == "tprotokoll") {
        const std::string ids = replace_all(sSQL, "DELETE " + table, "SELECT idProtokoll FROM " + table);
        oDBU.execute("DELETE " + table + "Memo WHERE flProtokoll in (" + ids + ")");
    }
    oDBU.execute(sSQL);
    environment.screen_pointer.set(Pointer::standard);
} catch (...) {
    show_and_end(environment, owner, "gMainDelete");
}

std::string gsDateiZeitstempel(Environment& environment) try {
    const CivilTime now = environment.clock.now();
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "_%04d%02d%02d_%02d%02d%02d", now.year, now.month, now.day,
                  now.hour, now.minute, now.second);
    return text.data();
} catch (...) {
    end_quietly();
    return {};
}

void gWriteCSVAutoStartOhneDaten(std::string sDatei, std::string_view sCommandline, std::string_view sMeldung,
                                 Environment& environment) try {
    if (sDatei.empty() || sCommandline.empty()) return;
    const auto writer = environment.components.create_csv_writer();
    if (!writer->open(sDatei, false)) return;

    const std::vector<std::string> parts = gCommandlineSplit(sCommandline, false, environment);
    const std::size_t items = parts.empty() ? 0 : parts.size() - 1;
    const std::size_t cells = items > 0 ? items : 1;  // a text without any slash has no item, but a message
    std::vector<std::string> message = line_of(cells), keys = line_of(cells), values = line_of(cells);
    message[0] = sMeldung;
    for (std::size_t i = 0; i < items; ++i) {
        keys[i] = psCommand("/" + parts[i + 1], environment);
        values[i] = psComWert("/" + parts[i + 1], environment);
    }
    writer->write_line(message);
    writer->write_line(line_of(cells));
    writer->write_line(keys);
    writer->write_line(values);
    writer->close();
} catch (...) {
    show_and_end(environment, owner, "gWriteCSVAutoStartOhneDaten");
}

}  // namespace prot
