#include "apps/protcsv/host.h"

#include "apps/protcsv/console/interruption.h"
#include "platform/portable/files/paths.h"
#include "platform/portable/sqlite/sqlite_database.h"
#include "platform/portable/xml/document_reader.h"

namespace prot {

Host::Host(const Options& options, Terminal& terminal, Displays& displays)
    : csv_(options.csv),
      terminal_(terminal),
      displays_(displays),
      connection_information_(sqlite_connection_information(options.database)) {
    csv_.never_replaced = {text_path(options.database)};
    if (!options.statement_log.empty()) csv_.never_replaced.push_back(text_path(options.statement_log));
    if (options.answers) csv_.never_replaced.push_back(text_path(*options.answers));
}

Environment Host::environment() {
    MessageBoxes& boxes = displays_.message_boxes();
    FormDisplay& forms = displays_.forms();
    return {*this, boxes, forms, pointer_, *connection_information_, clock_, notices_};
}

std::unique_ptr<CsvWriter> Host::create_csv_writer() { return std::make_unique<CsvFileWriter>(csv_, *this); }

std::unique_ptr<ChangeDocumentReader> Host::create_change_document_reader() {
    return create_document_reader();
}

std::unique_ptr<ErrorDisplay> Host::create_error_display() { return displays_.create_error_display(); }

std::unique_ptr<HelpDisplay> Host::create_help_display() { return displays_.create_help_display(); }

std::optional<std::string> Host::ask_file_name(const std::string& suggestion) {
    return displays_.ask_file_name(suggestion, path_text(csv_.folder));
}

void Host::unfinished_file(const std::string& path) { set_unfinished_file(path); }

void Host::file_finished(const std::string& path) { finished_file_ = path; }

void Host::characters_replaced(const std::string& path) {
    terminal_.complain("Was die Kodierung nicht kennt, steht als ? in der Datei „" + path + "“.");
}

void Host::show_file(const std::string& path) { displays_.show_file(path); }

}  // namespace prot
