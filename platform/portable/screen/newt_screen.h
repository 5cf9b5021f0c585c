#pragma once

#include <memory>
#include <vector>

#include "platform/portable/screen/screen.h"

namespace prot {

/// The controlling terminal of the process as a screen, drawn by newt. Standard input and output stay what
/// they are for the rest of the program. A signal that stops the program takes effect when the terminal is in
/// order again; Ctrl-C on the terminal is such a signal.
class NewtScreen : public Screen {
public:
    NewtScreen();
    ~NewtScreen() override;

    /// Whether the terminal can show windows and has room for them.
    static bool is_usable();

    bool is_open() const override { return session_ != nullptr; }
    bool open(Window& window) override;
    void close() override;
    std::optional<Key> next_key() override;

private:
    class Session;

    bool start();
    std::optional<Key> stop();

    std::vector<Window*> windows_;
    std::unique_ptr<Session> session_;  // null: the terminal is not ours
    KeyDecoder keys_;
};

}  // namespace prot
