#pragma once

#include "platform/error_display.h"
#include "platform/portable/terminal.h"

namespace prot {

/// The problem report as lines on the terminal: number, source chain (one procedure a line), description.
/// Marks the run as failed.
class TerminalErrorDisplay : public ErrorDisplay {
public:
    explicit TerminalErrorDisplay(Terminal& terminal) : terminal_(terminal) {}

    void ZQ_gShowError(std::int32_t lNummer, std::string_view sQuelle,
                       std::string_view sBeschreibung) override;

private:
    Terminal& terminal_;
};

}  // namespace prot
