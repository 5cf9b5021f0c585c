#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

#include "platform/portable/terminal/terminal.h"
#include "platform/progress_parent.h"

namespace prot {

/// The progress of a run as the terminal's status line, redrawn at most every 100 milliseconds. The clock is
/// read once in 16 records, so that a million records cost nothing.
class ProgressBar : public ProgressParent {
public:
    using Now = std::function<std::chrono::steady_clock::time_point()>;

    explicit ProgressBar(Terminal& terminal, Now now = std::chrono::steady_clock::now)
        : terminal_(terminal), now_(std::move(now)) {}
    ~ProgressBar() override { terminal_.clear_status(); }

    void gRefresh() override {}
    void gSetFortschritt(std::int32_t lZeile, std::int32_t lLetzte) override;

private:
    Terminal& terminal_;
    Now now_;
    std::chrono::steady_clock::time_point next_{};
};

}  // namespace prot
