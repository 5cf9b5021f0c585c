#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "apps/protcsv/sample/sample_database.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {

/// Something that a sample database must show.
struct Feature {
    const char* sql;  ///< counts what must be there
    const char* why;
};

/// Sample databases in a folder of one test's own, removed at its end.
class SampleFixture : public testing::Test {
protected:
    std::string write(const std::string& name, const SampleOptions& options) {
        const std::string path = folder_.text(name);
        write_sample_database(path, options);
        return path;
    }

    /// The first column of the rows, NULL as the empty text.
    std::vector<std::string> column(const std::string& path, const std::string& sql) {
        sqlite3* connection = nullptr;
        EXPECT_EQ(sqlite3_open_v2(path.c_str(), &connection, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
        const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> owner(connection, sqlite3_close);
        std::vector<std::string> texts;
        const auto keep = [](void* to, int, char** values, char**) {
            static_cast<std::vector<std::string>*>(to)->push_back(values[0] == nullptr ? "" : values[0]);
            return 0;
        };
        EXPECT_EQ(sqlite3_exec(connection, sql.c_str(), keep, &texts, nullptr), SQLITE_OK) << sql;
        return texts;
    }

    int number(const std::string& path, const std::string& sql) { return std::stoi(column(path, sql).at(0)); }

    std::vector<std::string> columns_of(const std::string& path, const std::string& table) {
        return column(path, "SELECT name FROM pragma_table_info('" + table + "')");
    }

    /// section: whose changes alone are logged; without it, those of all.
    void expect_whatever_the_seed(std::optional<std::int32_t> section, std::span<const Feature> features) {
        for (const std::uint64_t seed : {1U, 2U, 3U, 4U, 5U, 99U}) {
            const std::string path = write(std::to_string(seed) + ".db", {seed, {}, section});
            for (const Feature& feature : features)
                EXPECT_GT(number(path, feature.sql), 0) << feature.why << ", " << seed;
        }
    }

    const TemporaryFolder folder_;
};

}  // namespace prot
