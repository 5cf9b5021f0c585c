#include "sections/exchange_rates/CProtDevCsv.h"

#include "sections/exchange_rates/ProtDevFrmFilter.h"
#include "sections/exchange_rates/rate_lines.h"
#include "sections/exchange_rates/rate_selection.h"

namespace prot::exchange_rates {

CProtDevCsv::CProtDevCsv(Environment& environment) : SectionRun(environment, owner) {}

bool CProtDevCsv::get_filter(Database& oDBU, std::int32_t /*lSection*/, std::string& filter_text) {
    ProtDevFrmFilter form(environment());
    if (!form.gbGetFilter(oDBU, psCommandline)) return false;
    where_ = form.sWhere();
    filter_text = form.sFilter();
    return true;
}

SectionRun::Names CProtDevCsv::names() const { return {.word = "Devisenkurse", .captions = rate_captions}; }

std::string CProtDevCsv::msWHERE() const { return exchange_rates::msWHERE(where_); }

std::unique_ptr<SectionLines> CProtDevCsv::lines(Run& run) const { return std::make_unique<RateLines>(run); }

std::unique_ptr<SectionExporter> create_exporter(Environment& environment) {
    return std::make_unique<CProtDevCsv>(environment);
}

}  // namespace prot::exchange_rates
