#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <system_error>

#include "platform/portable/files/paths.h"

namespace prot {

/// A folder of the running test's own, removed at its end.
class TemporaryFolder {
public:
    TemporaryFolder() {
        const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
        const std::string name = std::string(test.test_suite_name()) + "-" + test.name();
        // Tests run at the same time, also the same one from several builds.
        path_ = std::filesystem::temp_directory_path() /
                ("prot-" + std::to_string(std::random_device()()) + "-" + name_of_file(name));
        std::filesystem::create_directories(path_);
        // Whatever the umask: a test may look at it with another user's rights.
        using std::filesystem::perms;
        std::filesystem::permissions(path_, perms::owner_all | perms::group_read | perms::group_exec |
                                                perms::others_read | perms::others_exec);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }
    /// The path of `name` in it, as UTF-8.
    std::string text(const std::string& name) const { return path_text(path_ / text_path(name)); }

    /// How many files and folders lie in it.
    std::size_t entries() const {
        const std::filesystem::directory_iterator all(path_);
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }

private:
    // A parameter's test has a slash in its name.
    static std::string name_of_file(std::string name) {
        std::ranges::replace(name, '/', '-');
        return name;
    }

    std::filesystem::path path_;
};

inline std::string content_of(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    EXPECT_TRUE(stream) << file;
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

inline void write_file(const std::filesystem::path& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
}

}  // namespace prot
