#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "tests/documents/example_table.h"
#include "tests/documents/printed.h"
#include "tests/unit/support/temporary_folder.h"

/// Every example in README, handbook and help, run as printed.
namespace prot::test {

void PrintTo(const Example& example, std::ostream* stream);
void PrintTo(const Example& example, std::ostream* stream) { *stream << example.name; }

namespace {

namespace fs = std::filesystem;

std::vector<std::string> texts_named(std::string_view name) {
    std::set<std::string> texts;
    for (const Printed& printed : all_printed())
        if (printed.name == name) texts.insert(printed.text);
    return {texts.begin(), texts.end()};
}

class Examples : public testing::TestWithParam<Example> {
protected:
    /// The example in a folder of its own, and what it left behind; empty where all is as it should be.
    static std::string faults_of(const Example& example, const std::string& text) {
        const TemporaryFolder folder;
        fs::create_directory(folder / "work");
        const std::regex absolute("(^|[ \"=@])/srv/");
        const std::string run =
            std::regex_replace(example.in_its_place.empty() ? text : std::string(example.in_its_place),
                               absolute, "$1" + folder.text("srv") + "/");
        write_file(folder / "text", std::regex_replace(text, absolute, "$1" + folder.text("srv") + "/"));
        write_file(folder / "run", run);
        write_file(folder / "script", script(example, folder));
        const std::string command =
            "bash '" + folder.text("script") + "' >'" + folder.text("faults") + "' 2>&1 </dev/null";
        if (std::system(command.c_str()) == 0) return {};
        std::string faults = "nicht wie versprochen:\n";
        for (const char* const file : {"faults", "out", "err", "typescript"})
            if (fs::exists(folder / file))
                faults += std::string(file) + ": " + content_of(folder / file) + '\n';
        return faults;
    }

private:
    static std::string script(const Example& example, const TemporaryFolder& folder) {
        const std::string program = fs::path(PROT_PROGRAM).parent_path().string();
        return "cd '" + folder.text("work") + "'; PATH='" + program + "':$PATH; SRV='" + folder.text("srv") +
               "'; SOURCES='" PROT_SOURCE_DIR "'; text=$(cat ../text)\n" + std::string(example_functions) +
               "protcsv sample firma.db >../out\nset -e\n" + std::string(example.before) + "\nset +e\n" +
               call(example) + "\nstatus=$?\n[ $status = " + std::to_string(example.status) +
               " ] || fail \"Rückgabewert $status\"\nset -e\n" + std::string(example.promise) + '\n';
    }

    /// Without an answer, in this very shell, so that what it defines can be looked at.
    static std::string call(const Example& example) {
        if (example.answers.empty()) return "source ../run >../out 2>../err";
        return "export PATH TERM=dumb; printf '" + std::string(example.answers) +
               "' | script --quiet --return --command 'bash ../run >../out' ../typescript >/dev/null";
    }
};

TEST_P(Examples, DoWhatTheSentenceBesideThemSays) {
    const std::vector<std::string> texts = texts_named(GetParam().name);
    EXPECT_FALSE(texts.empty()) << "no document prints this: " << GetParam().name;
    for (const std::string& text : texts) {
        const std::string faults = faults_of(GetParam(), text);
        EXPECT_TRUE(faults.empty()) << text << faults;
    }
}

INSTANTIATE_TEST_SUITE_P(Documents, Examples,
                         testing::ValuesIn(example_table().begin(), example_table().end()));

TEST(Documents, PrintNoExampleThatIsNotRun) {
    const std::vector<Printed> all = all_printed();
    EXPECT_GT(all.size(), 30u);
    for (const Printed& printed : all)
        EXPECT_TRUE(std::ranges::any_of(example_table(),
                                        [&](const Example& row) { return row.name == printed.name; }))
            << printed.document << " prints an example without a row in example_table.cpp: " << printed.name;
}

TEST(Documents, AreReadForTheirExamples) {
    const std::vector<Printed> blocks = printed_blocks(
        "x",
        "Text\n\n    protcsv a   b  # c\n    protcsv d \\\n        e\n\n    more\nText\n\n    [x]\n\n    y\n",
        4);
    ASSERT_EQ(blocks.size(), 4u);
    EXPECT_EQ(blocks[0].name, "protcsv a b");
    EXPECT_EQ(blocks[1].name, "protcsv d e");
    EXPECT_EQ(blocks[1].text, "protcsv d \\\n    e\n");
    EXPECT_EQ(blocks[3].text, "[x]\n\ny\n");
    const std::vector<Printed> spans =
        printed_between("x", "`protcsv a`, `/b:c/d`, `/etc/file`, `--e`, `/autostart/f`");
    ASSERT_EQ(spans.size(), 3u);
    EXPECT_EQ(spans[2].text, "/autostart/f");
}

}  // namespace
}  // namespace prot::test
