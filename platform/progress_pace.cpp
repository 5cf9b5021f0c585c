#include "platform/progress_pace.h"

namespace prot {

namespace {

constexpr std::int32_t records_per_look_at_the_clock = 16;

}  // namespace

bool ProgressPace::is_due(std::int32_t done, std::int32_t total) {
    if (done % records_per_look_at_the_clock != 0 || total < 1 || done < 0 || done > total) return false;
    const auto now = now_();
    if (now < next_) return false;
    next_ = now + interval_;
    return true;
}

}  // namespace prot
