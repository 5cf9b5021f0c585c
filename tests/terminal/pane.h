#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>

namespace prot::test {

/// A terminal of tmux, on a server of its own, and a folder of its own with the sample database in it
/// (beispiel.db). Whatever is waited for has twenty seconds to come.
class Pane {
public:
    Pane(int columns, int rows);
    ~Pane();
    Pane(const Pane&) = delete;
    Pane& operator=(const Pane&) = delete;

    /// Runs the program in the pane. Standard output goes to the file stdout.txt. `environment` stands before
    /// the command; without it the terminal is of type screen-256color and speaks UTF-8.
    void start(const std::string& arguments, const std::string& environment = "");

    /// Keys by the names that tmux gives them, other texts as they are.
    void press(std::initializer_list<std::string> keys) const;
    void resize(int columns, int rows) const;

    /// Waits until the pane shows what the file of that name in screens/ holds: the lines, without blanks at
    /// their ends, and the place of the cursor. The environment variable PROT_UPDATE_SCREENS rewrites the
    /// file with what the pane comes to show.
    void expect_screen(const std::string& name) const;
    /// Waits until the text is on view.
    void expect_text(const std::string& text) const;
    /// What is on view now, and the place of the cursor. The name of the folder, which is another every time,
    /// ends with "XXXXXX".
    std::string screen() const;

    /// Waits for the end of the program, after which the terminal must be as it was before. Its exit status;
    /// -1 when it did not end.
    int exit_status() const;
    /// The program's process; waits for it to have begun.
    int process() const;

    /// The file that an export of that section writes with these answers (in the notation of printf), and no
    /// terminal.
    std::string exported_by_answers(const std::string& section, const std::string& answers) const;

    std::filesystem::path path(const std::string& name) const { return folder_ / name; }
    std::string read(const std::string& name) const;

private:
    std::string tmux(const std::string& command) const;
    std::string settled_screen() const;

    std::filesystem::path folder_;
};

/// The whole of a file; empty when there is none.
std::string read_file(const std::filesystem::path& path);

/// What a shell command writes to its standard output.
std::string output_of(const std::string& command);

}  // namespace prot::test
