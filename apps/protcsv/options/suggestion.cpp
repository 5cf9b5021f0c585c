#include "apps/protcsv/options/suggestion.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/automation/letter_case.h"
#include "platform/automation/utf8.h"

namespace prot {

namespace {

using Letters = std::u32string;
using Row = std::vector<std::size_t>;

Letters letters_of(std::string_view text) { return decode_utf8(to_lower(text)); }

/// The fewest mistypings that lead from one word to the other, no letter mistyped twice (optimal string
/// alignment). A row for each letter of `from` so far: the distances to the beginnings of `to`.
std::size_t distance(const Letters& from, const Letters& to) {
    Row before_last;
    Row last(to.size() + 1);
    for (std::size_t j = 0; j <= to.size(); ++j) last[j] = j;
    for (std::size_t i = 1; i <= from.size(); ++i) {
        Row row(to.size() + 1, i);
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t wrong = from[i - 1] == to[j - 1] ? 0 : 1;
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + wrong});
            const bool is_swap = i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
            if (is_swap) row[j] = std::min(row[j], before_last[j - 2] + 1);
        }
        before_last = std::exchange(last, std::move(row));
    }
    return last[to.size()];
}

}  // namespace

std::string_view likely_meant(std::string_view text, const std::vector<std::string_view>& names) {
    const Letters letters = letters_of(text);
    std::size_t fewest = std::max<std::size_t>(letters.size() / 3, 1) + 1;
    std::string_view found;
    for (const std::string_view name : names) {
        const std::size_t mistypings = distance(letters, letters_of(name));
        if (mistypings >= fewest) continue;
        fewest = mistypings;
        found = name;
    }
    return found;
}

std::string suggestion(std::string_view text, const std::vector<std::string_view>& names) {
    const std::string_view name = likely_meant(text, names);
    return name.empty() ? std::string() : "; meinten Sie " + std::string(name) + "?";
}

}  // namespace prot
