#pragma once

#include <cstdint>

#include "platform/portable/terminal/terminal.h"
#include "platform/progress_pace.h"
#include "platform/progress_parent.h"

namespace prot {

/// The progress of a run as the terminal's status line, redrawn at most every 100 milliseconds; wiped at its
/// end. It becomes shorter with the terminal, down to the share alone, and has no colours.
class ProgressBar : public ProgressParent {
public:
    explicit ProgressBar(Terminal& terminal, ProgressPace::Now now = std::chrono::steady_clock::now);
    ~ProgressBar() override { terminal_.clear_status(); }

    void gRefresh() override {}
    void gSetFortschritt(std::int32_t lZeile, std::int32_t lLetzte) override;

private:
    Terminal& terminal_;
    ProgressPace pace_;
};

}  // namespace prot
