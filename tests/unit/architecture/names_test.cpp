#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>

/// A name is one that the log's own world gives, exactly, or an English one: members in snake_case end in an
/// underscore. There is no third kind between the two.
namespace {

namespace fs = std::filesystem;

/// A name of the log's world with the underscore of a member, such as oXML_ or bLoeschen_.
bool is_between(const std::string& line) {
    static const std::regex pattern(R"(\b(o|b|s|l|d|dt|v|po|ps|pb|ms|ml|md|mv|mby|g|gs|gb)[A-Z]\w*_\b)");
    return std::regex_search(line, pattern);
}

TEST(Names, AreOfOneKindOrTheOther) {
    std::size_t lines = 0;
    for (const char* top : {"core", "sections", "platform", "apps"}) {
        for (const auto& entry : fs::recursive_directory_iterator(fs::path(PROT_SOURCE_DIR) / top)) {
            if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
            std::ifstream file(entry.path());
            for (std::string line; std::getline(file, line); ++lines)
                EXPECT_FALSE(is_between(line)) << entry.path() << ": " << line;
        }
    }
    EXPECT_GT(lines, 10000U) << "the sources were not found";
}

TEST(Names, OfTheThirdKindAreRecognised) {
    for (const char* line :
         {"Database* oDBU_;", "bool bLoeschen_ = false;", "sWhere_.clear();", "poParent_->gRefresh();"})
        EXPECT_TRUE(is_between(line)) << line;
    for (const char* line : {"Database& oDBU;", "bool deleting_;", "Form_Load();", "cmdOK_Click();",
                             "msDBGet_x y_;", "PROT_gGetUserInfo(a);"})
        EXPECT_FALSE(is_between(line)) << line;
}

}  // namespace
