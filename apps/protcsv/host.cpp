#include "apps/protcsv/host.h"

#include "apps/protcsv/console/interruption.h"
#include "platform/portable/files/paths.h"
#include "platform/portable/sqlite/sqlite_database.h"
#include "platform/portable/terminal/terminal_error_display.h"
#include "platform/portable/terminal/terminal_help_display.h"
#include "platform/portable/xml/pugi_xml_select.h"

namespace prot {

Host::Host(const Options& options, Terminal& terminal, bool full_screen)
    : csv_(options.csv),
      terminal_(terminal),
      message_boxes_(terminal, options.yes),
      forms_(terminal),
      full_screen_(full_screen ? full_screen_if_usable({terminal_, forms_, message_boxes_}) : nullptr),
      connection_information_(sqlite_connection_information(options.database)) {
    csv_.never_replaced = {text_path(options.database)};
    if (!options.statement_log.empty()) csv_.never_replaced.push_back(text_path(options.statement_log));
    if (options.answers) csv_.never_replaced.push_back(text_path(*options.answers));
}

Environment Host::environment() {
    MessageBoxes& boxes = full_screen_ ? full_screen_->message_boxes() : message_boxes_;
    FormDisplay& forms = full_screen_ ? full_screen_->forms() : forms_;
    return {*this, boxes, forms, pointer_, *connection_information_, clock_, notices_};
}

std::unique_ptr<CsvWriter> Host::create_csv_writer() { return std::make_unique<CsvFileWriter>(csv_, *this); }

std::unique_ptr<XmlSelect> Host::create_xml_select() { return create_pugi_xml_select(); }

std::unique_ptr<ErrorDisplay> Host::create_error_display() {
    if (full_screen_) return full_screen_->create_error_display();
    return std::make_unique<TerminalErrorDisplay>(terminal_);
}

std::unique_ptr<HelpDisplay> Host::create_help_display() {
    if (full_screen_) return full_screen_->create_help_display();
    return std::make_unique<TerminalHelpDisplay>(terminal_, HelpTopics::of_program());
}

std::optional<std::string> Host::ask_file_name(const std::string& suggestion) {
    if (full_screen_) return full_screen_->ask_file_name(suggestion, path_text(csv_.folder));
    return terminal_.ask("Dateiname", suggestion);
}

void Host::unfinished_file(const std::string& path) { set_unfinished_file(path); }

void Host::file_finished(const std::string& path) { finished_file_ = path; }

void Host::characters_replaced(const std::string& path) {
    terminal_.complain("Was die Kodierung nicht kennt, steht als ? in der Datei „" + path + "“.");
}

void Host::show_file(const std::string& path) {
    if (full_screen_) full_screen_->show_file(path);
}

ProgressParent* Host::progress() { return full_screen_ ? full_screen_->progress() : nullptr; }

void Host::tell(std::string_view text) {
    if (text.empty()) return;
    if (full_screen_)
        full_screen_->tell(text);
    else
        terminal_.write(text);
}

}  // namespace prot
