#pragma once

#include <memory>
#include <string>

#include "core/section_run.h"
#include "sections/report_frameworks/frameworks.h"

namespace prot::report_frameworks {

/// The exporter of log section 10, the report frameworks.
class ProtAuswCsvClass : public SectionRun {
public:
    explicit ProtAuswCsvClass(Environment& environment);

private:
    bool get_filter(Database& oDBU, std::int32_t lSection, std::string& filter_text) override;
    Names names() const override;
    std::string msWHERE() const override;
    std::unique_ptr<SectionLines> lines(Run& run) const override;

    Filter filter_;  // its kind of change is proposed again by the next call
    std::string framework_ids_;
};

/// For the table of sections.
std::unique_ptr<SectionExporter> create_exporter(Environment& environment);

}  // namespace prot::report_frameworks
