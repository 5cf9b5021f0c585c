#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

/// The finished Linux program as users get it: hardened, no path of the machine that built it, its debug
/// information in a file beside it.
namespace {

using testing::AnyOf;
using testing::ContainsRegex;
using testing::Each;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

const std::string program = PROT_PROGRAM;
const std::string debug_file = program + ".debug";

std::string output_of(const std::string& command) {
    std::string output;
    FILE* const pipe = popen(command.c_str(), "r");
    for (int character; (character = std::getc(pipe)) != EOF;) output += static_cast<char>(character);
    EXPECT_EQ(pclose(pipe), 0) << command;
    return output;
}

std::string readelf(const std::string& options, const std::string& file) {
    return output_of("LC_ALL=C readelf --wide " + options + " '" + file + "'");
}

std::vector<std::string> lines_with(const std::string& mark, const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        if (line.find(mark) != std::string::npos) lines.push_back(line);
    return lines;
}

std::string build_id(const std::string& file) {
    const auto lines = lines_with("Build ID:", readelf("--notes", file));
    return lines.empty() ? "none in " + file : lines[0];
}

bool holds(const std::string& file, const std::string& text) {
    std::string bytes(std::filesystem::file_size(file), '\0');
    std::ifstream(file, std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes.find(text) != std::string::npos;
}

TEST(LinuxProgram, RunsAtAnyAddress) {
    EXPECT_THAT(readelf("--file-header", program), ContainsRegex("Type: +DYN"));
    EXPECT_THAT(readelf("--dynamic", program), ContainsRegex("Flags: .*PIE"));
}

TEST(LinuxProgram, ProtectsItsTablesOfAddressesBeforeItRuns) {
    EXPECT_THAT(readelf("--program-headers", program), HasSubstr("GNU_RELRO"));
    EXPECT_THAT(readelf("--dynamic", program), HasSubstr("BIND_NOW"));
}

TEST(LinuxProgram, ExecutesNothingThatItCanWrite) {
    const std::string headers = readelf("--program-headers", program);
    EXPECT_THAT(lines_with("GNU_STACK", headers), Each(Not(HasSubstr(" RWE "))));
    EXPECT_THAT(lines_with("GNU_STACK", headers), SizeIs(1));
    EXPECT_THAT(lines_with("LOAD ", headers), Each(Not(HasSubstr("RWE"))));
}

TEST(LinuxProgram, EveryFileOfItIsCompiledHardened) {
    const auto units = lines_with("DW_AT_producer", readelf("--debug-dump=info --dwarf-depth=1", debug_file));
    EXPECT_GT(units.size(), 100u);
    for (const char* option : {"-O2", "-fPIE", "-fstack-protector-strong", "-fstack-clash-protection"})
        EXPECT_THAT(units, Each(HasSubstr(option)));
#ifdef __x86_64__
    EXPECT_THAT(units, Each(HasSubstr("-fcf-protection")));
#endif
}

TEST(LinuxProgram, EveryFileOfItHasTheLengthsOfItsBuffersChecked) {
    const std::string commands = output_of("cat '" PROT_BINARY_DIR "/compile_commands.json'");
    std::vector<std::string> product;
    for (const char* folder : {"apps", "core", "platform", "sections"})
        std::ranges::copy(lines_with(std::string(" -c " PROT_SOURCE_DIR "/") + folder + "/", commands),
                          std::back_inserter(product));
    // The driver that plays a SQL Server compiles some of them for itself.
    std::erase_if(product, [](const std::string& command) {
        return command.find("/protodbcdouble.dir/") != std::string::npos;
    });
    EXPECT_GT(product.size(), 100u);
    EXPECT_THAT(product, Each(HasSubstr("-D_FORTIFY_SOURCE=3")));
    const std::string symbols = readelf("--dyn-syms", program);
    EXPECT_THAT(symbols, HasSubstr("__snprintf_chk"));
    EXPECT_THAT(symbols, Not(HasSubstr(" snprintf@")));
}

#ifdef __x86_64__
TEST(LinuxProgram, IsMarkedAsFitForShadowStacks) {
    EXPECT_THAT(readelf("--notes", program), ContainsRegex("x86 feature: .*SHSTK"));
}
#endif

TEST(LinuxProgram, NamesNoFolderOfTheMachineThatBuiltIt) {
    EXPECT_TRUE(holds(program, ".gnu_debuglink")) << "this test finds what is there";
    for (const std::string& file : {program, debug_file})
        for (const char* folder : {PROT_SOURCE_DIR, PROT_BINARY_DIR})
            EXPECT_FALSE(holds(file, folder)) << file << " names " << folder;
    EXPECT_THAT(readelf("--dynamic", program), Not(AnyOf(HasSubstr("(RPATH)"), HasSubstr("(RUNPATH)"))));
}

TEST(LinuxProgram, KeepsItsDebugInformationInAFileBesideIt) {
    const std::string sections = readelf("--sections", program);
    EXPECT_THAT(sections, Not(AnyOf(HasSubstr(".debug_info"), HasSubstr(".symtab"))));
    EXPECT_THAT(readelf("--string-dump=.gnu_debuglink", program),
                HasSubstr(std::filesystem::path(debug_file).filename().string()));
    EXPECT_THAT(readelf("--sections", debug_file), HasSubstr(".debug_info"));
    EXPECT_EQ(build_id(program), build_id(debug_file));
}

}  // namespace
