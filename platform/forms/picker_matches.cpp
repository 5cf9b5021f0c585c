#include "platform/forms/picker_matches.h"

#include <algorithm>

#include "platform/automation/text_parts.h"

namespace prot {

bool PickerMatches::look_through(const std::vector<Entry>& entries) {
    const auto same = [](const Entry& one, const Entry& other) {
        return one.number == other.number && one.text == other.text;
    };
    if (std::ranges::equal(entries_, entries, same)) return false;
    rows_.clear();
    typed_.reset();
    entries_ = entries;
    search_.look_through(entries_);
    return true;
}

bool PickerMatches::filter(std::string_view typed) {
    if (typed_ == typed) return false;
    const bool out_of_date = !typed_;
    std::vector<std::size_t> rows = search_.matches(typed);
    typed_ = typed;
    if (!out_of_date && rows == rows_) return false;
    rows_ = std::move(rows);
    return true;
}

const Entry* PickerMatches::entry_in(std::size_t row) const {
    return row < rows_.size() ? &entries_[rows_[row]] : nullptr;
}

std::optional<std::size_t> PickerMatches::row_of(std::optional<std::size_t> index) const {
    if (!index) return std::nullopt;
    const auto found = std::ranges::lower_bound(rows_, *index);
    if (found == rows_.end() || *found != *index) return std::nullopt;
    return static_cast<std::size_t>(found - rows_.begin());
}

std::optional<std::size_t> PickerMatches::moved(std::optional<std::size_t> index, int steps) const {
    if (rows_.empty()) return index;
    const auto row = row_of(index);
    if (!row) return steps > 0 ? rows_.front() : rows_.back();
    const auto last = static_cast<std::ptrdiff_t>(rows_.size()) - 1;
    const auto wanted = static_cast<std::ptrdiff_t>(*row) + steps;
    return rows_[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(wanted, 0, last))];
}

std::string PickerMatches::count_text() const {
    if (entries_.empty()) return "keine Einträge";
    if (rows_.empty()) return "keine Treffer";
    return std::to_string(rows_.size()) + " von " + std::to_string(entries_.size());
}

std::string PickerMatches::missing_text(std::string_view typed) const {
    if (entries_.empty()) return "Es gibt keine Einträge.";
    if (trim_blanks(typed).empty()) return "Bitte eine Nummer oder einen Teil des Namens eingeben.";
    std::string text = "„" + std::string(typed) + "“ passt auf ";
    if (rows_.empty()) return text + "keinen Eintrag.";
    return text + std::to_string(rows_.size()) + " Einträge; bitte einen davon wählen.";
}

}  // namespace prot
