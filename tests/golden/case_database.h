#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace prot::test {

/// What a case's database is made from.
struct CaseDatabase {
    std::string sql;             ///< its statements; empty: it is a sample database ...
    std::string sample_section;  ///< ... with the log of the section of this number alone
};

/// The database of a case: schema.sql, then the file that database.txt names, if any, then input.sql, if any;
/// or the sample database that database.txt asks for by "sample NUMBER". cases: the folder of all cases;
/// name: of one.
inline CaseDatabase case_database(const std::filesystem::path& cases, const std::string& name) {
    const auto read = [](const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    std::string shared = read(cases / name / "database.txt");
    shared.erase(shared.find_last_not_of('\n') + 1);
    const bool own = std::filesystem::exists(cases / name / "input.sql");
    if (shared.empty() && !own) throw std::runtime_error("case " + name + " has no database");
    constexpr std::string_view sample = "sample ";
    if (shared.starts_with(sample)) return {{}, shared.substr(sample.size())};
    return {read(cases / "schema.sql") + (shared.empty() ? "" : read(cases / shared)) +
                (own ? read(cases / name / "input.sql") : ""),
            {}};
}

/// A new database of these statements.
inline void make_database(const std::filesystem::path& path, const std::string& sql) {
    sqlite3* raw = nullptr;
    const int opened = sqlite3_open(path.c_str(), &raw);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(raw, sqlite3_close);
    if (opened != SQLITE_OK || sqlite3_exec(raw, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(raw));
}

}  // namespace prot::test
