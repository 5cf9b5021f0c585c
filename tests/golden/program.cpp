#include "tests/golden/program.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/automation/text_parts.h"

namespace prot::test {

namespace fs = std::filesystem;

std::string read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::string problems_of_script(std::string script) {
    const fs::path work = fs::temp_directory_path() / ("script-" + std::to_string(getpid()));
    fs::create_directories(work);
    script = replaced(replaced(std::move(script), "PROGRAM", program_command()), "SOURCE", PROT_SOURCE_DIR);
    std::ofstream(work / "script") << "set -e; cd '" << work.string() << "'; " << script;
    const std::string output = (work / "output").string();
    const int status =
        std::system(("bash '" + (work / "script").string() + "' >'" + output + "' 2>&1").c_str());
    const std::string problems =
        status == 0 ? std::string() : "status " + std::to_string(status) + "\n" + read(output);
    fs::remove_all(work);
    return problems;
}

}  // namespace prot::test
