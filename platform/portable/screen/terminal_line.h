#pragma once

#include <optional>
#include <string>

#include <signal.h>

#include "platform/portable/screen/picture.h"

namespace prot {

/// Whether the process has a controlling terminal that can show windows, and its size; nothing when it has
/// none, or a dumb one. The terminal's type is that of the environment variable TERM.
std::optional<Size> controlling_terminal();

/// While it lives, standard input and standard output are the controlling terminal, wherever they lead
/// otherwise: the screen library knows no other way to it.
class TerminalAsStandardStreams {
public:
    TerminalAsStandardStreams();  ///< raises std::system_error without a controlling terminal
    ~TerminalAsStandardStreams();
    TerminalAsStandardStreams(const TerminalAsStandardStreams&) = delete;
    TerminalAsStandardStreams& operator=(const TerminalAsStandardStreams&) = delete;

private:
    int input_, output_;  // where they led before; -1: they were closed
};

/// While it lives, the signals that stop the program wait, so that the terminal can be put in order first;
/// and a change of the terminal's size is something to wait for.
class WaitingSignals {
public:
    WaitingSignals();
    ~WaitingSignals();
    WaitingSignals(const WaitingSignals&) = delete;
    WaitingSignals& operator=(const WaitingSignals&) = delete;

    enum class Event { input, stop, resized, silence, lost };

    /// What happens first on the terminal's line. `milliseconds` without any event are silence; -1: for ever.
    Event wait(int milliseconds) const;

private:
    sigset_t earlier_;
    int stopping_, resizing_;
};

}  // namespace prot
