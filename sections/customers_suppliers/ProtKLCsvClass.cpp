#include "sections/customers_suppliers/ProtKLCsvClass.h"

#include "sections/customers_suppliers/ProtKLFrmFilter.h"
#include "sections/customers_suppliers/partner_lines.h"

namespace prot::customers_suppliers {

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
    return {.word = ledger().file_word,
            .captions = ledger().captions,
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
