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
    bool get_filter(Database& oDBU, std::string& condition, std::string& filter_text) override;
    std::string msWHERE(std::string_view condition) const override;
    std::unique_ptr<SectionLines> lines(Run& run) const override;
};

/// For the table of sections.
std::unique_ptr<SectionExporter> create_exporter(Environment& environment);

}  // namespace prot::open_items
