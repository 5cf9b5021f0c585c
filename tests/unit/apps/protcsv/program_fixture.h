#pragma once

#include <filesystem>
#include <regex>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "apps/protcsv/program.h"
#include "apps/protcsv/sample/sample_database.h"
#include "core/section_table.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot::test {

/// Sections whose exporters each do one thing that a run may do; see scripted_sections.cpp.
SectionTable scripted_sections();

/// Refuses every byte.
class FullBuffer : public std::streambuf {};

/// Runs the whole program in this process, with streams of text and a folder of its own.
class ProgramTest : public testing::Test {
protected:
    /// As the system writes paths.
    std::string path(const std::string& name) const {
        return path_text(text_path(folder_.text(name)).make_preferred());
    }

    /// The path of a database; made at the first call.
    std::string database() const {
        const std::string file = path("x.db");
        if (!std::filesystem::exists(text_path(file))) write_sample_database(file, {});
        return file;
    }

    int run(std::vector<std::string> arguments) {
        std::istringstream in(input);
        std::ostringstream out, err;
        const Console console{in, out, err, in_is_terminal, err_is_terminal, false, err_is_dumb};
        const int status = run_program(arguments, console, sections);
        output = out.str();
        errors = err.str();
        take_closing_line();
        return status;
    }

    /// Runs a scripted section on the database, with the arguments that follow.
    int run_section(const std::string& command, const std::string& section,
                    std::vector<std::string> more = {}) {
        more.insert(more.begin(), {command, "--db", database(), "--section", section});
        return run(more);
    }

    std::string read(const std::string& name) const { return content_of(text_path(path(name))); }

    void write(const std::string& name, const std::string& text) const {
        write_file(text_path(path(name)), text);
    }

    std::size_t files() const { return folder_.entries(); }

    SectionTable sections = scripted_sections();
    std::string input;
    bool in_is_terminal = false;
    bool err_is_terminal = false;
    bool err_is_dumb = false;
    std::string output;   ///< standard output of the last run
    std::string errors;   ///< standard error of the last run, but for its closing line
    std::string closing;  ///< the line that says what was read and written, $TIME for its time; empty: none

private:
    void take_closing_line() {
        static const std::regex line("([^\\r\\n]* gelesen, [^\\n]*, )[0-9 ]+,[0-9] s\\n$");
        std::smatch match;
        closing.clear();
        if (!std::regex_search(errors, match, line)) return;
        closing = match[1].str() + "$TIME";
        errors.erase(static_cast<std::size_t>(match.position(1)));
    }

    const TemporaryFolder folder_;
};

}  // namespace prot::test
