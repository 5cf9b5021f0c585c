#include <array>
#include <filesystem>
#include <fstream>
#include <istream>
#include <iterator>
#include <optional>

#include "apps/protcsv/commands.h"
#include "apps/protcsv/host.h"
#include "apps/protcsv/options/run_parameters.h"
#include "apps/protcsv/options/usage_error.h"
#include "apps/protcsv/statement_log.h"
#include "apps/protcsv/whole_statements.h"
#include "core/ProtCsvClass.h"
#include "platform/automation/error.h"
#include "platform/automation/text_parts.h"
#include "platform/portable/csv/csv_encoding.h"
#include "platform/portable/files/atomic_file.h"
#include "platform/portable/sqlite/sqlite_database.h"

namespace prot {

namespace {

constexpr std::string_view standard_input = "-";
constexpr std::string_view refusal =
    "Dieser Lauf muss etwas fragen und braucht dazu ein Terminal oder --answers DATEI; unbeaufsichtigt geht "
    "es mit "
    "--params \"/…/autostart\".";

constexpr std::array<int, 4> exit_statuses = {exit_done, exit_cancelled, exit_error, exit_usage};
int exit_status(Outcome outcome) { return exit_statuses[static_cast<std::size_t>(outcome)]; }

// Not by way of a stream's buffer, which takes a lack of memory for the end of the text.
std::string read_all(std::istream& in) { return {std::istreambuf_iterator<char>(in), {}}; }

std::optional<std::string> read_answers(const Options& options, const Console& console) {
    if (!options.answers) return std::nullopt;
    if (*options.answers == standard_input) return read_all(console.in);
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
    if (console.in_is_terminal && console.err_is_terminal && options.answers != standard_input)
        settings.keyboard = &console.in;
    settings.answers = read_answers(options, console);
    settings.refusal = refusal;
    return settings;
}

/// Prepared answers are given to questions line by line.
bool full_screen(const Options& options, const Console& console) {
    return console.full_screen && !options.plain && !options.answers;
}

/// The log is about to be created anew, which must cost neither the database nor the answers.
void require_own_file(const Options& options) {
    const auto is_log = [&](const std::string& file) {
        std::error_code ignored;
        return std::filesystem::equivalent(text_path(file), text_path(options.statement_log), ignored);
    };
    const std::string log = "--sql-log: „" + options.statement_log + "“ ";
    if (is_log(options.database)) throw UsageError(log + "ist die Datenbank selbst");
    if (options.answers && is_log(*options.answers)) throw UsageError(log + "ist die Datei der Antworten");
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

/// Makes the folder of the file, so that a wrong one shows before the log is read.
void require_folder(const std::filesystem::path& folder) {
    if (!folder.empty()) system_files().make_folder(folder);
}

/// One run of an exporter, from the opened database to the exit status.
class LogRun {
public:
    LogRun(const Options& options, const Console& console, SectionTable sections,
           const MakeDisplays& displays)
        : options_(options),
          console_(console),
          sections_(sections),
          terminal_(terminal_settings(options, console)),
          message_boxes_(terminal_, options.yes),
          displays_(
              displays({terminal_, message_boxes_, full_screen(options, console), console.err_is_terminal})),
          host_(options, terminal_, *displays_),
          environment_(host_.environment()) {}

    int run() {
        const LogRequest request = options_.command == Command::run
                                       ? read_run_parameters(options_.parameters, sections_, environment_)
                                       : options_.request;
        require_separator(options_.csv);
        for (const std::string& warning : options_.warnings) complain(console_, warning);
        if (!options_.statement_log.empty()) require_own_file(options_);
        const auto access =
            options_.command == Command::delete_log ? SqliteAccess::read_write : SqliteAccess::read_only;
        const auto reading = options_.threads > 1 ? SqliteReading::ahead : SqliteReading::on_demand;
        const std::unique_ptr<Database> database = open_sqlite_database(options_.database, access, reading);
        if (options_.command != Command::delete_log) require_folder(options_.csv.folder);
        WholeStatements whole(*database);
        if (options_.statement_log.empty()) {
            run_section(request, whole);
        } else {
            StatementLog log(whole, options_.statement_log);
            run_section(request, log);
            log.close();
        }
        return finish();
    }

private:
    /// An error that leaves the exporter is shown like those that it shows itself.
    void run_section(const LogRequest& request, Database& database) {
        const std::unique_ptr<ProgressParent> progress =
            options_.quiet ? nullptr : displays_->create_progress();
        ProtCsvClass entry(environment_, sections_);
        entry.poParent = progress.get();
        entry.psCommandline = options_.parameters;
        entry.pbLoeschen = options_.command == Command::delete_log;
        Value spare;
        try {
            entry.gCSVAusgabe(database, request.section, as_literal(request.user), request.from, request.to,
                              request.events, spare);
        } catch (const AutomationError& error) {
            displays_->create_error_display()->ZQ_gShowError(error.number(), error.source(),
                                                             error.description());
        }
    }

    int finish() {
        if (message_boxes_.left_unanswered())
            terminal_.complain("Ohne Terminal ist die Antwort Nein; --yes antwortet mit Ja.");
        tell(host_.notices().failures_text());
        // A deletion says how many records it found before it deletes them. The question that fails counts as
        // answered no, without a word.
        if (options_.command == Command::delete_log && terminal_.outcome() == Outcome::done &&
            !message_boxes_.shown()) {
            terminal_.note(Outcome::failed);
            terminal_.complain("Die Löschfrage ließ sich nicht stellen; es wurde nichts gelöscht.");
        }
        if (terminal_.outcome() != Outcome::done) return exit_status(terminal_.outcome());
        if (!options_.quiet) tell(host_.notices().fields_text() + host_.notices().documents_text());
        return host_.finished_file().empty() ? exit_done : print(console_, host_.finished_file() + '\n');
    }

    void tell(const std::string& text) {
        if (!text.empty()) displays_->tell(text);
    }

    const Options& options_;
    const Console& console_;
    SectionTable sections_;
    Terminal terminal_;
    TerminalMessageBoxes message_boxes_;
    std::unique_ptr<Displays> displays_;
    Host host_;
    Environment environment_;
};

}  // namespace

int run_log(const Options& options, const Console& console, SectionTable sections,
            const MakeDisplays& displays) {
    return LogRun(options, console, sections, displays).run();
}

}  // namespace prot
