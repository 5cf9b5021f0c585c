#include "apps/srvprotqrbcsv/server_host.h"

#include <windows.h>

#include "platform/portable/help/help_topics.h"
#include "platform/portable/xml/document_reader.h"
#include "platform/windows/host/suite_components.h"
#include "platform/windows/system/browser_help_display.h"
#include "platform/windows/system/finished_file.h"
#include "platform/windows/system/system_names.h"
#include "platform/windows/text/wide_text.h"

namespace prot {

namespace {

constexpr std::string_view no_form =
    "Ohne interaktiven Desktop lässt sich der Auswahldialog nicht zeigen: Der Automatisierungsserver braucht "
    "dann einen Parametertext, der für diesen Bereich vollständig ist (psCommandline mit \"/autostart\").";

/// The folder of batch files; empty: the current one.
constexpr std::string_view output_folder_variable = "PROTCSV_AUSGABE";

/// For whoever watches the process with a debugger's eyes; nobody else is there to be told.
void trace(const std::string& text) { OutputDebugStringW(to_wide("srvProtQRBCsv: " + text + "\n").c_str()); }

/// Asks for the folder anew for each file, because an exporter keeps its writer for all of them.
class ServerCsvWriter : public CsvWriter {
public:
    explicit ServerCsvWriter(CsvFileHost& host) : host_(host) {}

    bool open(std::string& file_name, bool ask_user) override {
        CsvFileOptions options;
        options.folder = text_path(environment_text(output_folder_variable));
        file_.emplace(std::move(options), host_);
        return file_->open(file_name, ask_user);
    }
    void write_line(std::span<const std::string> cells) override { file_->write_line(cells); }
    void close() override { file_->close(); }
    void show() override { file_->show(); }

private:
    CsvFileHost& host_;
    std::optional<CsvFileWriter> file_;
};

}  // namespace

ServerHost::ServerHost()
    : message_boxes_([this](AutomationError error) { refuse(std::move(error)); }),
      forms_([this] { refuse_form(); }),
      save_dialog_(message_boxes_, [this] { refuse_form(); }),
      environment_{*this, message_boxes_, forms_, pointer_, *this, clock_, *this} {}

void ServerHost::begin(DatabaseObject& database) {
    database_ = &database;
    refusal_.reset();
}

void ServerHost::end() {
    abandon();
    if (refusal_) throw AutomationError(*std::exchange(refusal_, std::nullopt));
}

void ServerHost::abandon() noexcept {
    database_ = nullptr;
    pointer_.restore();
}

std::unique_ptr<CsvWriter> ServerHost::create_csv_writer() {
    return std::make_unique<ServerCsvWriter>(static_cast<CsvFileHost&>(*this));
}

std::unique_ptr<ChangeDocumentReader> ServerHost::create_change_document_reader() {
    return create_document_reader();
}
std::unique_ptr<ErrorDisplay> ServerHost::create_error_display() { return suite_error_display(); }
std::unique_ptr<HelpDisplay> ServerHost::create_help_display() {
    return help_display([](std::string_view map_file, std::string_view help_id) {
        return HelpTopics::of_program().page(map_file, help_id);
    });
}

std::unique_ptr<ValueTranslator> ServerHost::create_value_translator(std::string_view program_id) {
    auto translator = suite_value_translator(program_id, database_->host_object());
    if (!translator) trace("ohne Übersetzung der Werte: " + std::string(program_id));
    return translator;
}

std::optional<std::string> ServerHost::ask_file_name(const std::string& suggestion) {
    return save_dialog_.ask(suggestion, environment_text(output_folder_variable));
}

void ServerHost::unfinished_file(const std::string& /*path*/) {}
void ServerHost::file_finished(const std::string& path) { trace("geschrieben: " + path); }
void ServerHost::characters_replaced(const std::string& path, const ReplacedCharacters& /*characters*/) {
    trace("Zeichen ersetzt: " + path);
}
void ServerHost::show_file(const std::string& path) { open_finished_file(path, message_boxes_); }

std::array<std::string, 10> ServerHost::fields(int code) {
    std::optional<std::array<std::string, 10>> answer;
    if (database_) answer = database_->connection_info(code);
    if (answer) return *answer;
    std::array<std::string, 10> texts;
    texts.back() = computer_name();
    return texts;
}

void ServerHost::field_without_caption(std::string_view table, std::string_view column) {
    trace("ohne Beschriftung: " + std::string(table) + "." + std::string(column));
}

void ServerHost::lookup_failed(std::string_view error) {
    trace("Nachschlagen misslungen: " + std::string(error));
}

void ServerHost::record_read(std::int64_t log_id, std::int64_t /*lines*/, NoLine why) {
    if (why != NoLine::unreadable_document) return;
    trace("Protokollsatz nicht lesbar: " + std::to_string(log_id));
}

void ServerHost::refuse_form() { refuse({ErrorNumber::internal, std::string(no_form)}); }

void ServerHost::refuse(AutomationError error) {
    if (!refusal_) refusal_ = std::move(error);
}

}  // namespace prot
