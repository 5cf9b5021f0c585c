#include "platform/forms/type_ahead.h"

#include <algorithm>

#include "platform/automation/letter_case.h"
#include "platform/automation/utf8.h"

namespace prot {

namespace {

constexpr std::chrono::milliseconds longest_pause{1000};

bool begins_with(const Entry& entry, const std::string& beginning) {
    return to_lower(std::string_view(entry.text)).starts_with(beginning);
}

/// The first entry from `first` on, round the list's end, that begins so.
std::optional<std::size_t> find_from(std::size_t first, const std::vector<Entry>& entries,
                                     const std::string& beginning) {
    for (std::size_t step = 0; step < entries.size(); ++step) {
        const std::size_t entry = (first + step) % entries.size();
        if (begins_with(entries[entry], beginning)) return entry;
    }
    return std::nullopt;
}

}  // namespace

bool TypeAhead::paused(Moment now) const { return letters_.empty() || now - last_ > longest_pause; }

bool TypeAhead::takes(char32_t letter, Moment now) const {
    return letter > U' ' || (letter == U' ' && !paused(now));
}

std::optional<std::size_t> TypeAhead::typed(char32_t letter, Moment now, const std::vector<Entry>& entries,
                                            std::optional<std::size_t> selected) {
    if (paused(now)) letters_.clear();
    last_ = now;
    letters_ += to_lower(letter);
    if (entries.empty()) return std::nullopt;
    const std::size_t here = selected ? std::min(*selected, entries.size() - 1) : entries.size() - 1;
    const std::size_t first = letters_.size() == 1 ? here + 1 : here;
    if (const auto entry = find_from(first, entries, encode_utf8(letters_))) return entry;
    const bool repeated = letters_.find_first_not_of(letters_.front()) == std::u32string::npos;
    if (!repeated) return std::nullopt;
    return find_from(here + 1, entries, encode_utf8(letters_.substr(0, 1)));
}

}  // namespace prot
