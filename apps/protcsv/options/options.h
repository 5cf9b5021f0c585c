#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "apps/protcsv/database/database_address.h"
#include "apps/protcsv/sample/sample_database.h"
#include "core/section_table.h"
#include "platform/automation/date.h"
#include "platform/portable/csv/csv_file_writer.h"

namespace prot {

/// The name that stands for a standard stream where a file is asked for.
inline constexpr std::string_view standard_stream = "-";

enum class Command { show_text, export_log, delete_log, run, sample, sections, completion, manual };

enum class Shell { bash, zsh, fish };

/// What of the log is asked for; the arguments of gCSVAusgabe.
struct LogRequest {
    std::int32_t section = 0;
    std::string user;
    Date from;
    Date to;
    std::int32_t events = 7;  ///< 1 created, 2 changed, 4 deleted
};

struct Options {
    Command command = Command::show_text;
    std::string text;  ///< show_text: the help or version asked for
    DatabaseAddress database;
    int login_seconds = 15;  ///< of ODBC: time limits, 0 for none
    int statement_seconds = 0;
    int lock_seconds = 30;
    bool trust_certificate = false;  ///< of the server, unchecked
    LogRequest request;              ///< run reads it from `parameters`
    std::vector<std::int32_t>
        sections;            ///< export: of which each is run with `request`, the first one's number
    std::string parameters;  ///< psCommandline, verbatim
    CsvFileOptions csv;
    std::string output;       ///< pattern of the CSV file's name, "-" for standard output; empty: none
    bool no_clobber = false;  ///< `output` replaces no file
    std::string report;       ///< file, "-" for standard output; empty: none
    bool strict = false;      ///< what is left out for want of a caption or a document counts, too
    bool fail_on_empty = false;
    std::string statement_log;           ///< file; empty: none
    std::optional<std::string> answers;  ///< file of prepared answers, "-" for standard input
    int threads = 2;                     ///< 2: rows are read ahead; 1: all in turn
    bool plain = false;
    bool quiet = false;
    bool yes = false;
    std::string archive;   ///< delete: folder in which an archive is made before anything goes; empty: none
    bool dry_run = false;  ///< delete: count and say, delete nothing
    bool as_is = false;    ///< run: the parameter text is not checked
    std::string sample_file;
    SampleOptions sample;
    bool sample_as_script = false;  ///< T-SQL instead of an SQLite file
    bool overwrite = false;
    Shell shell = Shell::bash;          ///< completion: for which
    std::vector<std::string> warnings;  ///< about what was taken otherwise than it was written; German lines
};

/// What the values of options are read by.
struct OptionContext {
    SectionTable sections;
    Date today;                             ///< any time of the present day
    std::optional<std::string> database{};  ///< of the environment
};

/// Reads the command line without the program's own name. Raises UsageError.
Options parse_options(std::span<const std::string> arguments, const OptionContext& context);

/// The help shown when the program is called without arguments.
std::string short_help();

}  // namespace prot
