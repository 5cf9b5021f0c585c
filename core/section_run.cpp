#include "core/section_run.h"

#include <utility>

#include "core/ProtQRBCsvBas.h"
#include "core/ZQErrorHandling.h"

namespace prot {

void SectionRun::gCSVAusgabe(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon,
                             Date dtBis, std::int32_t lAktion, Value&) try {
    if (!get_filter(oDBU, lSection, filter_text_)) return;
    environment_.notices.filter_accepted(filter_text_);
    const Names run_names = names();
    Run run{environment_, oDBU};
    if (poParent) poParent->gRefresh();
    gCSVFile = csv_file_name(run_names.word, psCommandline, environment_);
    prepare_selection(run);
    std::string sql = gsMainSelect(oDBU, lSection, lAktion, dtVon, dtBis, sUser, pbLoeschen);
    sql += msWHERE();
    if (pbLoeschen)
        gMainDelete(environment_, oDBU, lSection, sql);
    else
        export_rows(run, run_names, sql + " ORDER BY ddDatum");
} catch (...) {
    leave(owner_, "gCSVAusgabe");
}

void SectionRun::export_selection(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon,
                                  Date dtBis, std::int32_t lAktion) try {
    Run run{environment_, oDBU};
    // A section may select more for a deletion than for an export.
    const bool deletes = std::exchange(pbLoeschen, false);
    std::string sql = gsMainSelect(oDBU, lSection, lAktion, dtVon, dtBis, sUser, false);
    sql += msWHERE();
    pbLoeschen = deletes;
    export_rows(run, names(), sql + " ORDER BY ddDatum");
} catch (...) {
    leave(owner_, "export_selection");
}

std::optional<std::string> SectionRun::read_filter(Database& oDBU, std::int32_t lSection) {
    std::string filter_text;
    if (!get_filter(oDBU, lSection, filter_text)) return std::nullopt;
    if (psCommandline.empty()) return std::nullopt;  // a person accepted it
    return filter_text;
}

void SectionRun::export_rows(Run& run, const Names& names, const std::string& sql) {
    LogRows rows(run.oDBU.query_rows(sql));
    if (rows.empty()) {
        report_no_data(gCSVFile, psCommandline, names.no_data, environment_);
        return;
    }
    if (!writer_) writer_ = environment_.components.create_csv_writer();
    if (write_file(run, names, rows) && psCommandline.empty()) writer_->show();
}

bool SectionRun::write_file(Run& run, const Names& names, LogRows& rows) try {
    const std::unique_ptr<SectionLines> section = lines(run);
    ExportFrame frame(run, poParent, *section, {filter_text_, names.captions});
    return frame.write_file(*writer_, psCommandline.empty(), gCSVFile, rows);
} catch (...) {
    writer_.reset();  // and with it the unfinished file, however long the host keeps this object
    leave(owner_, names.writer_loop);
}

}  // namespace prot
