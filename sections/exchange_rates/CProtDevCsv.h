#pragma once

#include <memory>
#include <string>

#include "core/section_run.h"

namespace prot::exchange_rates {

/// The exporter of log section 15, the exchange rates. A host may also create it directly.
class CProtDevCsv : public SectionRun {
public:
    explicit CProtDevCsv(Environment& environment);

private:
    bool get_filter(Database& oDBU, std::string& condition, std::string& filter_text) override;
    std::string msWHERE(std::string_view condition) const override;
    std::unique_ptr<SectionLines> lines(Run& run) const override;
};

/// For the table of sections.
std::unique_ptr<SectionExporter> create_exporter(Environment& environment);

}  // namespace prot::exchange_rates
