#include "apps/protcsv/displays/progress_bar.h"

#include <string>

namespace prot {

namespace {

constexpr std::int32_t records_per_look_at_the_clock = 16;
constexpr std::chrono::milliseconds redraw_interval{100};
constexpr std::int64_t bar_width = 40;

std::string bar_text(std::int64_t done, std::int64_t total) {
    const auto filled = static_cast<std::size_t>(bar_width * done / total);
    std::string bar(filled, '#');
    bar.resize(bar_width, '.');
    return "[" + bar + "] " + std::to_string(100 * done / total) + " %, " + std::to_string(done) + " von " +
           std::to_string(total);
}

}  // namespace

void ProgressBar::gSetFortschritt(std::int32_t lZeile, std::int32_t lLetzte) {
    if (lZeile % records_per_look_at_the_clock != 0 || lLetzte < 1 || lZeile < 0 || lZeile > lLetzte) return;
    const auto now = now_();
    if (now < next_) return;
    next_ = now + redraw_interval;
    terminal_.show_status(bar_text(lZeile, lLetzte));
}

}  // namespace prot
