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
/// nothing, or a file. A section states what is its own: form, names, selection, lines.
class SectionRun : public SectionExporter {
public:
    /// Name of the CSV file that the last export wrote; the person may have changed it when the file was
    /// opened.
    std::string gCSVFile;

    void gCSVAusgabe(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon, Date dtBis,
                     std::int32_t lAktion, Value& vPara) final;
    void export_selection(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon,
                          Date dtBis, std::int32_t lAktion) final;

    std::optional<std::string> read_filter(Database& oDBU, std::int32_t lSection) final;

protected:
    /// What a run is called. A section may know it only when its filter is known.
    struct Names {
        std::string_view word;                          ///< the section, in the name of the file
        std::span<const std::string_view> captions;     ///< of the cells before the common ones
        std::string_view writer_loop = "mbAusgabeCSV";  ///< in the source of an error
        BoxStyle no_data = BoxStyle::information;       ///< of the box that there is nothing
    };

    /// owner: the class, in the source of an error.
    SectionRun(Environment& environment, std::string_view owner) : environment_(environment), owner_(owner) {}

    /// Asks for the filter (see FilterForm) and keeps it for the calls below. filter_text: line 1 of the
    /// file. False: the run ends here.
    virtual bool get_filter(Database& oDBU, std::int32_t lSection, std::string& filter_text) = 0;

    virtual Names names() const = 0;

    /// Sends what the selection needs in the database, before any other statement of the run.
    virtual void prepare_selection(Run& /*run*/) {}

    /// What completes the statement of gsMainSelect. Sends nothing.
    virtual std::string msWHERE() const = 0;

    virtual std::unique_ptr<SectionLines> lines(Run& run) const = 0;

    Environment& environment() const { return environment_; }

private:
    void export_rows(Run& run, const Names& names, const std::string& sql);
    bool write_file(Run& run, const Names& names, LogRows& rows);

    Environment& environment_;
    const std::string_view owner_;
    std::string filter_text_;
    std::unique_ptr<CsvWriter> writer_;  // made for the first file, kept for the next ones
};

}  // namespace prot
