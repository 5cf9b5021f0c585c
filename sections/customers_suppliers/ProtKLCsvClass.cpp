#include "sections/customers_suppliers/ProtKLCsvClass.h"

#include <array>

#include "sections/customers_suppliers/ProtKLFrmFilter.h"
#include "sections/customers_suppliers/partner_lines.h"

namespace prot::customers_suppliers {

namespace {

constexpr std::array<std::string_view, 2> customer_captions = {"Kunden-Nr", "Bezeichnung"};
constexpr std::array<std::string_view, 2> supplier_captions = {"Lieferanten-Nr", "Bezeichnung"};

}  // namespace

ProtKLCsvClass::ProtKLCsvClass(Environment& environment) : SectionRun(environment, owner) {}

bool ProtKLCsvClass::get_filter(Database& oDBU, std::int32_t lSection, std::string& filter_text) {
    mlSektion = lSection;
    ProtKLFrmFilter form(environment(), lSection, pbLoeschen);
    if (!form.gbGetFilter(oDBU, psCommandline)) return false;
    filter_ = form.filter();
    filter_text = form.sFilter();
    return true;
}

SectionRun::Names ProtKLCsvClass::names() const {
    const bool is_customers = mlSektion == section_of_customers;
    return {.word = is_customers ? "Kunden" : "Lieferanten",
            .captions = is_customers ? customer_captions : supplier_captions,
            .writer_loop = "mAusgabeCSV",
            .no_data = BoxStyle::plain};
}

/// The temporary tables are filled on the connection of the run, before any other statement needs them.
void ProtKLCsvClass::prepare_selection(Run& run) {
    const bool by_temporary_tables = mlSektion == section_of_customers || mlSektion == section_of_suppliers;
    if (!by_temporary_tables) {
        where_ = customers_suppliers::msWHERE(ledger(), filter_, run.oDBU);
        return;
    }
    std::string sTempSQL;
    where_ = msWHERE4809(ledger(), filter_, run.oDBU, sTempSQL);
    run.oDBU.execute(sTempSQL);
}

std::unique_ptr<SectionLines> ProtKLCsvClass::lines(Run& run) const {
    return std::make_unique<PartnerLines>(run, ledger());
}

std::unique_ptr<SectionExporter> create_exporter(Environment& environment) {
    return std::make_unique<ProtKLCsvClass>(environment);
}

}  // namespace prot::customers_suppliers
