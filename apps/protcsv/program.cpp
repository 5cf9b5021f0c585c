#include "apps/protcsv/program.h"

#include <ostream>
#include <vector>

#include "apps/protcsv/commands.h"
#include "apps/protcsv/console/interruption.h"
#include "apps/protcsv/console/process.h"
#include "apps/protcsv/database/database_address.h"
#include "apps/protcsv/options/options.h"
#include "apps/protcsv/options/usage_error.h"
#include "apps/protcsv/shell/completion.h"
#include "apps/protcsv/shell/manual_page.h"
#include "platform/automation/error.h"
#include "platform/portable/time/system_clock.h"
#include "sections/section_table.h"

namespace prot {

namespace {

int dispatch(const Options& options, const Console& console, SectionTable sections) {
    switch (options.command) {
        case Command::show_text:
            return print(console, options.text);
        case Command::sections:
            return print_sections(console, sections);
        case Command::sample:
            return write_sample(options, console);
        case Command::completion:
            return print(console, completion_script(options.shell, sections));
        case Command::manual:
            return print(console, manual_page(sections));
        case Command::export_log:
            return run_sections(options, console, sections);
        case Command::delete_log:
        case Command::run:
            return run_log(options, console, sections);
    }
    return exit_usage;
}

}  // namespace

int run_program(std::span<const std::string> arguments, const Console& console, SectionTable sections) {
    if (arguments.empty()) {
        console.err << short_help() << std::flush;
        return exit_usage;
    }
    try {
        const OptionContext context{sections, to_date(SystemClock().now()), console.database};
        return dispatch(parse_options(arguments, context), console, sections);
    } catch (...) {
        return tell_failure(console);
    }
}

int run_program(int argument_count, char** arguments) {
    handle_interruptions();
    Console console = standard_console();
    console.database = take_from_environment(std::string(database_variable));
    return run_program(process_arguments(argument_count, arguments), console, section_table());
}

}  // namespace prot
