#include "platform/portable/screen/newt_screen.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <newt.h>
#include <slang.h>
#include <unistd.h>

#include "platform/portable/screen/columns.h"
#include "platform/portable/screen/terminal_line.h"
#include "platform/portable/screen/utf8_locale.h"

namespace prot {

namespace {

/// How long an escape character may wait for the rest of a key's sequence.
constexpr int escape_milliseconds = 100;

// Sets of colours that look different from each other without colours too.
constexpr int color_sets[] = {
    NEWT_COLORSET_TEXTBOX,      // text
    NEWT_COLORSET_TITLE,        // access
    NEWT_COLORSET_LABEL,        // disabled
    NEWT_COLORSET_ENTRY,        // entry
    NEWT_COLORSET_ACTCHECKBOX,  // marked
    NEWT_COLORSET_ACTLISTBOX,   // chosen
};
int color_set(Style style) { return color_sets[static_cast<std::size_t>(style)]; }

Size screen_size() {
    Size size;
    newtGetScreenSize(&size.columns, &size.rows);
    return size;
}

/// newt keeps the terminal from making a signal of it.
bool is_ctrl_c(const Key& key) {
    return key.kind == Key::Kind::character && key.control && key.character == U'c';
}

/// A line on which nothing is ever typed.
class SilentLine {
public:
    SilentLine() {
        if (pipe2(ends_, O_CLOEXEC) != 0) throw std::system_error(errno, std::generic_category(), "pipe2");
    }
    ~SilentLine() {
        for (const int end : ends_) close(end);
    }
    SilentLine(const SilentLine&) = delete;
    SilentLine& operator=(const SilentLine&) = delete;

    /// Runs `draw` while the screen library listens to this line: it throws away what was typed ahead
    /// whenever it opens a window.
    template <typename Draw>
    void heard_during(Draw draw) const {
        const int terminal = std::exchange(SLang_TT_Read_FD, ends_[0]);
        draw();
        SLang_TT_Read_FD = terminal;
    }

private:
    int ends_[2];
};

/// Draws the picture into the window in front.
void paint(const Picture& picture) {
    const newtComponent form = newtForm(nullptr, nullptr, 0);
    for (const Piece& piece : picture.pieces) {
        const newtComponent label = newtLabel(piece.at.column, piece.at.row, piece.text.c_str());
        newtLabelSetColors(label, color_set(piece.style));
        newtFormAddComponent(form, label);
    }
    for (const ScrollBar& bar : picture.bars) {
        const newtComponent component = newtVerticalScrollbar(bar.at.column, bar.at.row, bar.height,
                                                              NEWT_COLORSET_LISTBOX, NEWT_COLORSET_LISTBOX);
        newtScrollbarSet(component, bar.position, bar.total);
        newtFormAddComponent(form, component);
    }
    newtDrawForm(form);
    newtFormDestroy(form);
}

}  // namespace

/// The terminal while windows are on it.
class NewtScreen::Session {
public:
    explicit Session(const std::string& locale_name) : locale_(locale_name) {
        locale_.within_environment([] { return newtInit(); });
        newtCls();
        newtCursorOn();
    }
    ~Session() {
        clear();
        newtFinished();
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    const WaitingSignals& signals() const { return signals_; }

    void resize() {
        clear();
        newtResizeScreen(0);
        SLsmg_reinit_smg();  // newt leaves out the lines that are new
        newtCls();
    }

    /// All windows anew, from the one at the back; the terminal gets only what looks different now.
    void draw(const std::vector<Window*>& windows) {
        clear();
        for (Window* const window : windows) draw(*window);
        newtRefresh();
    }

private:
    void draw(Window& window) {
        const Size screen = screen_size();
        const Picture picture = window.picture(screen);
        const int left = std::max((screen.columns - picture.size.columns) / 2, 1);
        const int top = std::max((screen.rows - 1 - picture.size.rows) / 2, 1);
        const std::string title = cut_to(printable(picture.title), picture.size.columns - 4);
        silent_line_.heard_during([&] {
            newtOpenWindow(left, top, static_cast<unsigned>(picture.size.columns),
                           static_cast<unsigned>(picture.size.rows), title.c_str());
        });
        newtPushHelpLine((" " + picture.help_line).c_str());
        ++drawn_;
        paint(picture);
        SLsmg_gotorc(top + picture.cursor.row, left + picture.cursor.column);
    }

    void clear() {
        for (; drawn_ > 0; --drawn_) {
            newtPopHelpLine();
            newtPopWindowNoRefresh();
        }
    }

    // In this order: the signals are the last to come back to what they were.
    WaitingSignals signals_;
    TerminalAsStandardStreams streams_;
    LocaleOfCharacters locale_;
    SilentLine silent_line_;
    int drawn_ = 0;
};

NewtScreen::NewtScreen() = default;
NewtScreen::~NewtScreen() = default;

bool NewtScreen::is_usable() {
    const std::optional<Size> size = controlling_terminal();
    return size && size->columns >= smallest_screen.columns && size->rows >= smallest_screen.rows &&
           utf8_locale().has_value();
}

bool NewtScreen::start() {
    if (!is_usable()) return false;
    try {
        session_ = std::make_unique<Session>(*utf8_locale());
        return true;
    } catch (const std::system_error&) {
        return false;  // the terminal went away meanwhile
    }
}

bool NewtScreen::open(Window& window) {
    // A window in front of others stays without a terminal when that went away.
    if (windows_.empty() ? !start() : !session_) return false;
    windows_.push_back(&window);
    return true;
}

void NewtScreen::close() {
    windows_.pop_back();
    if (windows_.empty()) session_.reset();
}

std::optional<Key> NewtScreen::next_key() {
    if (!session_) return std::nullopt;
    session_->draw(windows_);
    for (;;) {
        using Event = WaitingSignals::Event;
        if (const std::optional<Key> key = keys_.next(true)) {
            if (!is_ctrl_c(*key)) return key;
            std::raise(SIGINT);  // it waits, as all that stop the program do
        }
        const Event event = session_->signals().wait(keys_.waits() ? escape_milliseconds : -1);
        if (event == Event::stop || event == Event::lost) return stop();
        if (event == Event::resized) {
            session_->resize();
            session_->draw(windows_);
        } else if (event == Event::silence) {
            if (const std::optional<Key> key = keys_.next(false)) return key;
        } else {
            char bytes[64];
            const ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
            if (count <= 0) return stop();
            keys_.feed({bytes, static_cast<std::size_t>(count)});
        }
    }
}

/// Gives the terminal back; a signal that waited is delivered with that.
std::optional<Key> NewtScreen::stop() {
    session_.reset();
    return std::nullopt;
}

}  // namespace prot
