#include "platform/forms/entry_search.h"

#include <algorithm>
#include <functional>

#include "platform/automation/letter_case.h"
#include "platform/automation/text_parts.h"

namespace prot {

namespace {

std::vector<std::string> words_of(const std::string& typed) {
    std::vector<std::string> words = split(typed, ' ');
    std::erase(words, "");
    return words;
}

std::string folded(std::string_view typed) { return to_lower(trim_blanks(typed)); }

}  // namespace

void EntrySearch::look_through(const std::vector<Entry>& entries) {
    items_.resize(entries.size());
    std::ranges::transform(entries, items_.begin(), [](const Entry& entry) {
        return Item{to_lower(std::string_view(entry.number)), to_lower(std::string_view(entry.text))};
    });
}

bool EntrySearch::matches_all(const Item& item, const std::vector<std::string>& words) const {
    return std::ranges::all_of(words, [&item](const std::string& word) {
        return item.number.starts_with(word) || item.text.find(word) != std::string::npos;
    });
}

std::vector<std::size_t> EntrySearch::matches(std::string_view typed) const {
    const std::string whole = folded(typed);
    const std::vector<std::string> words = words_of(whole);
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < items_.size(); ++i)
        if (matches_all(items_[i], words)) found.push_back(i);
    return found;
}

/// The one entry of just that number, or else of just that text, or of both with a blank between.
std::optional<std::size_t> EntrySearch::same(const std::string& whole) const {
    const std::function<bool(const Item&)> ways[] = {
        [&](const Item& item) { return item.number == whole; },
        [&](const Item& item) { return item.text == whole; },
        [&](const Item& item) {
            return whole.size() == item.number.size() + 1 + item.text.size() &&
                   whole.starts_with(item.number + ' ') && whole.ends_with(item.text);
        },
    };
    for (const auto& is_it : ways) {
        const auto found = std::ranges::find_if(items_, is_it);
        if (found == items_.end()) continue;
        if (std::find_if(found + 1, items_.end(), is_it) != items_.end()) return std::nullopt;
        return static_cast<std::size_t>(found - items_.begin());
    }
    return std::nullopt;
}

std::optional<std::size_t> EntrySearch::chosen(std::string_view typed,
                                               std::optional<std::size_t> before) const {
    const std::string whole = folded(typed);
    if (before && *before >= items_.size()) before.reset();
    if (whole.empty()) return before;
    if (const auto entry = same(whole)) return entry;
    const std::vector<std::string> words = words_of(whole);
    const auto match = [&](const Item& item) { return matches_all(item, words); };
    const auto first = std::ranges::find_if(items_, match);
    if (first == items_.end()) return std::nullopt;
    if (std::find_if(first + 1, items_.end(), match) == items_.end())
        return static_cast<std::size_t>(first - items_.begin());
    return before && match(items_[*before]) ? before : std::nullopt;
}

}  // namespace prot
