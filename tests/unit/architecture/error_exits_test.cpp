#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include "tests/unit/support/temporary_folder.h"

/// A problem report names the procedures that an error went through. People search for those names, so an
/// error exit bears the name of the function that it ends.
namespace {

namespace fs = std::filesystem;

struct ErrorExit {
    std::string function;   ///< with its class, as it is defined
    std::string procedure;  ///< what the exit calls it
    std::string place;      ///< file and line
};

/// The exits of one source: where a function begins in the first column, its name stands before the first
/// parenthesis.
void collect(const fs::path& source, std::vector<ErrorExit>& exits) {
    static const std::regex definition(R"(^[A-Za-z][^(=;]*?([\w~]+(::[\w~]+)*)\()");
    static const std::regex error_exit(R"re(\b(?:leave|fail|show_and_end)\((?:.*, )?"(\w+)"\))re");
    std::ifstream file(source);
    std::string function;
    int number = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        std::smatch match;
        if (std::regex_search(line, match, definition)) function = match[1];
        if (std::regex_search(line, match, error_exit))
            exits.push_back({function, match[1], source.string() + ":" + std::to_string(number)});
    }
}

std::vector<ErrorExit> all_exits() {
    std::vector<ErrorExit> exits;
    for (const char* top : {"core", "sections"})
        for (const auto& entry : fs::recursive_directory_iterator(fs::path(PROT_SOURCE_DIR) / top))
            if (entry.path().extension() == ".cpp") collect(entry.path(), exits);
    return exits;
}

struct Exception {
    const char *function, *procedure, *reason;
};
constexpr Exception exceptions[] = {
    {"ProtCsvClass::gCSVAusgabe", "gCSVFile", "scripts of the suite look for this name in the chain"},
    {"RateLines::mGetKursGueltigAb", "mGetWaehrInfos", "both lookups of a rate have always reported as one"},
};

bool is_exception(const ErrorExit& exit, const Exception& exception) {
    return exit.function == exception.function && exit.procedure == exception.procedure;
}

std::string last_name(const std::string& function) {
    const std::size_t colons = function.rfind("::");
    return colons == std::string::npos ? function : function.substr(colons + 2);
}

TEST(ErrorExits, BearTheNameOfTheirProcedure) {
    const std::vector<ErrorExit> exits = all_exits();
    EXPECT_GT(exits.size(), 30U) << "the exits were not found";
    for (const ErrorExit& exit : exits) {
        const bool excepted =
            std::ranges::any_of(exceptions, [&](const Exception& row) { return is_exception(exit, row); });
        EXPECT_TRUE(excepted || last_name(exit.function) == exit.procedure)
            << exit.place << ": " << exit.function << " leaves as " << exit.procedure;
    }
}

TEST(ErrorExits, HaveNoExceptionThatIsNotNeeded) {
    const std::vector<ErrorExit> exits = all_exits();
    for (const Exception& row : exceptions)
        EXPECT_TRUE(
            std::ranges::any_of(exits, [&](const ErrorExit& exit) { return is_exception(exit, row); }))
            << row.function << ": " << row.reason;
}

TEST(ErrorExits, AreFoundWhereverTheyStand) {
    const prot::TemporaryFolder folder;
    const fs::path source = folder / "source.cpp";
    std::ofstream(source)
        << "std::string Form::first(int a,\n                  int b) try {\n} catch (...) {\n"
           "    leave(owner, \"first\");\n}\nvoid second() try {\n    if (x()) y();\n} catch (...) {\n"
           "    fail(\"third\");\n}\nvoid Class::fourth() try {\n} catch (...) {\n"
           "    show_and_end(environment_, owner_, \"fourth\");\n}\n";
    std::vector<ErrorExit> exits;
    collect(source, exits);
    ASSERT_EQ(exits.size(), 3U);
    EXPECT_EQ(exits[0].function + " " + exits[0].procedure, "Form::first first");
    EXPECT_EQ(exits[1].function + " " + exits[1].procedure, "second third");
    EXPECT_EQ(exits[2].function + " " + exits[2].procedure, "Class::fourth fourth");
}

}  // namespace
