#include "tests/terminal/pane.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <sstream>
#include <system_error>
#include <thread>

#include <gtest/gtest.h>

namespace prot::test {

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::seconds deadline{20};
constexpr std::chrono::milliseconds interval{50};
constexpr int looks_until_settled = 20;

/// Of the same length everywhere, since forms show it; "/tmp" is there on every POSIX system.
constexpr const char* folder_template = "/tmp/protcsv_terminal_XXXXXX";

const fs::path screens = fs::path(PROT_SOURCE_DIR) / "tests" / "terminal" / "screens";

/// Looks again and again until the condition holds. Whether it did in time.
bool comes_true(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(interval);
    }
    return true;
}

std::string quoted(const std::string& text) {
    std::string all = "'";
    for (const char c : text) all += c == '\'' ? "'\\''" : std::string(1, c);
    return all + "'";
}

}  // namespace

std::string read_file(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::string output_of(const std::string& command) {
    std::string output;
    FILE* const pipe = popen(command.c_str(), "r");
    char bytes[4096];
    while (const std::size_t count = std::fread(bytes, 1, sizeof bytes, pipe)) output.append(bytes, count);
    pclose(pipe);
    return output;
}

Pane::Pane(int columns, int rows) {
    std::string folder = folder_template;
    folder_ = mkdtemp(folder.data());
    output_of("cd " + quoted(folder_) + " && " PROT_PROGRAM " sample beispiel.db");
    tmux("new-session -d -x " + std::to_string(columns) + " -y " + std::to_string(rows) +
         " 'env -u LC_ALL -u LC_CTYPE LANG=C.UTF-8 PS1=\"> \" sh'");
}

Pane::~Pane() {
    tmux("kill-server");
    std::error_code ignored;  // a program that hangs may still write there
    fs::remove_all(folder_, ignored);
}

void Pane::start(const std::string& arguments, const std::string& environment) {
    std::ofstream(path("run.sh")) << "stty -a > before.txt\n"
                                  << "TERM=screen-256color " << environment
                                  << " sh -c 'echo $$ > process; exec " << PROT_PROGRAM << ' ' << arguments
                                  << "' > stdout.txt\n"
                                  << "status=$?\n"
                                  << "stty -a > after.txt\n"
                                  << "echo $status > status.part && mv status.part status\n";
    press({"clear; . ./run.sh", "Enter"});
}

void Pane::press(std::initializer_list<std::string> keys) const {
    for (const std::string& key : keys) tmux("send-keys " + quoted(key));
}

void Pane::resize(int columns, int rows) const {
    tmux("resize-window -x " + std::to_string(columns) + " -y " + std::to_string(rows));
}

std::string Pane::tmux(const std::string& command) const {
    return output_of("cd " + quoted(folder_) + " && env -u TMUX LC_ALL=C.UTF-8 tmux -S " +
                     quoted(path("socket")) + " -f /dev/null " + command + " 2>/dev/null");
}

std::string Pane::screen() const {
    std::string shown = tmux("capture-pane -p ';' display-message -p 'Cursor: #{cursor_x},#{cursor_y}'");
    for (std::size_t at = 0; (at = shown.find(folder_.string(), at)) != std::string::npos;)
        shown.replace(at, folder_.string().size(), folder_template);
    return shown;
}

std::string Pane::settled_screen() const {
    std::string last;
    for (int same = 0; same < looks_until_settled; ++same) {
        std::this_thread::sleep_for(interval);
        const std::string now = screen();
        if (now != last) same = 0;
        last = now;
    }
    return last;
}

void Pane::expect_screen(const std::string& name) const {
    const fs::path file = screens / (name + ".txt");
    if (std::getenv("PROT_UPDATE_SCREENS")) std::ofstream(file) << settled_screen();
    const std::string expected = read_file(file);
    ASSERT_NE(expected, "") << file;
    EXPECT_TRUE(comes_true([&] { return screen() == expected; }))
        << name << ":\n"
        << expected << "is not what the pane shows:\n"
        << screen();
}

void Pane::expect_text(const std::string& text) const {
    EXPECT_TRUE(comes_true([&] { return screen().find(text) != std::string::npos; }))
        << text << " is missing:\n"
        << screen();
}

int Pane::exit_status() const {
    if (!comes_true([&] { return fs::exists(path("status")); })) {
        ADD_FAILURE() << "The program did not end:\n" << screen();
        return -1;
    }
    EXPECT_NE(read("before.txt"), "");
    EXPECT_EQ(read("before.txt"), read("after.txt")) << "the terminal's settings";
    return std::atoi(read("status").c_str());
}

int Pane::process() const {
    EXPECT_TRUE(comes_true([&] { return read("process").ends_with('\n'); }));
    return std::atoi(read("process").c_str());
}

std::string Pane::exported_by_answers(const std::string& section, const std::string& answers) const {
    const std::string written = output_of("cd " + quoted(folder_) + " && printf " + quoted(answers) +
                                          " | " PROT_PROGRAM + " export --db beispiel.db --section " +
                                          section + " --out answered --answers - 2>/dev/null");
    return read(written.substr(0, written.find('\n')));
}

std::string Pane::read(const std::string& name) const { return read_file(path(name)); }

}  // namespace prot::test
