#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/automation/date.h"
#include "platform/environment.h"

/// The name of a CSV file as a person gives it.
namespace prot {

/// What stands for the words between braces in a name.
struct OutputFacts {
    std::string_view section;  ///< name on the command line
    std::string client;
    CivilTime now;
};

/// `pattern` with the facts for {section}, {client}, {date} (YYYYMMDD) and {time} (HHMMSS). Raises UsageError
/// for any other word between braces.
std::string output_name(std::string_view pattern, const OutputFacts& facts);

/// Raises what output_name would.
void require_output_pattern(std::string_view pattern);

bool asks_for_client(std::string_view pattern);

/// The number of the client that an unattended run of these parameters is about, with a k before that of an
/// office; "alle" when they name none.
std::string client_of(std::string_view parameters, Environment& environment);

/// `name` with .csv where it has no ending. An ending holds a letter, so that a date is none; a device, a
/// pipe and a folder keep their name. folder: where a relative name lies.
std::string with_csv_ending(const std::string& name, const std::filesystem::path& folder);

}  // namespace prot
