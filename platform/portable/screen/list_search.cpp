#include "platform/portable/screen/list_search.h"

#include "platform/automation/letter_case.h"
#include "platform/automation/utf8.h"

namespace prot {

namespace {

constexpr std::chrono::seconds longest_pause{1};

/// The first entry from `start` on, the list being a ring, that begins with `beginning`.
std::optional<std::size_t> find(const Field& list, const std::string& beginning, std::size_t start) {
    for (std::size_t i = 0; i < list.entries.size(); ++i) {
        const std::size_t entry = (start + i) % list.entries.size();
        if (to_lower(std::string_view(list.entries[entry].text)).starts_with(beginning)) return entry;
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::size_t> ListSearch::press(char32_t letter, const Field& list) {
    const auto now = now_();
    if (now - last_ > longest_pause) typed_.clear();
    last_ = now;
    const std::string lower = encode_utf8(std::u32string(1, to_lower(letter)));
    const std::size_t selected = list.selected.value_or(0);
    if (!typed_.empty()) {
        if (const auto entry = find(list, typed_ + lower, selected)) {
            typed_ += lower;
            return entry;
        }
    }
    typed_ = lower;
    return find(list, lower, list.selected ? selected + 1 : 0);
}

}  // namespace prot
