#include "apps/protcsv/own_files.h"

#include <filesystem>
#include <fstream>
#include <vector>

#include "apps/protcsv/options/usage_error.h"
#include "apps/protcsv/report/report_text.h"
#include "apps/protcsv/statement_log.h"
#include "platform/portable/files/paths.h"
#include "platform/portable/files/same_place.h"

namespace prot {

namespace {

struct OwnFile {
    std::string path;  ///< empty: the run has none
    std::string_view what;
};

std::string place_or_none(const std::string& path) { return path == standard_stream ? std::string() : path; }

void require_other_place(const std::string& option, const std::string& path,
                         const std::vector<OwnFile>& files) {
    for (const OwnFile& file : files)
        if (!file.path.empty() && is_same_place(text_path(path), text_path(file.path)))
            throw UsageError(option + ": „" + path + "“ ist " + std::string(file.what));
}

/// What there is must be empty, no file but a device, or begin like this.
void require_earlier(const std::string& option, const std::string& path, std::string_view beginning,
                     const std::string& what) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(text_path(path), ignored)) return;
    std::ifstream file(text_path(path), std::ios::binary);
    std::string begins(beginning.size(), '\0');
    file.read(begins.data(), static_cast<std::streamsize>(begins.size()));
    if (file.gcount() > 0 && begins != beginning)
        throw UsageError(option + ": die Datei „" + path + "“ gibt es schon, und sie ist " + what);
}

OwnFile database_of(const Options& options) { return {options.database.own_file(), "die Datenbank selbst"}; }
OwnFile answers_of(const Options& options) {
    return {place_or_none(options.answers.value_or("")), "die Datei der Antworten"};
}
OwnFile statement_log_of(const Options& options) {
    return {options.statement_log, "die Datei von --sql-log"};
}
OwnFile report_of(const Options& options) {
    return {place_or_none(options.report), "die Datei von --report"};
}

}  // namespace

void require_own_statement_log(const Options& options) {
    const std::string option = "--sql-log";
    require_other_place(option, options.statement_log,
                        {database_of(options), answers_of(options), report_of(options)});
    require_earlier(option, options.statement_log, statement_log_beginning,
                    "kein früheres Protokoll der Anweisungen");
}

void require_own_report(const Options& options) {
    const std::string option = "--report";
    require_other_place(option, options.report,
                        {database_of(options), answers_of(options), statement_log_of(options)});
    require_earlier(option, options.report, report_beginning, "kein früherer Bericht");
}

void require_own_output(const Options& options, const std::string& output) {
    require_other_place(
        "--output", output,
        {database_of(options), answers_of(options), statement_log_of(options), report_of(options)});
}

}  // namespace prot
