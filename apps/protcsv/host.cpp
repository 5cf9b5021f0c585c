#include "apps/protcsv/host.h"

#include <algorithm>

#include "apps/protcsv/console/interruption.h"
#include "apps/protcsv/options/output_name.h"
#include "platform/portable/files/paths.h"
#include "platform/portable/files/same_place.h"
#include "platform/portable/xml/document_reader.h"

namespace prot {

namespace {

/// Notes the first error that is shown.
class NotedErrors : public ErrorDisplay {
public:
    NotedErrors(std::unique_ptr<ErrorDisplay> behind, RunAccount& account)
        : behind_(std::move(behind)), account_(account) {}

    void ZQ_gShowError(std::int32_t lNummer, std::string_view sQuelle,
                       std::string_view sBeschreibung) override {
        account_.note_error(sBeschreibung);
        behind_->ZQ_gShowError(lNummer, sQuelle, sBeschreibung);
    }

private:
    std::unique_ptr<ErrorDisplay> behind_;
    RunAccount& account_;
};

}  // namespace

Host::Host(const Options& options, Displays& displays, RunAccount& account)
    : csv_(options.csv), displays_(displays), forms_(displays.forms()), account_(account) {
    const std::string database = options.database.own_file();
    if (!database.empty()) csv_.never_replaced = {text_path(database)};
    if (!options.statement_log.empty()) csv_.never_replaced.push_back(text_path(options.statement_log));
    if (options.answers) csv_.never_replaced.push_back(text_path(*options.answers));
    if (!options.report.empty()) csv_.never_replaced.push_back(text_path(options.report));
}

Environment Host::environment() { return environment(displays_.message_boxes()); }

Environment Host::environment(MessageBoxes& boxes) {
    return {*this, boxes, forms_, pointer_, server_, clock_, account_.notices};
}

void Host::set_output(const std::string& name, Existing existing) {
    csv_.output = text_path(name);
    csv_.existing_output = existing;
}

void Host::write_into(const std::filesystem::path& folder) {
    csv_.folder = folder;
    csv_.output.clear();
    is_alone_ = true;
}

void Host::set_output(FileLayer& files) {
    files_ = &files;
    csv_.folder.clear();
    csv_.never_replaced.clear();
    set_output(std::string(standard_stream), Existing::replaced);
}

std::unique_ptr<CsvWriter> Host::create_csv_writer() {
    return std::make_unique<CsvFileWriter>(csv_, *this, *files_);
}

std::unique_ptr<ChangeDocumentReader> Host::create_change_document_reader() {
    return create_document_reader();
}

std::unique_ptr<ErrorDisplay> Host::create_error_display() {
    return std::make_unique<NotedErrors>(displays_.create_error_display(), account_);
}

std::unique_ptr<HelpDisplay> Host::create_help_display() { return displays_.create_help_display(); }

std::optional<std::string> Host::ask_file_name(const std::string& suggestion) {
    if (is_alone_) return std::string();
    for (;;) {
        std::optional<std::string> name = displays_.ask_file_name(suggestion, path_text(csv_.folder));
        if (!name) return name;
        *name = with_csv_ending(*name, csv_.folder);
        const auto place = joined_path(csv_.folder, text_path(name->empty() ? suggestion : *name));
        if (may_take(place)) return name;
    }
}

/// Of a file that the run itself needs nobody is asked: the writer refuses it.
bool Host::may_take(const std::filesystem::path& place) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(place, ignored)) return true;
    const bool refused = std::ranges::any_of(
        csv_.never_replaced, [&](const std::filesystem::path& own) { return is_same_place(place, own); });
    return refused || displays_.may_replace(path_text(place));
}

bool Host::asks_again(const AutomationError& reason) {
    return !is_alone_ && displays_.refuse_file_name(reason.description());
}

void Host::unfinished_file(const std::string& path) { set_unfinished_file(path); }

void Host::file_finished(const std::string& path) { account_.file = path; }

void Host::characters_replaced(const std::string& /*path*/, const ReplacedCharacters& characters) {
    account_.replaced = characters;
}

void Host::file_begins() {
    account_.bytes = 0;
    if (account_.sum) account_.sum.emplace();
}

void Host::bytes_written(std::string_view bytes) {
    account_.bytes += static_cast<std::int64_t>(bytes.size());
    if (account_.sum) account_.sum->add(bytes);
}

void Host::show_file(const std::string& path) {
    if (files_ == &system_files() && !is_alone_) displays_.show_file(path);
}

}  // namespace prot
