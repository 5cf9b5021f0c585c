#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace prot::test {

/// The program that the cases run, as a shell reads it: PROT_PROGRAM_COMMAND, else the one of this build. The
/// command may start a program of Windows; the cases expect the same bytes of it.
inline std::string program_command() {
    const char* const command = std::getenv("PROT_PROGRAM_COMMAND");
    return command == nullptr ? PROT_PROGRAM : command;
}

/// The whole of a file; empty when there is none.
std::string read(const std::filesystem::path& path);

/// `text` with the paths of the files in `folder`, which the program names, as this system writes them.
inline std::string with_own_paths(std::string text, const std::string& folder) {
    const std::string written = folder + "\\";
    for (std::size_t at = 0; (at = text.find(written, at)) != std::string::npos;)
        text.replace(at, written.size(), folder + "/");
    return text;
}

/// Runs a bash script in a folder of its own, which goes afterwards. Empty when all went well, else what it
/// wrote to standard output and standard error. PROGRAM and SOURCE stand for the program's command and the
/// root of the sources.
std::string problems_of_script(std::string script);

}  // namespace prot::test
