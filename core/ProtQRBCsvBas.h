#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/run.h"
#include "platform/automation/date.h"
#include "platform/change_document_reader.h"
#include "platform/database.h"
#include "platform/environment.h"

/// The module that all section exporters share: the statement over the log, the deletion, the lookups, the
/// file names.
namespace prot {

/// What a lookup answers when it cannot determine a value.
inline constexpr std::string_view undefined = "_UNDEFINIERT_";

/// A part of a changed column; the value "NULL" reads as the empty text. Every value of a change document is
/// read here. Valid until the next value is read.
std::string_view gsXMLGetValue(ChangeDocumentReader& oXML, std::int32_t column, ColumnPart part);

/// Creates the reader of change documents; a failure is reported with the failing command.
std::unique_ptr<ChangeDocumentReader> create_change_document_reader(Environment& environment);

/// The log table of a section, such as tProtokoll; empty when the section is unknown.
std::string log_table(Database& oDBU, std::int32_t lSection);

/// The column of a log table that holds its ids: idProtokoll of tProtokoll.
std::string log_id_column(std::string_view table);

/// The head of the statement over a section's log table: a SELECT of the fourteen columns in LogColumn's
/// order, or a DELETE, up to " WHERE " and conditions that each end in " AND ". The caller completes it with
/// at least one condition. sUser is inserted as it is, empty for all users; dtVon, dtBis: 0 for open;
/// lAktion: event mask, 7 for all.
std::string gsMainSelect(Database& oDBU, std::int32_t lSection, std::int32_t lAktion, Date dtVon, Date dtBis,
                         std::string_view sUser, bool bLoeschen);

/// Counts what the DELETE statement `sSQL` would delete, asks, and deletes memo rows and log records. Errors
/// are shown.
void gMainDelete(Environment& environment, Database& oDBU, std::int32_t lSection, const std::string& sSQL);

/// "_" and the current local time as YYYYMMDD_HHMMSS; empty when it cannot be told.
std::string gsDateiZeitstempel(Environment& environment);

/// Writes the file of a batch run without data: the message and the parameters, one key a column. Does
/// nothing when either name or parameters are empty. Errors are shown.
void gWriteCSVAutoStartOhneDaten(std::string sDatei, std::string_view sCommandline, std::string_view sMeldung,
                                 Environment& environment);

/// The value that column sSpalte of the row of sTabelle with key sSchluessel had at dtDatum, or
/// "_UNDEFINIERT_". sSchluessel is numeric text. Never fails.
std::string PROT_gsGetValueByDate(std::string_view sTabelle, std::string_view sSpalte,
                                  std::string_view sSchluesselSpalte, std::string_view sSchluessel,
                                  Date dtDatum, Run& run);

/// The caption of a logged column, or "_UNDEFINIERT_". Never fails. Valid for the life of the run.
std::string_view PROT_gsGetFieldDescription(std::string_view sTabelle, std::string_view sSpalte, Run& run);

/// Replaces the two user columns of a log record by what a reader sees under "Mitarbeiter" and
/// "Datenbankbenutzer".
void PROT_gGetUserInfo(std::string& sMitarbeiter, std::string& sDBBenutzer, Run& run);

}  // namespace prot
