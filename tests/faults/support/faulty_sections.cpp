#include "tests/faults/support/faulty_sections.h"

#include <algorithm>

#include "sections/section_table.h"
#include "tests/faults/support/faulty_database.h"
#include "tests/faults/support/faulty_files.h"

namespace prot::faults {

namespace {

Faults* current = nullptr;

const Section& exchange_rates() { return *std::ranges::find(section_table(), 15, &Section::number); }

/// The exporter of the exchange rates between a database and a file layer that may fail.
class FaultyExporter : public SectionExporter, private Components {
public:
    explicit FaultyExporter(Environment& environment)
        : host_(environment.components),
          environment_{*this,
                       environment.message_boxes,
                       environment.form_display,
                       environment.screen_pointer,
                       environment.connection_information,
                       environment.clock,
                       environment.notices},
          exporter_(exchange_rates().create(environment_)) {}

    void gCSVAusgabe(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon, Date dtBis,
                     std::int32_t lAktion, Value& vPara) override {
        FaultyDatabase database(oDBU, *current);
        exporter_->poParent = poParent;
        exporter_->psCommandline = psCommandline;
        exporter_->pbLoeschen = pbLoeschen;
        exporter_->gCSVAusgabe(database, lSection, sUser, dtVon, dtBis, lAktion, vPara);
    }

private:
    std::unique_ptr<CsvWriter> create_csv_writer() override {
        return std::make_unique<CsvFileWriter>(current->csv, dynamic_cast<CsvFileHost&>(host_), files_);
    }
    std::unique_ptr<ChangeDocumentReader> create_change_document_reader() override {
        return host_.create_change_document_reader();
    }
    std::unique_ptr<ErrorDisplay> create_error_display() override { return host_.create_error_display(); }
    std::unique_ptr<HelpDisplay> create_help_display() override { return host_.create_help_display(); }

    Components& host_;
    FaultyFiles files_{system_files(), current->files};
    Environment environment_;
    std::unique_ptr<SectionExporter> exporter_;
};

std::unique_ptr<SectionExporter> create(Environment& environment) {
    return std::make_unique<FaultyExporter>(environment);
}

}  // namespace

SectionTable sections_with(Faults& faults) {
    static const Section faulty = [] {
        Section section = exchange_rates();
        section.create = create;
        return section;
    }();
    current = &faults;
    return {&faulty, 1};
}

}  // namespace prot::faults
