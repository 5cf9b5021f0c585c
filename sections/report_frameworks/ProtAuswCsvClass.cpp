#include "sections/report_frameworks/ProtAuswCsvClass.h"

#include "sections/report_frameworks/ProtAuswFrmFilter.h"
#include "sections/report_frameworks/framework_lines.h"
#include "sections/report_frameworks/framework_selection.h"

namespace prot::report_frameworks {

ProtAuswCsvClass::ProtAuswCsvClass(Environment& environment) : SectionRun(environment, owner) {}

bool ProtAuswCsvClass::get_filter(Database& oDBU, std::int32_t /*lSection*/, std::string& filter_text) {
    ProtAuswFrmFilter form(environment(), filter_.mlAenderungsart);
    const bool accepted = form.gbGetFilter(oDBU, psCommandline);
    filter_ = form.filter();
    // A chart may have been chosen before the list of charts was hidden.
    if (!concerns_charts(filter_.mlAenderungsart)) filter_.mlKontenrahmen = 0;
    framework_ids_ = form.sRahmenIds();
    filter_text = form.sFilter();
    return accepted;
}

SectionRun::Names ProtAuswCsvClass::names() const {
    return {.word = framework_type(filter_.mlAuswertungsart).file_word, .captions = framework_captions};
}

std::string ProtAuswCsvClass::msWHERE() const {
    return report_frameworks::msWHERE(filter_, framework_ids_, pbLoeschen);
}

std::unique_ptr<SectionLines> ProtAuswCsvClass::lines(Run& run) const {
    return std::make_unique<FrameworkLines>(run);
}

std::unique_ptr<SectionExporter> create_exporter(Environment& environment) {
    return std::make_unique<ProtAuswCsvClass>(environment);
}

}  // namespace prot::report_frameworks
