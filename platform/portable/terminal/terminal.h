#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace prot {

/// How a run ended, in ascending precedence: a run that was cancelled after an error has failed.
enum class Outcome { done, cancelled, failed, refused };

/// How a person at the keyboard ends the input.
#ifdef _WIN32
inline constexpr std::string_view cancel_hint = "Strg-Z+Eingabe bricht ab";
#else
inline constexpr std::string_view cancel_hint = "Strg-D bricht ab";
#endif

struct TerminalSettings {
    std::string program;                 ///< begins every line the terminal says of its own accord
    std::ostream* output = nullptr;      ///< questions, messages, status line
    std::istream* keyboard = nullptr;    ///< a person's terminal; null: there is none
    std::optional<std::string> answers;  ///< prepared answers, one a line; they come before the keyboard
    std::string refusal;  ///< what is said when something has to be asked and nobody can answer
    std::function<std::size_t()> columns{};  ///< how wide the output is now; without it the usual 80
    bool erases = false;  ///< control sequences reach it: erasing from the cursor on, no wrapping
};

/// The conversation with a person, or with a text of prepared answers that stands in for one. Keeps the
/// outcome that the conversation led to, because code between here and the program may turn a refusal into a
/// plain return. The answers are the pieces between the line feeds of their text (a CR before one is
/// dropped), so a final line feed is followed by one more, empty answer. A byte order mark before them is
/// ignored.
class Terminal {
public:
    explicit Terminal(TerminalSettings settings);

    /// Writes `text`, CR LF as LF; a status line is wiped first.
    void write(std::string_view text);
    /// Writes one line that begins with the program's name.
    void complain(std::string_view text);

    /// Replaces the status line. ASCII without line breaks; what has no room in status_columns is cut off.
    void show_status(std::string_view text);
    /// How long a status line may be now without being wrapped.
    std::size_t status_columns() const;
    void clear_status();

    /// Whether questions are answered by a person at the keyboard.
    bool asks_person() const { return settings_.keyboard != nullptr && !answers_; }
    /// Whether a person is there, prepared answers or not.
    bool has_keyboard() const { return settings_.keyboard != nullptr; }
    /// Whether questions are answered at all. When not, says the refusal once and marks the run as refused.
    bool require_input();

    /// Asks `question [suggestion]: ` and returns the answer as given, empty to take the suggestion. Nothing
    /// when nobody can answer or an answer was refused for good (refused), at the end of the answers or of
    /// the keyboard's input (cancelled).
    std::optional<std::string> ask(std::string_view question, std::string_view suggestion);

    /// Says why an answer cannot be taken; empty: that has been said. A person can be asked again. Prepared
    /// answers end here: the run is refused, and ask gives nothing any more.
    void refuse_answer(std::string_view why);
    /// What the run was refused for, one line; empty: it was not.
    const std::string& refused_for() const { return refused_for_; }

    /// Asks the person at the keyboard, never the prepared answers. Nothing without one or at the end of
    /// input.
    std::optional<std::string> ask_person(std::string_view prompt);

    /// Marks the run; a mark of higher precedence stays.
    void note(Outcome outcome);
    Outcome outcome() const { return outcome_; }

private:
    TerminalSettings settings_;
    std::optional<std::vector<std::string>> answers_;
    std::size_t next_answer_ = 0;
    std::size_t status_width_ = 0;  // of what has been drawn
    Outcome outcome_ = Outcome::done;
    std::string refused_for_;
};

}  // namespace prot
