#include "core/section_run.h"

#include "core/ProtQRBCsvBas.h"
#include "core/ZQErrorHandling.h"

namespace prot {

void SectionRun::gCSVAusgabe(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon,
                             Date dtBis, std::int32_t lAktion, Value&) try {
    std::string condition;
    if (!get_filter(oDBU, condition, filter_text_)) return;
    Run run{environment_, oDBU};
    if (poParent) poParent->gRefresh();
    gCSVFile = csv_file_name(names_.word, psCommandline, environment_);
    const std::string sql =
        gsMainSelect(oDBU, lSection, lAktion, dtVon, dtBis, sUser, pbLoeschen) + msWHERE(condition);
    if (pbLoeschen)
        gMainDelete(environment_, oDBU, lSection, sql);
    else
        export_rows(run, sql + " ORDER BY ddDatum");
} catch (...) {
    leave(names_.owner, "gCSVAusgabe");
}

void SectionRun::export_rows(Run& run, const std::string& sql) {
    const RowSet rows = run.oDBU.query_array(sql);
    if (rows.empty()) {
        report_no_data(gCSVFile, psCommandline, BoxStyle::information, environment_);
        return;
    }
    if (!writer_) writer_ = environment_.components.create_csv_writer();
    if (mbAusgabeCSV(run, rows) && psCommandline.empty()) writer_->show();
}

bool SectionRun::mbAusgabeCSV(Run& run, const RowSet& rows) try {
    ExportFrame frame(run, poParent, names_.captions.size() + common_cells);
    const std::unique_ptr<SectionLines> section = lines(run);
    return frame.write_file(*writer_, psCommandline.empty(), gCSVFile, filter_text_, names_.captions, rows,
                            *section);
} catch (...) {
    writer_.reset();  // and with it the unfinished file, however long the host keeps this object
    leave(names_.owner, "mbAusgabeCSV");
}

}  // namespace prot
