#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "apps/protcsv/program.h"
#include "apps/protcsv/sample/sample_database.h"
#include "tests/com/record/recording_sections.h"
#include "tests/golden/case_database.h"

/// Records a run for clients that have no database. Usage: record_run FOLDER CASE [ARGUMENT...]
/// Runs the golden case CASE, with other arguments when some are given ($DB and $OUT as in command.txt), and
/// with its answers, and writes recording.txt to FOLDER, and when the run wrote a file, expected.csv and its
/// name in name.txt. That file must be the golden one, byte for byte, unless the case has none.
namespace {

namespace fs = std::filesystem;
using namespace prot;

const fs::path cases_folder = fs::path(PROT_SOURCE_DIR) / "tests" / "golden";

std::string read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(file), {}};
}

void make_database(const fs::path& path, const std::string& name) {
    const test::CaseDatabase made_from = test::case_database(cases_folder, name);
    if (!made_from.sample_section.empty())
        return write_sample_database(path.string(), {.section = std::stoi(made_from.sample_section)});
    test::make_database(path, made_from.sql);
}

/// The arguments of command.txt, where double quotes hold blanks together.
std::vector<std::string> arguments_of(const std::string& command) {
    std::vector<std::string> arguments;
    bool quoted = false, within = false;
    for (const char letter : command) {
        if (letter == '"') quoted = !quoted;
        const bool blank = !quoted && (letter == ' ' || letter == '\n');
        if (!blank && !within) arguments.emplace_back();
        within = !blank;
        if (within && letter != '"') arguments.back() += letter;
    }
    return arguments;
}

int run(const fs::path& folder, const fs::path& golden, std::vector<std::string> arguments) {
    fs::create_directories(folder / "out");
    fs::current_path(folder);  // a relative database name is what the files call the server
    fs::remove("log.db");
    make_database("log.db", golden.filename().string());
    if (arguments.empty()) arguments = arguments_of(read(golden / "command.txt"));
    for (std::string& argument : arguments) {
        if (argument == "$DB") argument = "log.db";
        if (argument == "$OUT") argument = "out";
    }

    recording::RecordingWriter writer;
    const fs::path answers = golden / "answers.txt";
    std::istringstream in(fs::exists(answers) ? read(answers) : std::string());
    std::ostringstream out, err;
    run_program(arguments, {in, out, err}, recording::recording_sections(writer));
    writer.save("recording.txt");
    if (!fs::exists("recording.txt") || fs::file_size("recording.txt") < 100)
        throw std::runtime_error("the run asked for nothing: " + err.str());

    std::string file = out.str();
    if (file.empty()) return 0;
    file.erase(file.find_last_not_of('\n') + 1);
    if (fs::exists(golden / "expected.csv") && read(file) != read(golden / "expected.csv"))
        throw std::runtime_error(file + " differs from the golden file of " + golden.string());
    std::ofstream("name.txt") << fs::path(file).filename().string() << '\n';
    fs::rename(file, "expected.csv");
    return 0;
}

}  // namespace

int main(int argument_count, char** arguments) try {
    const std::vector<std::string> texts(arguments + 1, arguments + argument_count);
    if (texts.size() < 2) throw std::runtime_error("usage: record_run FOLDER CASE [ARGUMENT...]");
    return run(fs::absolute(texts[0]), cases_folder / texts[1], {texts.begin() + 2, texts.end()});
} catch (const std::exception& error) {
    std::cerr << "record_run: " << error.what() << '\n';
    return 1;
}
