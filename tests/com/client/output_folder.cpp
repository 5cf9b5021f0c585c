#include "tests/com/client/output_folder.h"

#include <windows.h>

#include <fstream>
#include <iterator>

#include "platform/windows/system/system_names.h"
#include "platform/windows/text/wide_text.h"

namespace prot::test {

namespace {
constexpr const wchar_t* variable = L"PROTCSV_AUSGABE";

void set_variable(const std::wstring& text) {
    SetEnvironmentVariableW(variable, text.empty() ? nullptr : text.c_str());
}
}  // namespace

OutputFolder::OutputFolder() : before_(environment_text("PROTCSV_AUSGABE")) {
    static int number = 0;
    const std::wstring name =
        L"prot_com_client_" + std::to_wstring(GetCurrentProcessId()) + L"_" + std::to_wstring(++number);
    path_ = std::filesystem::temp_directory_path() / name;
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
    set_variable(path_.wstring());
}

OutputFolder::~OutputFolder() {
    set_variable(to_wide(before_));
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::vector<std::string> OutputFolder::files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
        names.push_back(to_utf8(entry.path().filename().wstring()));
    return names;
}

std::string OutputFolder::only_file() const {
    const std::vector<std::string> names = files();
    if (names.size() != 1) return "There are " + std::to_string(names.size()) + " files.";
    std::ifstream file(path_ / to_wide(names[0]), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void OutputFolder::remove_files() {
    for (const std::string& name : files()) std::filesystem::remove(path_ / to_wide(name));
}

}  // namespace prot::test
