#include "platform/portable/terminal/terminal.h"

#include <algorithm>
#include <istream>
#include <ostream>

#include "platform/automation/utf8.h"

namespace prot {

namespace {

constexpr std::string_view bad_answer =
    "Diese vorbereitete Antwort passt nicht; der Lauf endet, ohne dass etwas getan wurde.";

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

void Terminal::show_status(std::string_view text) {
    const std::size_t leftover = status_width_ > text.size() ? status_width_ - text.size() : 0;
    *settings_.output << '\r' << text << std::string(leftover, ' ') << std::flush;
    status_width_ = std::max(status_width_, text.size());
}

void Terminal::clear_status() {
    if (status_width_ == 0) return;
    *settings_.output << '\r' << std::string(status_width_, ' ') << '\r' << std::flush;
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
