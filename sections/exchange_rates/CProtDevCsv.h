#pragma once

#include <memory>
#include <string>

#include "core/section_exporter.h"
#include "platform/csv_writer.h"
#include "platform/environment.h"

namespace prot {

struct Run;

/// The exporter of log section 15, the exchange rates. A host may also create it directly.
class CProtDevCsv : public SectionExporter {
public:
    explicit CProtDevCsv(Environment& environment) : environment_(environment) {}

    /// Name of the CSV file that the last export wrote; the person may have changed it when the file was
    /// opened.
    std::string gCSVFile;

    void gCSVAusgabe(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon, Date dtBis,
                     std::int32_t lAktion, Value& vPara) override;

private:
    bool get_filter(Database& oDBU, std::string& condition);
    void export_rows(Run& run, const std::string& sql);
    bool mbAusgabeCSV(Run& run, const RowSet& rows);

    Environment& environment_;
    std::string filter_text_;            // line 1 of the file
    std::unique_ptr<CsvWriter> writer_;  // made for the first file, kept for the next ones
};

/// For the table of sections.
std::unique_ptr<SectionExporter> create_exchange_rate_exporter(Environment& environment);

}  // namespace prot
