#pragma once

#include <array>
#include <memory>
#include <string>

#include "apps/protcsv/displays/displays.h"
#include "apps/protcsv/displays/form_aids.h"
#include "apps/protcsv/options/options.h"
#include "apps/protcsv/report/run_account.h"
#include "platform/environment.h"
#include "platform/portable/time/system_clock.h"

namespace prot {

/// The outside world of one run at the command line: displays, CSV files, the system's clock. Keeps what the
/// program tells at the end in its account.
class Host : public Components, public CsvFileHost {
public:
    /// All of them outlive it.
    Host(const Options& options, Displays& displays, RunAccount& account);

    /// Above the fields of every filter form.
    void set_form_notice(std::string notice) { forms_.set_notice(std::move(notice)); }

    /// The name of the server for the connection-information service.
    void set_server(std::string name) { server_.name = std::move(name); }

    Environment environment();
    /// With boxes that stand before those of the displays.
    Environment environment(MessageBoxes& boxes);

    /// Every CSV file gets this name, seen from the run's folder, and nobody is asked.
    void set_output(const std::string& name, Existing existing);
    /// Every CSV file gets the exporter's name in `folder`; nobody is asked, and nothing is shown.
    void write_into(const std::filesystem::path& folder);
    /// Every CSV file goes to `files`, which outlives it.
    void set_output(FileLayer& files);

    std::unique_ptr<CsvWriter> create_csv_writer() override;
    std::unique_ptr<ChangeDocumentReader> create_change_document_reader() override;
    std::unique_ptr<ErrorDisplay> create_error_display() override;
    std::unique_ptr<HelpDisplay> create_help_display() override;

    std::optional<std::string> ask_file_name(const std::string& suggestion) override;
    bool asks_again(const AutomationError& reason) override;
    void unfinished_file(const std::string& path) override;
    void file_finished(const std::string& path) override;
    void characters_replaced(const std::string& path, const ReplacedCharacters& characters) override;
    void file_begins() override;
    void bytes_written(std::string_view bytes) override;
    void show_file(const std::string& path) override;

private:
    class NoPointer : public ScreenPointer {
    public:
        void set(Pointer /*pointer*/) override {}
    };

    /// Ten texts of which only that of code 1206 is known: the tenth, the server's name.
    struct Server : ConnectionInformation {
        std::string name;

        std::array<std::string, 10> fields(int code) override {
            constexpr int server_name = 1206;
            std::array<std::string, 10> result;
            if (code == server_name) result.back() = name;
            return result;
        }
    };

    bool may_take(const std::filesystem::path& place);

    CsvFileOptions csv_;
    bool is_alone_ = false;  // nobody is asked
    FileLayer* files_ = &system_files();
    Displays& displays_;
    FormAids forms_;
    RunAccount& account_;
    NoPointer pointer_;
    SystemClock clock_;
    Server server_;
};

}  // namespace prot
