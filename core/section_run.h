#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "core/export_frame.h"
#include "core/section_exporter.h"
#include "platform/csv_writer.h"
#include "platform/environment.h"

namespace prot {

/// The run that sections share: filter form, file name, statement, then a deletion, a message that there is
/// nothing, or a file. A section states what is its own: names, form, condition, lines.
class SectionRun : public SectionExporter {
public:
    /// Name of the CSV file that the last export wrote; the person may have changed it when the file was
    /// opened.
    std::string gCSVFile;

    void gCSVAusgabe(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon, Date dtBis,
                     std::int32_t lAktion, Value& vPara) final;

protected:
    struct Names {
        std::string_view owner;                      ///< the class, in the source of an error
        std::string_view word;                       ///< the section, in the name of the file
        std::span<const std::string_view> captions;  ///< of the cells before the common ones
    };

    SectionRun(Environment& environment, const Names& names) : environment_(environment), names_(names) {}

    /// Asks for the filter (see FilterForm). condition: for msWHERE; filter_text: line 1 of the file.
    virtual bool get_filter(Database& oDBU, std::string& condition, std::string& filter_text) = 0;

    /// What completes the statement of gsMainSelect.
    virtual std::string msWHERE(std::string_view condition) const = 0;

    virtual std::unique_ptr<SectionLines> lines(Run& run) const = 0;

    Environment& environment() const { return environment_; }

private:
    void export_rows(Run& run, const std::string& sql);
    bool mbAusgabeCSV(Run& run, const RowSet& rows);

    Environment& environment_;
    const Names names_;
    std::string filter_text_;
    std::unique_ptr<CsvWriter> writer_;  // made for the first file, kept for the next ones
};

}  // namespace prot
