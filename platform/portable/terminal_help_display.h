#pragma once

#include "platform/help_display.h"
#include "platform/portable/terminal.h"

namespace prot {

/// Names the help topic on the terminal; the help itself is shown by the suite only.
class TerminalHelpDisplay : public HelpDisplay {
public:
    explicit TerminalHelpDisplay(Terminal& terminal) : terminal_(terminal) {}

    bool show_topic(std::string_view map_file, std::string_view help_id) override;

private:
    Terminal& terminal_;
};

}  // namespace prot
