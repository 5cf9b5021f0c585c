#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "apps/protcsv/program.h"
#include "apps/protcsv/sample_database.h"
#include "core/section_table.h"

#include <unistd.h>

namespace prot::test {

/// Sections whose exporters each do one thing that a run may do; see scripted_sections.cpp.
SectionTable scripted_sections();

/// Runs the whole program in this process, with streams of text and a folder of its own.
class ProgramTest : public testing::Test {
protected:
    ProgramTest() { std::filesystem::create_directories(folder_); }
    ~ProgramTest() override { std::filesystem::remove_all(folder_); }

    std::string path(const std::string& name) const { return (folder_ / name).string(); }

    /// The path of a database; made at the first call.
    std::string database() const {
        const std::string file = path("x.db");
        if (!std::filesystem::exists(file)) write_sample_database(file, {});
        return file;
    }

    int run(std::vector<std::string> arguments) {
        std::istringstream in(input);
        std::ostringstream out, err;
        const Console console{in, out, err, in_is_terminal, err_is_terminal};
        const int status = run_program(arguments, console, scripted_sections());
        output = out.str();
        errors = err.str();
        return status;
    }

    /// Runs a scripted section on the database, with the arguments that follow.
    int run_section(const std::string& command, const std::string& section,
                    std::vector<std::string> more = {}) {
        more.insert(more.begin(), {command, "--db", database(), "--section", section});
        return run(more);
    }

    std::string read(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    void write(const std::string& name, const std::string& text) const { std::ofstream(path(name)) << text; }

    std::size_t files() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder_), {}));
    }

    std::string input;
    bool in_is_terminal = false;
    bool err_is_terminal = false;
    std::string output;  ///< standard output of the last run
    std::string errors;  ///< standard error of the last run

private:
    const std::filesystem::path folder_ = std::filesystem::temp_directory_path() /
                                          ("protcsv_" + std::to_string(getpid()) + "_" +
                                           testing::UnitTest::GetInstance()->current_test_info()->name());
};

}  // namespace prot::test
