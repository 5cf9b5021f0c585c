#include "platform/portable/terminal/terminal.h"

#include <algorithm>
#include <istream>
#include <ostream>

#include "platform/automation/utf8.h"

namespace prot {

namespace {

constexpr std::string_view bad_answer =
    "Diese vorbereitete Antwort passt nicht; der Lauf endet, ohne dass etwas getan wurde.";

constexpr std::size_t usual_columns = 80;
constexpr std::string_view erase_from_here = "\x1B[J";
constexpr std::string_view wrap_off = "\x1B[?7l", wrap_on = "\x1B[?7h";

void drop_carriage_return(std::string& line) {
    if (line.ends_with('\r')) line.pop_back();
}

std::vector<std::string> split_answers(std::string_view text) {
    if (text.starts_with(utf8_byte_order_mark)) text.remove_prefix(utf8_byte_order_mark.size());
    std::vector<std::string> answers;
    for (;;) {
        const std::size_t end = text.find('\n');
        drop_carriage_return(answers.emplace_back(text.substr(0, end)));
        if (end == std::string_view::npos) return answers;
        text.remove_prefix(end + 1);
    }
}

}  // namespace

Terminal::Terminal(TerminalSettings settings) : settings_(std::move(settings)) {
    if (settings_.answers) answers_ = split_answers(*settings_.answers);
}

void Terminal::write(std::string_view text) {
    clear_status();
    std::string lines(text);
    for (std::size_t i = 0; (i = lines.find("\r\n", i)) != std::string::npos;) lines.erase(i, 1);
    *settings_.output << lines << std::flush;
}

void Terminal::complain(std::string_view text) { write(settings_.program + ": " + std::string(text) + '\n'); }

std::size_t Terminal::status_columns() const {
    const std::size_t columns = settings_.columns ? settings_.columns() : usual_columns;
    return columns > 0 ? columns - 1 : 0;  // a full line makes some terminals wrap
}

/// The cursor waits at the beginning: a terminal that became narrower has wrapped the line below it, from
/// where erasing reaches all of it. Nothing wraps while the program does not know yet that it did.
void Terminal::show_status(std::string_view text) {
    text = text.substr(0, status_columns());
    if (settings_.erases) {
        *settings_.output << '\r' << erase_from_here << wrap_off << text << '\r' << wrap_on << std::flush;
        status_width_ = text.size();
        return;
    }
    const std::size_t before = std::min(status_width_, status_columns());
    const std::size_t leftover = before > text.size() ? before - text.size() : 0;
    *settings_.output << '\r' << text << std::string(leftover, ' ') << std::flush;
    status_width_ = text.size() + leftover;
}

void Terminal::clear_status() {
    if (status_width_ == 0) return;
    if (settings_.erases)
        *settings_.output << '\r' << erase_from_here << std::flush;
    else
        *settings_.output << '\r' << std::string(std::min(status_width_, status_columns()), ' ') << '\r'
                          << std::flush;
    status_width_ = 0;
}

bool Terminal::require_input() {
    if (answers_ || settings_.keyboard != nullptr) return true;
    if (outcome_ != Outcome::refused) complain(settings_.refusal);
    note(Outcome::refused);
    refused_for_ = settings_.refusal;
    return false;
}

std::optional<std::string> Terminal::ask(std::string_view question, std::string_view suggestion) {
    if (!require_input() || outcome_ == Outcome::refused) return std::nullopt;
    if (answers_ && next_answer_ == answers_->size()) {
        complain("Auf die Frage „" + std::string(question) +
                 "“ gab es keine Antwort; der Lauf ist abgebrochen.");
        note(Outcome::cancelled);
        return std::nullopt;
    }
    const std::string prompt = std::string(question) + " [" + std::string(suggestion) + "]: ";
    if (!answers_) {
        std::optional<std::string> answer = ask_person(prompt);
        if (!answer) note(Outcome::cancelled);
        return answer;
    }
    const std::string& answer = (*answers_)[next_answer_++];
    write(prompt + answer + '\n');
    return answer;
}

void Terminal::refuse_answer(std::string_view why) {
    if (!why.empty()) write(std::string(why) + '\n');
    if (!answers_) return;
    complain(bad_answer);
    note(Outcome::refused);
    refused_for_ = why.empty() ? bad_answer : why;
}

std::optional<std::string> Terminal::ask_person(std::string_view prompt) {
    if (settings_.keyboard == nullptr) return std::nullopt;
    write(prompt);
    std::string line;
    if (!std::getline(*settings_.keyboard, line)) {
        write("\n");
        return std::nullopt;
    }
    drop_carriage_return(line);
    return line;
}

void Terminal::note(Outcome outcome) { outcome_ = std::max(outcome_, outcome); }

}  // namespace prot
