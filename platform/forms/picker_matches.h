#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/forms/entry_search.h"
#include "platform/forms/form.h"

namespace prot {

/// The rows beneath the typing line of a picker: those of its entries that match what is typed. Keeps entries
/// of its own, so that rows can be drawn while the form is changing its.
class PickerMatches {
public:
    /// The entries to choose from. True when they are others than before.
    bool look_through(const std::vector<Entry>& entries);
    /// Leaves the entries that match. True when there are other rows than at the last call.
    bool filter(std::string_view typed);

    const std::vector<Entry>& entries() const { return entries_; }
    std::size_t row_count() const { return rows_.size(); }
    /// What stands in a row; null when there is no such row.
    const Entry* entry_in(std::size_t row) const;
    /// Index of the entry in a row that there is.
    std::size_t index_of(std::size_t row) const { return rows_[row]; }
    /// Where an entry stands; nothing when it does not match.
    std::optional<std::size_t> row_of(std::optional<std::size_t> index) const;

    /// The entry that is chosen once `typed` has been typed, as EntrySearch has it.
    std::optional<std::size_t> chosen(std::string_view typed, std::optional<std::size_t> before) const {
        return search_.chosen(typed, before);
    }
    /// The entry `steps` rows below the one at `index`, or above when negative, not beyond the ends. From an
    /// entry that is in no row, or none, it is the first, or the last; `index` itself when there are no rows.
    std::optional<std::size_t> moved(std::optional<std::size_t> index, int steps) const;

    /// How many match, for a person.
    std::string count_text() const;

    /// Why no entry is chosen by what is typed, for a person.
    std::string missing_text(std::string_view typed) const;

private:
    std::vector<Entry> entries_;
    EntrySearch search_;
    std::optional<std::string> typed_{};  // that rows_ match; nothing when they are out of date
    std::vector<std::size_t> rows_;       // indexes into entries_, ascending
};

}  // namespace prot
