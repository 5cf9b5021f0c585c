#include "sections/exchange_rates/CProtDevCsv.h"

#include "sections/exchange_rates/ProtDevFrmFilter.h"
#include "sections/exchange_rates/rate_lines.h"
#include "sections/exchange_rates/rate_selection.h"

namespace prot::exchange_rates {

CProtDevCsv::CProtDevCsv(Environment& environment)
    : SectionRun(environment, {owner, "Devisenkurse", rate_captions}) {}

bool CProtDevCsv::get_filter(Database& oDBU, std::string& condition, std::string& filter_text) {
    return ProtDevFrmFilter(environment()).gbGetFilter(condition, filter_text, oDBU, psCommandline);
}

std::string CProtDevCsv::msWHERE(std::string_view condition) const {
    return exchange_rates::msWHERE(condition);
}

std::unique_ptr<SectionLines> CProtDevCsv::lines(Run& run) const { return std::make_unique<RateLines>(run); }

std::unique_ptr<SectionExporter> create_exporter(Environment& environment) {
    return std::make_unique<CProtDevCsv>(environment);
}

}  // namespace prot::exchange_rates
