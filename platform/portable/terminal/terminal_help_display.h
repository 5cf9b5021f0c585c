#pragma once

#include <string>
#include <string_view>

#include "platform/help_display.h"
#include "platform/portable/help/help_topics.h"
#include "platform/portable/terminal/terminal.h"

namespace prot {

/// What is said when a help topic is missing.
std::string missing_topic_text(std::string_view map_file, std::string_view help_id);

/// Shows a help topic as text on the terminal, or says in one line that it is missing.
class TerminalHelpDisplay : public HelpDisplay {
public:
    TerminalHelpDisplay(Terminal& terminal, HelpTopics topics)
        : terminal_(terminal), topics_(std::move(topics)) {}

    bool show_topic(std::string_view map_file, std::string_view help_id) override;

private:
    Terminal& terminal_;
    HelpTopics topics_;
};

}  // namespace prot
