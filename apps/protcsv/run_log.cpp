#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <istream>
#include <iterator>
#include <optional>

#include "apps/protcsv/checks/parameter_check.h"
#include "apps/protcsv/checks/understood_text.h"
#include "apps/protcsv/commands.h"
#include "apps/protcsv/console/stream_files.h"
#include "apps/protcsv/database/open_database.h"
#include "apps/protcsv/deletion/deletion_run.h"
#include "apps/protcsv/host.h"
#include "apps/protcsv/options/output_name.h"
#include "apps/protcsv/options/request_words.h"
#include "apps/protcsv/options/run_parameters.h"
#include "apps/protcsv/options/usage_error.h"
#include "apps/protcsv/own_files.h"
#include "apps/protcsv/report/closing_text.h"
#include "apps/protcsv/report/run_report.h"
#include "apps/protcsv/report/statement_count.h"
#include "apps/protcsv/statement_log.h"
#include "apps/protcsv/whole_statements.h"
#include "core/Prot0000UtilitiesBAS.h"
#include "core/ProtCsvClass.h"
#include "platform/automation/error.h"
#include "platform/automation/text_parts.h"
#include "platform/portable/csv/csv_encoding.h"
#include "platform/portable/files/atomic_file.h"
#include "platform/portable/files/unfinished_files.h"

namespace prot {

namespace {

constexpr std::string_view refusal =
    "Dieser Lauf muss etwas fragen und braucht dazu ein Terminal oder --answers DATEI; unbeaufsichtigt geht "
    "es mit "
    "--params \"/…/autostart\".";

constexpr std::string_view no_question = "Die Löschfrage ließ sich nicht stellen; es wurde nichts gelöscht.";
constexpr std::int64_t head_lines = 2;  // of a file, above its records

constexpr std::array<int, 4> exit_statuses = {exit_done, exit_cancelled, exit_error, exit_usage};
int exit_status(Outcome outcome) { return exit_statuses[static_cast<std::size_t>(outcome)]; }

// Not by way of a stream's buffer, which takes a lack of memory for the end of the text.
std::string read_all(std::istream& in) { return {std::istreambuf_iterator<char>(in), {}}; }

std::optional<std::string> read_answers(const Options& options, const Console& console) {
    if (!options.answers) return std::nullopt;
    if (*options.answers == standard_stream) return read_all(console.in);
    std::ifstream file(text_path(*options.answers), std::ios::binary);
    try {
        if (file.peek() != std::ifstream::traits_type::eof() || file.eof()) return read_all(file);
    } catch (const std::ios_base::failure&) {
        // Reading broke off; said below like a file that cannot be opened.
    }
    throw AutomationError(ErrorNumber::file, "Die Datei „" + *options.answers + "“ lässt sich nicht lesen.");
}

TerminalSettings terminal_settings(const Options& options, const Console& console) {
    TerminalSettings settings;
    settings.program = "protcsv";
    settings.output = &console.err;
    // Questions appear on standard error: without a terminal there, nobody would see them.
    if (console.in_is_terminal && console.err_is_terminal && options.answers != standard_stream)
        settings.keyboard = &console.in;
    settings.answers = read_answers(options, console);
    settings.refusal = refusal;
    settings.columns = console.err_columns;
    settings.erases = console.err_erases;
    return settings;
}

/// Prepared answers are given to questions line by line.
bool full_screen(const Options& options, const Console& console) {
    return console.full_screen && !options.plain && !options.answers;
}

/// A separator that the encoding turned into a question mark would separate nothing.
void require_separator(const CsvFileOptions& csv) {
    std::string encoded;
    if (csv.encoding == CsvEncoding::windows_1252 && append_windows_1252(csv.separator, encoded))
        throw UsageError("--separator: windows-1252 kennt das Zeichen „" + csv.separator + "“ nicht");
}

/// The exporter puts the name between apostrophes as it gets it.
std::string as_literal(std::string_view name) {
    std::string text;
    append_doubled(text, name, '\'');
    return text;
}

/// The file that a person named must not be there. What is no file (a device, a pipe) loses nothing.
void require_no_file(const std::filesystem::path& place) {
    std::error_code ignored;
    const std::filesystem::file_status status = std::filesystem::symlink_status(place, ignored);
    if (!std::filesystem::is_regular_file(status) && !std::filesystem::is_symlink(status)) return;
    throw AutomationError(ErrorNumber::file, "Die Datei „" + path_text(place) +
                                                 "“ gibt es schon; ohne --no-clobber wird sie ersetzt.");
}

/// One run of an exporter, from the opened database to the exit status.
class LogRun {
public:
    LogRun(const Options& options, const Console& console, SectionTable sections,
           const MakeDisplays& displays, RunAccount& account)
        : options_(options),
          console_(console),
          sections_(sections),
          account_(account),
          standard_output_(console.out),
          terminal_(terminal_settings(options, console)),
          message_boxes_(terminal_, options.yes),
          displays_(displays(
              {terminal_, message_boxes_, full_screen(options, console), console.has_status_line()})),
          host_(options, *displays_, account),
          deletion_(options.command == Command::delete_log
                        ? std::make_unique<DeletionRun>(options, sections, account, host_, *displays_)
                        : nullptr),
          environment_(deletion_ ? host_.environment(deletion_->boxes()) : host_.environment()) {}

    /// Whether the parameter text, where it asks for an unattended run, chooses anything in the section.
    bool fits() {
        if (options_.parameters.empty()) return true;
        const std::unique_ptr<HostDatabase> database = open_database(false);
        const UnderstoodText text = understand(options_.parameters, sections_, options_.request.section,
                                               !exports(), *database, environment_);
        return !text.has_autostart() || text.filter_text.has_value();
    }

    int run() {
        const auto [request, errors] = options_.command == Command::run
                                           ? read_run_parameters(options_.parameters, sections_, environment_)
                                           : RunParameters{options_.request, {}};
        if (errors.empty()) account_.request = request;
        require_separator(options_.csv);
        for (const std::string& warning : options_.warnings) complain(console_, warning);
        if (!options_.statement_log.empty()) require_own_statement_log(options_);
        for (const std::string& error : errors) refuse(error);
        const std::unique_ptr<HostDatabase> database = open_database(!errors.empty());
        if (!database || !parameters_pass(request, *database) || !errors.empty()) return exit_usage;
        host_.set_form_notice(form_notice(request, !exports()));
        choose_output(request);
        if (exports() && !folder_.empty()) system_files().make_folder(folder_);
        if (exports() && options_.output != standard_stream) remove_unfinished_files(folder_);
        StatementCount counted(*database, account_.statements);
        WholeStatements whole(counted);
        if (options_.statement_log.empty()) {
            run_section(request, whole, *database);
        } else {
            StatementLog log(whole, options_.statement_log);
            run_section(request, log, *database);
            log.close();
        }
        return finish();
    }

private:
    bool exports() const { return deletion_ == nullptr; }

    /// Where the file will be, as far as that is known before the run.
    void choose_output(const LogRequest& request) {
        folder_ = options_.csv.folder;
        if (options_.output.empty()) return;
        if (options_.output == standard_stream) {
            folder_.clear();
            host_.set_output(standard_output_);
            return;
        }
        const std::string name = with_csv_ending(
            output_name(options_.output, {section_name(request.section), client(), environment_.clock.now()}),
            options_.csv.folder);
        const std::filesystem::path place = joined_path(options_.csv.folder, text_path(name));
        require_own_output(options_, path_text(place));
        if (options_.no_clobber) require_no_file(place);
        folder_ = place.parent_path();
        host_.set_output(name, options_.no_clobber ? Existing::kept : Existing::replaced);
    }

    std::string_view section_name(std::int32_t number) const {
        return std::ranges::find(sections_, number, &Section::number)->name;
    }

    /// Of a run that asks for its client, nobody knows it in time.
    std::string client() {
        if (!asks_for_client(options_.output)) return {};
        if (!pbCommandVorhanden(options_.parameters, "autostart"))
            throw UsageError("--output: {client} braucht --params mit autostart");
        return client_of(options_.parameters, environment_);
    }

    /// refused: the run will not take place; then null when the database cannot be opened.
    std::unique_ptr<HostDatabase> open_database(bool refused) try {
        std::unique_ptr<HostDatabase> database = prot::open_database(options_);
        host_.set_server(database->server_name());
        return database;
    } catch (const AutomationError&) {
        if (!refused) throw;
        return nullptr;
    }

    void refuse(const std::string& line) {
        account_.note_error(line);
        complain(console_, line);
    }

    /// Says what is wrong with the parameter text, all at once. False: the run must not take place. What is
    /// sent for it stands in no statement log.
    bool parameters_pass(const LogRequest& request, Database& database) {
        if (options_.as_is || options_.parameters.empty()) return true;
        const CheckResult check = check_parameters(options_.command, options_.parameters, request, sections_,
                                                   database, environment_);
        for (const std::string& line : check.lines) check.refused ? refuse(line) : complain(console_, line);
        return !check.refused;
    }

    /// An error that leaves the exporter is shown like those that it shows itself.
    void run_section(const LogRequest& request, Database& statements, HostDatabase& behind) {
        const std::unique_ptr<ProgressParent> progress =
            options_.quiet ? nullptr : displays_->create_progress();
        ProtCsvClass entry(environment_, sections_);
        entry.poParent = progress.get();
        entry.psCommandline = options_.parameters;
        entry.pbLoeschen = !exports();
        const std::string user = as_literal(request.user);
        const auto export_selection = [&] {
            entry.export_selection(statements, request.section, user, request.from, request.to,
                                   request.events);
        };
        Database& database =
            deletion_ ? deletion_->stand_before(statements, behind, export_selection) : statements;
        Value spare;
        try {
            entry.gCSVAusgabe(database, request.section, user, request.from, request.to, request.events,
                              spare);
        } catch (const AutomationError& error) {
            host_.create_error_display()->ZQ_gShowError(error.number(), error.source(), error.description());
        }
        if (deletion_) deletion_->step_aside();
    }

    int finish() {
        if (message_boxes_.left_unanswered())
            terminal_.complain("Ohne Terminal ist die Antwort Nein; --yes antwortet mit Ja.");
        const bool is_done = terminal_.outcome() == Outcome::done;
        tell_what_is_missing(is_done);
        // A deletion says how many records it found before it deletes them. The question that fails counts as
        // answered no, without a word.
        if (!exports() && is_done && !message_boxes_.shown()) {
            terminal_.note(Outcome::failed);
            account_.note_error(no_question);
            terminal_.complain(no_question);
        }
        if (terminal_.outcome() == Outcome::refused) account_.note_error(terminal_.refused_for());
        if (deletion_) tell_of_deletion();
        if (terminal_.outcome() != Outcome::done) return exit_status(terminal_.outcome());
        if (exports() && !options_.quiet)
            terminal_.write(closing_line(account_.notices, account_.duration()));
        const int status = exports() ? status_of_export() : exit_done;
        const std::string& path = deletion_ ? deletion_->archive() : account_.file;
        const bool prints_path = !path.empty() && path != standard_stream;
        if (prints_path && options_.report != standard_stream && print(console_, path + '\n') != exit_done) {
            account_.note_error(standard_output_refuses);
            return exit_error;
        }
        return status;
    }

    void tell_of_deletion() {
        const std::string text = deletion_->end_text(options_.quiet);
        if (!text.empty()) displays_->tell(Telling::notice, text);
    }

    /// A failed run has no file that could lack anything but what made it fail.
    void tell_what_is_missing(bool is_done) {
        const NoticesReport& notices = account_.notices;
        const std::string failures = notices.failures_text();
        std::string fields, losses;
        if (is_done) {
            if (!options_.quiet || options_.strict) fields = notices.fields_text();
            losses = notices.documents_text() + replaced_text(account_.replaced, account_.file) +
                     too_long_text(notices.lines() + head_lines);
        }
        const std::string text = failures + fields + losses;
        if (text.empty()) return;
        const bool is_warning = !failures.empty() || !losses.empty() || options_.strict;
        displays_->tell(is_warning ? Telling::warning : Telling::notice, text);
    }

    int status_of_export() const {
        const NoticesReport& notices = account_.notices;
        const bool lacks_records =
            notices.lacks_captions() || notices.left_out(LeftOut::unreadable_document).count > 0;
        if (notices.failed_lookups() > 0 || (options_.strict && lacks_records)) return exit_incomplete;
        return notices.records() == 0 && options_.fail_on_empty ? exit_no_data : exit_done;
    }

    const Options& options_;
    const Console& console_;
    SectionTable sections_;
    RunAccount& account_;
    StreamFiles standard_output_;
    std::filesystem::path folder_;  // of the file; empty: the current one, or none
    Terminal terminal_;
    TerminalMessageBoxes message_boxes_;
    std::unique_ptr<Displays> displays_;
    Host host_;
    const std::unique_ptr<DeletionRun> deletion_;  // null: the run exports
    Environment environment_;
};

}  // namespace

int run_log(const Options& options, const Console& console, SectionTable sections,
            const MakeDisplays& displays) {
    RunAccount account;
    return RunReport(options, console, sections, account).around([&] {
        return LogRun(options, console, sections, displays, account).run();
    });
}

bool parameters_fit(const Options& options, const Console& console, SectionTable sections) {
    RunAccount account;
    return LogRun(
               options, console, sections, [](const DisplayMeans& means) { return choose_displays(means); },
               account)
        .fits();
}

}  // namespace prot
