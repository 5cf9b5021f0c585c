#include "tests/faults/support/faulty_sections.h"

#include <utility>

#include "sections/exchange_rates/CProtDevCsv.h"
#include "tests/faults/support/faulty_database.h"
#include "tests/faults/support/faulty_files.h"

namespace prot::faults {

namespace {

Faults* current = nullptr;

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
          exporter_(exchange_rates::create_exporter(environment_)) {}

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

constexpr Section sections[] = {{15, "exchange-rates", "Devisenkurse", create}};

}  // namespace

SectionTable sections_with(Faults& faults) {
    current = &faults;
    return sections;
}

}  // namespace prot::faults
