#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace prot {

/// A folder of the running test's own, removed at its end.
class TemporaryFolder {
public:
    TemporaryFolder() {
        const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
        path_ = std::filesystem::temp_directory_path() /
                ("prot-" + std::to_string(::getpid()) + "-" + test.test_suite_name() + "-" + test.name());
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }

    /// How many files and folders lie in it.
    std::size_t entries() const {
        const std::filesystem::directory_iterator all(path_);
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }

private:
    std::filesystem::path path_;
};

/// An ordinary user's rights while it lives, when the tests run as root, whom no permission stops.
class OrdinaryUser {
public:
    OrdinaryUser() {
        constexpr uid_t nobody = 65534;
        EXPECT_TRUE(!was_root_ || (::setegid(nobody) == 0 && ::seteuid(nobody) == 0));
    }
    ~OrdinaryUser() {
        EXPECT_TRUE(!was_root_ || (::seteuid(0) == 0 && ::setegid(0) == 0));
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    bool was_root_ = ::geteuid() == 0;
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
