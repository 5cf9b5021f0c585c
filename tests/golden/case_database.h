#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>

namespace prot::test {

/// The SQL that makes a case's database: schema.sql, then the file that database.txt names, if any, then
/// input.sql, if any. Nothing when the case has neither: it runs on the sample database. cases: the folder of
/// all cases; name: of one.
inline std::optional<std::string> case_database(const std::filesystem::path& cases, const std::string& name) {
    const auto read = [](const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    std::string shared = read(cases / name / "database.txt");
    shared.erase(shared.find_last_not_of('\n') + 1);
    const bool own = std::filesystem::exists(cases / name / "input.sql");
    if (shared.empty() && !own) return std::nullopt;
    return read(cases / "schema.sql") + (shared.empty() ? "" : read(cases / shared)) +
           (own ? read(cases / name / "input.sql") : "");
}

}  // namespace prot::test
