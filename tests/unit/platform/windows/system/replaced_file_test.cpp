#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>
#include <fstream>

#include "platform/windows/system/save_dialog.h"
#include "platform/windows/text/wide_text.h"

namespace prot {
namespace {

namespace fs = std::filesystem;

class ReplacedFile : public testing::Test {
protected:
    ReplacedFile()
        : path_(fs::temp_directory_path() / ("prot_" + std::to_string(GetCurrentProcessId()) + ".csv")) {
        std::ofstream(path_) << "alt";
    }
    ~ReplacedFile() override {
        SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
        std::error_code ignored;
        fs::remove(path_, ignored);
    }
    std::string path() const { return to_utf8(path_.wstring()); }
    std::string reason() const { return reason_not_to_replace(path()); }

    fs::path path_;
};

TEST_F(ReplacedFile, MayBeAnyFileThatNobodyHasOpen) {
    EXPECT_EQ(reason(), "");
    EXPECT_EQ(fs::file_size(path_), 3U) << "asking leaves it whole";
}

TEST_F(ReplacedFile, MayBeMissing) {
    fs::remove(path_);
    EXPECT_EQ(reason(), "");
    EXPECT_FALSE(fs::exists(path_)) << "asking makes none";
}

TEST_F(ReplacedFile, IsOpenInAnotherProgram) {
    for (const DWORD sharing : {0, FILE_SHARE_READ, FILE_SHARE_READ | FILE_SHARE_WRITE}) {
        const HANDLE file =
            CreateFileW(path_.c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(file, INVALID_HANDLE_VALUE);
        EXPECT_NE(reason().find("in einem anderen Programm geöffnet"), std::string::npos) << sharing;
        EXPECT_NE(reason().find("„" + path() + "“"), std::string::npos) << "the path is named";
        CloseHandle(file);
    }
}

TEST_F(ReplacedFile, IsWriteProtected) {
    SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_NE(reason().find("schreibgeschützt"), std::string::npos) << reason();
}

}  // namespace
}  // namespace prot
