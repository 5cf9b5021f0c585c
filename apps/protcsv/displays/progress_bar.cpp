#include "apps/protcsv/displays/progress_bar.h"

#include <string>

namespace prot {

namespace {

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

ProgressBar::ProgressBar(Terminal& terminal, ProgressPace::Now now)
    : terminal_(terminal), pace_(redraw_interval, std::move(now)) {}

void ProgressBar::gSetFortschritt(std::int32_t lZeile, std::int32_t lLetzte) {
    if (pace_.is_due(lZeile, lLetzte)) terminal_.show_status(bar_text(lZeile, lLetzte));
}

}  // namespace prot
