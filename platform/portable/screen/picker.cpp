#include "platform/portable/screen/picker.h"

#include <algorithm>

#include "platform/portable/screen/columns.h"

namespace prot {

namespace {

constexpr int widest_number = 14;

bool same_entries(const std::vector<Entry>& some, const std::vector<Entry>& others) {
    return std::ranges::equal(some, others, [](const Entry& one, const Entry& other) {
        return one.number == other.number && one.text == other.text;
    });
}

}  // namespace

void Picker::follow(const Field& field) {
    const bool same = same_entries(entries_, field.entries);
    if (same && typed_ == field.text) return;
    if (!same) {
        entries_ = field.entries;
        search_.look_through(entries_);
        number_width_ = 0;
        for (const Entry& entry : entries_) number_width_ = std::max(number_width_, columns(entry.number));
        number_width_ = std::min(number_width_, widest_number);
    }
    typed_ = field.text;
    matches_ = search_.matches(typed_);
}

std::optional<std::size_t> Picker::place_of(std::optional<std::size_t> entry) const {
    if (!entry) return std::nullopt;
    const auto found = std::ranges::lower_bound(matches_, *entry);
    if (found == matches_.end() || *found != *entry) return std::nullopt;
    return static_cast<std::size_t>(found - matches_.begin());
}

std::string Picker::count() const {
    if (entries_.empty()) return "keine Einträge";
    if (matches_.empty()) return "keine Treffer";
    return std::to_string(matches_.size()) + " von " + std::to_string(entries_.size());
}

}  // namespace prot
