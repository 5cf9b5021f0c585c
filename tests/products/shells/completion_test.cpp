#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "tests/products/shells/shell.h"
#include "tests/unit/support/temporary_folder.h"

/// The installed completions in real shells: what a person types, ended by the tab key, and what it becomes.
namespace prot::test {
namespace {

namespace fs = std::filesystem;

const std::string share = PROT_SHARE;

struct ShellCase {
    const char* name;
    std::vector<std::string> command;
    std::string beginning;  ///< typed first
};

void PrintTo(const ShellCase& shell, std::ostream* stream) { *stream << shell.name; }

struct Row {
    const char* typed;
    const char* becomes;  ///< without the blank or slash at its end, which zsh takes back
    const char* why;
};

constexpr Row rows[] = {
    {"protcsv exp", "protcsv export", "a command"},
    {"protcsv help del", "protcsv help delete", "the command behind help"},
    {"protcsv --ver", "protcsv --version", "an option of the program"},
    {"protcsv export --fail", "protcsv export --fail-on-empty", "an option of the command"},
    {"protcsv run --as", "protcsv run --as-is", "an option of this command alone"},
    {"protcsv export --as", "protcsv export --as", "another command's option"},
    {"protcsv export --encoding win", "protcsv export --encoding windows-1252", "a word of a list"},
    {"protcsv export --section cust", "protcsv export --section customers", "a section"},
    {"protcsv export --section customers,supp", "protcsv export --section customers,suppliers",
     "the next section"},
    {"protcsv delete --section cust", "protcsv delete --section customers", "the only section"},
    {"protcsv export --events dele", "protcsv export --events deleted", "an event"},
    {"protcsv export --events created,dele", "protcsv export --events created,deleted", "the next event"},
    {"protcsv export --from ges", "protcsv export --from gestern", "a day by its name"},
    {"protcsv export --db fir", "protcsv export --db firma.db", "a file"},
    {"protcsv run --out Ord", "protcsv run --out Ordner", "a folder, not the file Ordnung.txt"},
    {"protcsv sample fir", "protcsv sample firma.db", "the file that is an argument"},
    {"protcsv completion z", "protcsv completion zsh", "a shell"},
    {"protcsv export --user fir", "protcsv export --user fir", "no file where a name is asked for"},
};

class Completion : public testing::TestWithParam<ShellCase> {
protected:
    Completion() {
        write_file(folder_ / "firma.db", "");
        write_file(folder_ / "Ordnung.txt", "");
        fs::create_directory(folder_ / "Ordner");
    }

    const TemporaryFolder folder_;
};

/// The words between the brackets that the shell prints; the last such line is not what was typed.
std::string bracketed(const std::string& said) {
    static const std::regex line(R"(\n<<([^\r\n]*)>>)");
    std::string found = "nothing in " + said;
    for (std::sregex_iterator at(said.begin(), said.end(), line), end; at != end; ++at)
        found = (*at)[1].str();
    return found;
}

TEST_P(Completion, CompletesCommandsOptionsAndValues) {
    TypedShell shell(GetParam().command, folder_.path().string());
    shell.type(GetParam().beginning + "\n");
    for (const Row& row : rows) {
        shell.type(std::string(row.typed) + '\t');
        // Control-A and Control-E: the beginning and the end of the line, which becomes the argument of a
        // printing.
        const std::string becomes = bracketed(shell.type("\x01printf '\\n<<%s>>\\n' \"\x05\"\n"));
        EXPECT_EQ(std::regex_replace(becomes, std::regex("[ /]+$"), ""), row.becomes) << row.why;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Shells, Completion,
    testing::Values(ShellCase{"bash",
                              {"bash", "--norc", "--noprofile", "-i"},
                              "source '" + share + "/bash-completion/completions/protcsv'"},
                    ShellCase{
                        "zsh",
                        {"zsh", "-f", "-i"},
                        "fpath=('" + share +
                            "/zsh/site-functions' $fpath); autoload -U compinit; compinit -u -D; bindkey -e"},
                    ShellCase{"fish",
                              {"fish", "--private", "--no-config"},
                              "source '" + share + "/fish/vendor_completions.d/protcsv.fish'"}),
    [](const auto& shell) { return shell.param.name; });

}  // namespace
}  // namespace prot::test
