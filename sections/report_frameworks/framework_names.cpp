#include "sections/report_frameworks/framework_names.h"

#include "core/ProtQRBCsvBas.h"
#include "core/ZQErrorHandling.h"
#include "core/log_row.h"
#include "platform/automation/text_forms.h"
#include "sections/report_frameworks/frameworks.h"

namespace prot::report_frameworks {

// clang-format off
constexpr std::array<FrameworkNames::Lookup, FrameworkNames::lookup_count> FrameworkNames::lookups = {{
    {"msRahmenBez",    "SELECT ARa_Bezeichnung FROM AuswertungsRahmen WHERE ARa_Id = ", "AUSWERTUNGSRAHMEN",   "ARa_Bezeichnung", "ARa_Id"},
    {"msDichteBez",    "SELECT Ad_Bezeichnung FROM AuswertungsDichte WHERE Ad_Id = ",   "AUSWERTUNGSDICHTE",   "Ad_Bezeichnung",  "Ad_Id"},
    {"msPosBez",       "SELECT Ap_Bezeichnung FROM AuswertungsPosition WHERE Ap_Id = ", "AUSWERTUNGSPOSITION", "Ap_Bezeichnung",  "Ap_Id"},
    {"msSpalteBez",    "SELECT As_Bezeichnung FROM AuswertungsSpalte WHERE As_Id = ",   "AUSWERTUNGSSPALTE",   "As_Bezeichnung",  "As_Id"},
    {"msZeilenartBez", "SELECT Za_Bezeichnung FROM Zeilenart WHERE Za_Id = ",           "ZEILENART",           "Za_Bezeichnung",  "Za_Id"},
    {"mlARa_Id_Zeilenart",          "SELECT ARa_Id FROM Zeilenart WHERE Za_Id = ",           "ZEILENART",           "ARa_Id", "Za_Id"},
    {"mlARa_Id_Auswertungsart",     "SELECT ARa_Id FROM Auswertungsart WHERE Aa_Id = ",      "AUSWERTUNGSART",      "ARa_Id", "Aa_Id"},
    {"mlZa_Id_AuswertungsPosition", "SELECT Za_Id FROM AuswertungsPosition WHERE Ap_Id = ",  "AUSWERTUNGSPOSITION", "Za_Id",  "Ap_Id"},
}};
// clang-format on

std::string FrameworkNames::text(Which which, std::int32_t lId, Date dtDatum) try {
    const std::string& name = live(which, lId);
    return name.empty() ? logged(lookups[which], lId, dtDatum) : name;
} catch (...) {
    leave(owner, lookups[which].procedure);
}

std::int32_t FrameworkNames::id(Which which, std::int32_t lId, Date dtDatum) try {
    const std::int32_t parent = whole_number(live(which, lId));
    return parent != 0 ? parent : whole_number(logged(lookups[which], lId, dtDatum));
} catch (...) {
    leave(owner, lookups[which].procedure);
}

const std::string& FrameworkNames::live(Which which, std::int32_t lId) {
    IdMemory<std::string>& known = live_[which];
    if (const std::string* const answer = known.find(lId)) return *answer;
    const std::string sql = std::string(lookups[which].live) + std::to_string(lId);
    return known.remember(lId, to_text(run_.oDBU.query_value(sql)));
}

/// By the log, as of the date; empty when it does not tell either.
std::string FrameworkNames::logged(const Lookup& lookup, std::int32_t lId, Date dtDatum) {
    std::string value = PROT_gsGetValueByDate(lookup.table, lookup.column, lookup.key_column,
                                              std::to_string(lId), dtDatum, run_);
    return value == undefined ? std::string() : value;
}

}  // namespace prot::report_frameworks
