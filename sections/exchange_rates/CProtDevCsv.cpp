#include "sections/exchange_rates/CProtDevCsv.h"

#include "core/ProtQRBCsvBas.h"
#include "core/ZQErrorHandling.h"
#include "core/export_frame.h"
#include "sections/exchange_rates/ProtDevFrmFilter.h"
#include "sections/exchange_rates/rate_lines.h"
#include "sections/exchange_rates/rate_selection.h"

namespace prot {

using exchange_rates::owner;

void CProtDevCsv::gCSVAusgabe(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon,
                              Date dtBis, std::int32_t lAktion, Value&) try {
    std::string condition;
    if (!get_filter(oDBU, condition)) return;
    Run run{environment_, oDBU};
    if (poParent) poParent->gRefresh();
    gCSVFile = csv_file_name("Devisenkurse", psCommandline, environment_);
    const std::string sql = gsMainSelect(oDBU, lSection, lAktion, dtVon, dtBis, sUser, pbLoeschen) +
                            exchange_rates::msWHERE(condition);
    if (pbLoeschen)
        gMainDelete(environment_, oDBU, lSection, sql);
    else
        export_rows(run, sql + " ORDER BY ddDatum");
} catch (...) {
    leave(owner, "gCSVAusgabe");
}

bool CProtDevCsv::get_filter(Database& oDBU, std::string& condition) {
    ProtDevFrmFilter form(environment_);
    return form.gbGetFilter(condition, filter_text_, oDBU, psCommandline);
}

void CProtDevCsv::export_rows(Run& run, const std::string& sql) {
    const RowSet rows = run.oDBU.query_array(sql);
    if (rows.empty()) {
        report_no_data(gCSVFile, psCommandline, BoxStyle::information, environment_);
        return;
    }
    if (!writer_) writer_ = environment_.components.create_csv_writer();
    if (mbAusgabeCSV(run, rows) && psCommandline.empty()) writer_->show();
}

bool CProtDevCsv::mbAusgabeCSV(Run& run, const RowSet& rows) try {
    ExportFrame frame(run, poParent, exchange_rates::rate_line_cells);
    exchange_rates::RateLines lines(run);
    return frame.write_file(*writer_, psCommandline.empty(), gCSVFile, filter_text_,
                            exchange_rates::rate_captions, rows, lines);
} catch (...) {
    leave(owner, "mbAusgabeCSV");
}

std::unique_ptr<SectionExporter> create_exchange_rate_exporter(Environment& environment) {
    return std::make_unique<CProtDevCsv>(environment);
}

}  // namespace prot
