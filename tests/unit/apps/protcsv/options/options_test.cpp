#include "apps/protcsv/options/options.h"

#include <regex>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apps/protcsv/options/option_table.h"
#include "apps/protcsv/options/usage_error.h"
#include "platform/automation/utf8.h"

namespace prot {
namespace {

constexpr Section sections[] = {{15, "exchange-rates", "Devisenkurse", nullptr}};
using Arguments = std::vector<std::string>;

Options parse(const Arguments& arguments) {
    return parse_options(arguments, {sections, to_date(CivilTime{2026, 3, 1, 12})});
}

std::string refusal(const Arguments& arguments) {
    try {
        parse(arguments);
    } catch (const UsageError& error) {
        return error.what();
    }
    return {};
}

TEST(Options, ReadsAnExport) {
    const Options options =
        parse({"export",  "--db",        "x.db",       "--section",  "exchange-rates", "--user",
               "O'Neil",  "--from",      "2026-01-01", "--to",       "31.12.2026",     "--events",
               "created", "--params",    "/autostart", "--out",      "ordner",         "--sql-log",
               "log",     "--separator", "tab",        "--encoding", "utf-8",          "--raw-cells",
               "--plain", "--answers",   "-",          "--quiet"});
    EXPECT_EQ(options.command, Command::export_log);
    EXPECT_EQ(options.database.file, "x.db");
    EXPECT_EQ(options.request.section, 15);
    EXPECT_EQ(options.request.user, "O'Neil");
    EXPECT_EQ(options.request.from, to_date(CivilTime{2026, 1, 1}));
    EXPECT_EQ(options.request.to, to_date(CivilTime{2026, 12, 31}));
    EXPECT_EQ(options.request.events, 1);
    EXPECT_EQ(options.parameters, "/autostart");
    EXPECT_EQ(options.csv.folder, "ordner");
    EXPECT_EQ(options.csv.separator, "\t");
    EXPECT_EQ(options.csv.encoding, CsvEncoding::utf8);
    EXPECT_TRUE(options.csv.raw_cells);
    EXPECT_EQ(options.statement_log, "log");
    EXPECT_EQ(options.answers, "-");
    EXPECT_TRUE(options.plain);
    EXPECT_TRUE(options.quiet);
}

TEST(Options, CountsDaysFromThePresentOne) {
    const LogRequest request =
        parse({"delete", "--db", "x", "--section", "15", "--from", "2026-02", "--to", "heute"}).request;
    EXPECT_EQ(request.from, to_date(CivilTime{2026, 2, 1}));
    EXPECT_EQ(request.to, to_date(CivilTime{2026, 3, 1}));
    const LogRequest last =
        parse({"export", "--db", "x", "--section", "15", "--from", "gestern", "--to", "2026-03"}).request;
    EXPECT_EQ(last.from, to_date(CivilTime{2026, 2, 28}));
    EXPECT_EQ(last.to, to_date(CivilTime{2026, 3, 31}));
    const Arguments one_day = {"export", "--db", "x", "--section", "15", "--from", "heute", "--to", "heute"};
    EXPECT_EQ(refusal(one_day), "");
    EXPECT_EQ(refusal({"export", "--db", "x", "--section", "15", "--from", "heute"}), "") << "without an end";
}

TEST(Options, WarnsOfBitsOfAnEventMaskThatMeanNothing) {
    const auto asked = [](const char* events) {
        return parse({"export", "--db", "x", "--section", "15", "--events", events});
    };
    const Options options = asked("13");
    EXPECT_EQ(options.request.events, 5);
    ASSERT_EQ(options.warnings.size(), 1U);
    EXPECT_EQ(options.warnings[0], "--events: „13“ wird als 5 gelesen; nur 1, 2 und 4 haben eine Bedeutung");
    EXPECT_TRUE(asked("7").warnings.empty());
}

TEST(Options, ShowHelpForTheWordHelp) {
    EXPECT_EQ(parse({"help"}).text, parse({"--help"}).text);
    EXPECT_EQ(parse({"help", "export"}).text, parse({"export", "--help"}).text);
    EXPECT_EQ(parse({"-V"}).text, parse({"--version"}).text);
}

TEST(Options, LeavesTheDefaultsOfAnExportWithoutOptions) {
    const Options options = parse({"export", "--db", "x.db", "--section", "15"});
    EXPECT_EQ(options.request.user, "");
    EXPECT_TRUE(options.request.from.is_null());
    EXPECT_TRUE(options.request.to.is_null());
    EXPECT_EQ(options.request.events, 7);
    EXPECT_FALSE(options.plain);
    EXPECT_EQ(options.parameters, "");
    EXPECT_EQ(options.csv.folder, "");
    EXPECT_EQ(options.csv.separator, ";");
    EXPECT_EQ(options.csv.encoding, CsvEncoding::utf8_bom);
    EXPECT_FALSE(options.csv.raw_cells);
    EXPECT_EQ(options.threads, 2);
    EXPECT_EQ(options.answers, std::nullopt);
    EXPECT_FALSE(options.quiet);
    EXPECT_FALSE(options.yes);
}

TEST(Options, TakesAParameterTextVerbatim) {
    for (const char* text : {"[a,b]", "/autostart", "{}", "%%", "a b", "=x", "-x", "Ü\"'"}) {
        EXPECT_EQ(parse({"export", "--db", "x", "--section", "15", "--params", text}).parameters, text);
        EXPECT_EQ(
            parse({"export", "--db", "x", "--section", "15", "--params=" + std::string(text)}).parameters,
            text);
    }
}

TEST(Options, TakesAnEmptyValueInBothSpellings) {
    EXPECT_EQ(parse({"export", "--db", "x", "--section", "15", "--user", ""}).request.user, "");
    EXPECT_EQ(parse({"export", "--user=", "--db", "x", "--section", "15"}).request.user, "");
}

TEST(Options, ReadsADeletionWithTheOptionsOfAnExport) {
    const Options options = parse({"delete", "--db", "x", "--section", "15", "--yes", "--out", "ordner"});
    EXPECT_EQ(options.command, Command::delete_log);
    EXPECT_TRUE(options.yes);
}

TEST(Options, ReadsAnUnattendedRun) {
    const Options options = parse({"run", "--db", "x", "--params", "/sektion:15/autostart"});
    EXPECT_EQ(options.command, Command::run);
    EXPECT_EQ(options.parameters, "/sektion:15/autostart");
}

TEST(Options, ReadsTheSampleCommand) {
    const Options options = parse({"sample", "sections", "--seed", "7", "--rows", "100", "--overwrite"});
    EXPECT_EQ(options.command, Command::sample);
    EXPECT_EQ(options.sample_file, "sections");
    EXPECT_EQ(options.sample.seed, 7u);
    EXPECT_EQ(options.sample.rows, 100);
    EXPECT_TRUE(options.overwrite);
    EXPECT_FALSE(options.sample.section);
    EXPECT_EQ(parse({"sample", "x", "--section", "exchange-rates"}).sample.section, 15);
    EXPECT_EQ(parse({"sample", "--", "--db"}).sample_file, "--db");
    EXPECT_EQ(parse({"sample", "DATEI"}).sample_file, "DATEI") << "as the help calls it";
}

TEST(Options, AnswersAWrongUseWithOneGermanLine) {
    const struct {
        Arguments arguments;
        std::string line;
        const char* why;
    } rows[] = {
        {{"exprot", "--db", "x"},
         "„exprot“ ist kein Befehl; meinten Sie export? (Hilfe: protcsv --help)",
         "a command mistyped"},
        {{"kopieren"},
         "„kopieren“ ist kein Befehl; es gibt: export, delete, run, sample, sections, completion, man "
         "(Hilfe: protcsv --help)",
         "unknown command"},
        {{"help", "exprot"},
         "„exprot“ ist kein Befehl; meinten Sie export? (Hilfe: protcsv --help)",
         "help of an unknown command"},
        {{"help", "export", "run"},
         "help nimmt einen Befehl, nicht mehrere (Hilfe: protcsv --help)",
         "help of two commands"},
        {{"export", "--sektion", "15"},
         "die Option --sektion gibt es bei export nicht; meinten Sie --section? (Hilfe: protcsv export "
         "--help)",
         "an option mistyped"},
        {{"delete", "--ot=x"},
         "die Option --ot gibt es bei delete nicht; meinten Sie --to? (Hilfe: protcsv delete --help)",
         "not --out, which the help does not show"},
        {{"export", "--db", "x", "--section", "15", "--from", "2.1.2026", "--to", "1.1.2026"},
         "--from liegt hinter --to (Hilfe: protcsv export --help)",
         "a period that ends before it begins"},
        {{"delete", "--db", "x", "--section", "15", "--from", "heute", "--to", "gestern"},
         "--from liegt hinter --to (Hilfe: protcsv delete --help)",
         "of a deletion"},
        {{},
         "es fehlt ein Befehl; es gibt: export, delete, run, sample, sections, completion, man (Hilfe: "
         "protcsv --help)",
         "nothing at all"},
        {{"--", "--quiet"},
         "die Option --quiet gibt es vor dem Befehl nicht (Hilfe: protcsv --help)",
         "no command"},
        {{"--"},
         "es fehlt ein Befehl; es gibt: export, delete, run, sample, sections, completion, man (Hilfe: "
         "protcsv --help)",
         "no command"},
        {{"--db", "x", "export", "--section", "15"},
         "die Option --db gibt es vor dem Befehl nicht (Hilfe: protcsv --help)",
         "option before the command"},
        {{"export", "--foo=3", "--db", "x", "--section", "15"},
         "die Option --foo gibt es bei export nicht (Hilfe: protcsv export --help)",
         "unknown option"},
        {{"export", "-q", "--db", "x", "--section", "15"},
         "die Option -q gibt es bei export nicht (Hilfe: protcsv export --help)",
         "unknown short option"},
        {{"run", "--section", "15", "--db", "x", "--params", "y"},
         "die Option --section gibt es bei run nicht (Hilfe: protcsv run --help)",
         "option of another command"},
        {{"export", "--db", "x", "--section", "15", "noch"},
         "überzähliges Argument „noch“ (Hilfe: protcsv export --help)",
         "extra argument"},
        {{"export", "--db", "x", "--section", "15", "-"},
         "überzähliges Argument „-“ (Hilfe: protcsv export --help)",
         "a dash alone is no option"},
        {{"--version=neu"},
         "die Argumente sind nicht zu verstehen (Hilfe: protcsv --help)",
         "nothing that could be named is left"},
        {{"sections", "sample"},
         "überzähliges Argument „sample“ (Hilfe: protcsv sections --help)",
         "two commands"},
        {{"export", "--section", "15", "--db"},
         "--db braucht einen Wert: --db ZIEL (Hilfe: protcsv export --help)",
         "no value at the end"},
        {{"export", "--db", "--section", "15"},
         "--db braucht einen Wert: --db ZIEL (Hilfe: protcsv export --help)",
         "an option in the value's place"},
        {{"export", "--db", "x", "--section", "15", "--quiet=1"},
         "--quiet nimmt keinen Wert (Hilfe: protcsv export --help)",
         "flag with a value"},
        {{"export", "--section", "15"}, "--db fehlt (Hilfe: protcsv export --help)", "required option"},
        {{"export", "--db", "x"}, "--section fehlt (Hilfe: protcsv export --help)", "required option"},
        {{"delete", "--db", "x"}, "--section fehlt (Hilfe: protcsv delete --help)", "required option"},
        {{"delete", "--section", "15"}, "--db fehlt (Hilfe: protcsv delete --help)", "required option"},
        {{"run", "--params", "y"}, "--db fehlt (Hilfe: protcsv run --help)", "required option"},
        {{"run", "--db", "x"}, "--params fehlt (Hilfe: protcsv run --help)", "required option"},
        {{"sample"}, "DATEI fehlt (Hilfe: protcsv sample --help)", "required argument"},
        {{"export", "--db", "x", "--db", "y", "--section", "15"},
         "--db ist mehrfach angegeben (Hilfe: protcsv export --help)",
         "option given twice"},
        {{"export", "--db", "x", "--section", "15", "--quiet", "--quiet"},
         "--quiet ist mehrfach angegeben (Hilfe: protcsv export --help)",
         "flag given twice"},
        {{"export", "--db", "", "--section", "15"},
         "--db: der Wert darf nicht leer sein (Hilfe: protcsv export --help)",
         "empty path"},
        {{"export", "--db", "odbc:DSN=x;PWD=y", "--section", "15"},
         "--db: ein Kennwort auf der Befehlszeile können andere lesen; es gehört in eine Datei (--db @DATEI) "
         "oder in die Umgebungsvariable PROTCSV_DB (Hilfe: protcsv export --help)",
         "others see a command line"},
        {{"export", "--db", "x", "--section", "7"},
         "--section: „7“ ist kein Bereich; es gibt: 15 exchange-rates (Hilfe: protcsv export --help)",
         "unknown section"},
        {{"export", "--db", "x", "--section", "15", "--to", "31.11.2026"},
         "--to: „31.11.2026“ ist kein Tag; erwartet wird TT.MM.JJJJ, JJJJ-MM-TT, JJJJ-MM, heute oder gestern "
         "(Hilfe: protcsv export "
         "--help)",
         "no such day"},
        {{"export", "--db", "x", "--section", "15", "--user", "\xFF"},
         "--user: der Wert ist kein gültiges UTF-8 (Hilfe: protcsv export --help)",
         "not UTF-8"},
        {{"run", "--db", "x", "--params", "\xFF"},
         "--params: der Wert ist kein gültiges UTF-8 (Hilfe: protcsv run --help)",
         "not UTF-8"},
        {{"export", "--db", "x", "--section", "15", "--out="},
         "--out: der Wert darf nicht leer sein (Hilfe: protcsv export --help)",
         "empty folder"},
        {{"delete", "--db", "x", "--section", "15", "--sql-log", ""},
         "--sql-log: der Wert darf nicht leer sein (Hilfe: protcsv delete --help)",
         "empty path"},
        {{"run", "--db", "x", "--params", "y", "--answers="},
         "--answers: der Wert darf nicht leer sein (Hilfe: protcsv run --help)",
         "empty path"},
        {{"sample", ""}, "DATEI: der Wert darf nicht leer sein (Hilfe: protcsv sample --help)", "empty path"},
        {{"delete", "--db", "x", "--section", "15", "--to", "30.12.1899"},
         "--to: „30.12.1899“ ist der Nulltag; er stünde für eine Löschung ohne Grenze (Hilfe: protcsv "
         "delete --help)",
         "a deletion of everything"},
        {{"sample", "x", "--rows", "0"},
         "--rows: „0“ ist keine ganze Zahl von 1 bis " + std::to_string(most_sample_rows) +
             " (Hilfe: protcsv sample --help)",
         "no rows"},
        {{"sample", "x", "--rows", std::to_string(most_sample_rows + 1)},
         "--rows: „" + std::to_string(most_sample_rows + 1) + "“ ist keine ganze Zahl von 1 bis " +
             std::to_string(most_sample_rows) + " (Hilfe: protcsv sample --help)",
         "too many rows"},
        {{"export", "--db", "x", "--section", "15", "--threads", "3"},
         "--threads: „3“ ist keine ganze Zahl von 1 bis 2 (Hilfe: protcsv export --help)",
         "a third thread gains nothing"},
        {{"run", "--db", "x", "--params", "y", "--threads", "0"},
         "--threads: „0“ ist keine ganze Zahl von 1 bis 2 (Hilfe: protcsv run --help)",
         "somebody has to work"},
        {{"export", "--db", "x", "--section", "15", "--output", "{tag}.csv"},
         "--output: „{tag}“ ist kein Platzhalter; es gibt {section}, {client}, {date} und {time} (Hilfe: "
         "protcsv export --help)",
         "a word that stands for nothing"},
        {{"export", "--db", "x", "--section", "15", "--no-clobber"},
         "--no-clobber gilt nur zusammen mit --output (Hilfe: protcsv export --help)",
         "a name of the program's own replaces nothing anyway"},
        {{"run", "--db", "x", "--params", "y", "--output", "-", "--report", "-"},
         "--output - und --report - brauchen beide die Standardausgabe (Hilfe: protcsv run --help)",
         "two texts in one stream"},
        {{"export", "--db", "x", "--section", "15", "--report="},
         "--report: der Wert darf nicht leer sein (Hilfe: protcsv export --help)",
         "empty path"},
        {{"sample", "x", "--seed", "-1"},
         "--seed: „-1“ ist keine ganze Zahl von 0 bis 18446744073709551615 (Hilfe: protcsv sample --help)",
         "negative seed"},
        {{"sample", "x", "--rows", "0"},
         "--rows: „0“ ist keine ganze Zahl von 1 bis 30000000 (Hilfe: protcsv sample --help)",
         "no rows"},
        {{"sample", "x", "--rows", "30000001"},
         "--rows: „30000001“ ist keine ganze Zahl von 1 bis 30000000 (Hilfe: protcsv sample --help)",
         "more rows than there are seconds"},
    };
    for (const auto& row : rows) EXPECT_EQ(refusal(row.arguments), row.line) << row.why;
}

TEST(Options, TakeTheDatabaseOfTheEnvironmentForAnExportAlone) {
    OptionContext context{sections, {}, "odbc:DSN=Firma;PWD=geheim"};
    const auto parsed = [&](Arguments arguments) { return parse_options(arguments, context); };
    EXPECT_EQ(parsed({"export", "--section", "15"}).database.odbc->text(), "DSN=Firma;PWD=geheim;");
    EXPECT_EQ(parsed({"run", "--params", "x"}).database.odbc->text(), "DSN=Firma;PWD=geheim;");
    EXPECT_EQ(parsed({"export", "--db", "x.db", "--section", "15"}).database.file, "x.db");
    EXPECT_TRUE(parsed({"sections"}).database.empty());
    EXPECT_THROW(parsed({"delete", "--section", "15"}), UsageError);
    context.database = "";
    EXPECT_THROW(parsed({"export", "--section", "15"}), UsageError) << "empty is not set";
}

TEST(Options, HaveTimeLimitsOfTheirOwnForAServer) {
    const Options usual = parse({"export", "--db", "odbc:DSN=x", "--section", "15"});
    EXPECT_EQ(usual.login_seconds, 15);
    EXPECT_EQ(usual.statement_seconds, 0);
    EXPECT_EQ(usual.lock_seconds, 30);
    EXPECT_FALSE(usual.trust_certificate);
    const Options options =
        parse({"delete", "--db", "odbc:DSN=x", "--section", "15", "--login-timeout", "1",
               "--statement-timeout", "86400", "--lock-timeout", "0", "--trust-certificate"});
    EXPECT_EQ(options.login_seconds, 1);
    EXPECT_EQ(options.statement_seconds, 86400);
    EXPECT_EQ(options.lock_seconds, 0);
    EXPECT_TRUE(options.trust_certificate);
}

TEST(Options, EachCommandTakesItsOptionsAndNoOther) {
    const std::string log =
        "--db --login-timeout --statement-timeout --lock-timeout --trust-certificate --params --answers "
        "--plain --sql-log --quiet ";
    const std::string file =
        "--out --output --no-clobber --separator --encoding --raw-cells --threads --report --strict "
        "--fail-on-empty ";
    const struct {
        const char* command;
        std::string options;
    } rows[] = {
        {"export", log + file + "--section --user --from --to --events"},
        {"delete", log + "--report --section --user --from --to --events --archive --dry-run --yes --out"},
        {"run", log + file + "--as-is"},
        {"sample", "--seed --rows --section --sql --overwrite"},
        {"sections", ""},
    };
    for (const auto& row : rows)
        for (const OptionRow& option : option_table()) {
            if (option.is_positional()) continue;
            const std::string name(option.name);
            Arguments arguments = {row.command, name};
            if (!option.is_flag()) arguments.push_back("x");
            const bool unknown = refusal(arguments).starts_with("die Option " + name + " gibt es bei ");
            EXPECT_EQ(!unknown, (row.options + ' ').find(name + ' ') != std::string::npos)
                << row.command << " " << name;
        }
}

TEST(Options, HelpNamesAnArgumentOnceAndAnOptionWithItsValue) {
    const std::string help = parse({"sample", "--help"}).text;
    EXPECT_NE(help.find("\nArgumente:\n  DATEI  "), std::string::npos) << help;
    EXPECT_EQ(help.find("DATEI DATEI"), std::string::npos) << help;
    EXPECT_NE(help.find("\n  --seed ZAHL  "), std::string::npos) << help;
    EXPECT_NE(help.find("\n  --overwrite  "), std::string::npos) << help;
}

TEST(Options, ADeletionTakesAFolderButDoesNotOfferIt) {
    EXPECT_EQ(parse({"delete", "--help"}).text.find("--out"), std::string::npos);
    EXPECT_NE(parse({"run", "--help"}).text.find("--out ORDNER"), std::string::npos);
    EXPECT_EQ(parse({"delete", "--db", "x", "--section", "15", "--out", ""}).csv.folder, "");
}

TEST(Options, TheNullDayIsNoBoundOfAnExport) {
    EXPECT_TRUE(parse({"export", "--db", "x", "--section", "15", "--to", "30.12.1899"}).request.to.is_null());
    EXPECT_EQ(parse({"delete", "--db", "x", "--section", "15", "--to", "31.12.2015"}).request.to,
              to_date(CivilTime{2015, 12, 31}));
}

TEST(Options, ShowsTheVersion) { EXPECT_EQ(parse({"--version"}).text, "protcsv " PROT_VERSION "\n"); }

/// All help texts: the program's own and one for each command.
std::vector<std::string> help_texts() {
    std::vector<std::string> texts = {parse({"--help"}).text};
    for (const CommandRow& row : command_table()) texts.push_back(parse({std::string(row.name), "-h"}).text);
    return texts;
}

TEST(Options, ShowsHelpWithinEightyColumns) {
    for (const std::string& text : help_texts()) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) EXPECT_LE(decode_utf8(line).size(), 80u) << line;
    }
}

TEST(Options, ShowsNoTwoEmptyLinesInARowInAnyHelp) {
    for (const std::string& text : help_texts()) EXPECT_EQ(text.find("\n\n\n"), std::string::npos) << text;
}

TEST(Options, ShowsNoEnglishCaptionInAnyHelp) {
    for (const std::string& text : help_texts()) {
        EXPECT_NE(text.find("\n\nAufruf: protcsv "), std::string::npos) << text;
        for (const char* word :
             {"Usage", "OPTION", "Options", "Positional", "Subcommand", "SUBCOMMAND", "REQUIRED", "TEXT ..."})
            EXPECT_EQ(text.find(word), std::string::npos) << word << " in\n" << text;
    }
}

TEST(Options, NamesInTheUsageLineWhatMustBeGivenAndNothingElse) {
    for (const CommandRow& command : command_table()) {
        const std::string help = parse({std::string(command.name), "--help"}).text;
        const std::size_t start = help.find("\nAufruf: ") + 1;
        const std::string usage = help.substr(start, help.find('\n', start) - start) + ' ';
        for (const OptionRow& option : option_table()) {
            if ((option.commands & set_of(command.command)) == 0) continue;
            const bool named = usage.find(' ' + std::string(option.name) + ' ') != std::string::npos;
            EXPECT_EQ(named, (option.required & set_of(command.command)) != 0) << usage << option.name;
        }
    }
}

TEST(Options, ShowsAnExampleForEveryCommand) {
    for (const CommandRow& row : command_table())
        EXPECT_TRUE(std::regex_search(parse({std::string(row.name), "--help"}).text,
                                      std::regex("\nBeispiele?:\n  [^\n]*protcsv " + std::string(row.name))))
            << row.name;
}

TEST(Options, ShowsTheHelpOfACommandBeforeWhatIsMissing) {
    EXPECT_EQ(parse({"sections", "--help"}).text,
              "Zeigt die Bereiche, die es gibt\n\n"
              "Aufruf: protcsv sections\n\n"
              "Allgemein:\n"
              "  -h,--help             zeigt diese Hilfe\n\n"
              "Beispiel:\n"
              "  protcsv sections\n");
    EXPECT_EQ(parse({"export", "--help"}).command, Command::show_text);
}

}  // namespace
}  // namespace prot
