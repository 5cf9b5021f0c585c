#pragma once

#include <memory>
#include <string>

#include "core/section_run.h"
#include "sections/customers_suppliers/ledger.h"
#include "sections/customers_suppliers/partner_selection.h"

namespace prot::customers_suppliers {

/// The exporter of log sections 9, the customers, and 8, the suppliers.
class ProtKLCsvClass : public SectionRun {
public:
    explicit ProtKLCsvClass(Environment& environment);

private:
    bool get_filter(Database& oDBU, std::int32_t lSection, std::string& filter_text) override;
    Names names() const override;
    void prepare_selection(Run& run) override;
    std::string msWHERE() const override { return where_; }
    std::unique_ptr<SectionLines> lines(Run& run) const override;

    const Ledger& ledger() const { return ledger_of(mlSektion); }

    std::int32_t mlSektion = 0;
    Filter filter_;
    std::string where_;
};

/// For the table of sections.
std::unique_ptr<SectionExporter> create_exporter(Environment& environment);

}  // namespace prot::customers_suppliers
