#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/error_display.h"
#include "platform/portable/terminal/terminal.h"

namespace prot {

inline constexpr std::string_view problem_report_title = "Problembericht";

/// A problem report below its title: number, source chain (one procedure a line), description.
std::string problem_report_text(std::int32_t number, std::string_view source, std::string_view description);

/// The problem report as lines on the terminal. Marks the run as failed.
class TerminalErrorDisplay : public ErrorDisplay {
public:
    explicit TerminalErrorDisplay(Terminal& terminal) : terminal_(terminal) {}

    void ZQ_gShowError(std::int32_t lNummer, std::string_view sQuelle,
                       std::string_view sBeschreibung) override;

private:
    Terminal& terminal_;
};

}  // namespace prot
