#pragma once

#include <memory>
#include <string>

#include "apps/protcsv/displays/displays.h"
#include "apps/protcsv/notices_report.h"
#include "apps/protcsv/options/options.h"
#include "platform/environment.h"
#include "platform/portable/terminal/terminal.h"
#include "platform/portable/time/system_clock.h"

namespace prot {

/// The outside world of one run at the command line: displays, CSV files, the system's clock. Keeps what the
/// program tells at the end.
class Host : public Components, public CsvFileHost {
public:
    Host(const Options& options, Terminal& terminal, Displays& displays);

    Environment environment();

    const std::string& finished_file() const { return finished_file_; }  ///< empty: none was written
    const NoticesReport& notices() const { return notices_; }

    std::unique_ptr<CsvWriter> create_csv_writer() override;
    std::unique_ptr<ChangeDocumentReader> create_change_document_reader() override;
    std::unique_ptr<ErrorDisplay> create_error_display() override;
    std::unique_ptr<HelpDisplay> create_help_display() override;

    std::optional<std::string> ask_file_name(const std::string& suggestion) override;
    void unfinished_file(const std::string& path) override;
    void file_finished(const std::string& path) override;
    void characters_replaced(const std::string& path) override;
    void show_file(const std::string& path) override;

private:
    class NoPointer : public ScreenPointer {
    public:
        void set(Pointer /*pointer*/) override {}
    };

    CsvFileOptions csv_;
    Terminal& terminal_;
    Displays& displays_;
    NoPointer pointer_;
    SystemClock clock_;
    std::unique_ptr<ConnectionInformation> connection_information_;
    NoticesReport notices_;
    std::string finished_file_;
};

}  // namespace prot
