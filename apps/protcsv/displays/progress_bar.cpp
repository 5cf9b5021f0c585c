#include "apps/protcsv/displays/progress_bar.h"

#include <algorithm>
#include <string>

#include "apps/protcsv/report/closing_text.h"

namespace prot {

namespace {

constexpr std::chrono::milliseconds redraw_interval{100};
constexpr std::int64_t widest_bar = 40, narrowest_bar = 10;

/// As much of it as fits into that many columns.
std::string bar_text(std::int64_t done, std::int64_t total, std::size_t columns) {
    const std::string share = std::to_string(100 * done / total) + " %";
    const std::string text = share + ", " + grouped(done) + " von " + grouped(total);
    const std::string_view frame = "[] ";
    const auto room =
        static_cast<std::int64_t>(columns) - static_cast<std::int64_t>(text.size() + frame.size());
    if (room < narrowest_bar) return text.size() <= columns ? text : share;
    const std::int64_t width = std::min(room, widest_bar);
    std::string bar(static_cast<std::size_t>(width * done / total), '#');
    bar.resize(static_cast<std::size_t>(width), '.');
    return "[" + bar + "] " + text;
}

}  // namespace

ProgressBar::ProgressBar(Terminal& terminal, ProgressPace::Now now)
    : terminal_(terminal), pace_(redraw_interval, std::move(now)) {}

void ProgressBar::gSetFortschritt(std::int32_t lZeile, std::int32_t lLetzte) {
    if (pace_.is_due(lZeile, lLetzte))
        terminal_.show_status(bar_text(lZeile, lLetzte, terminal_.status_columns()));
}

}  // namespace prot
