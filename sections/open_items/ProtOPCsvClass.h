#pragma once

#include <memory>
#include <string>

#include "core/section_run.h"

namespace prot::open_items {

/// The exporter of log section 6, the open items.
class ProtOPCsvClass : public SectionRun {
public:
    explicit ProtOPCsvClass(Environment& environment);

private:
    bool get_filter(Database& oDBU, std::int32_t lSection, std::string& filter_text) override;
    Names names() const override;
    std::string msWHERE() const override;
    std::unique_ptr<SectionLines> lines(Run& run) const override;

    std::string where_;
};

/// For the table of sections.
std::unique_ptr<SectionExporter> create_exporter(Environment& environment);

}  // namespace prot::open_items
