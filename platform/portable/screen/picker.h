#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/entry_search.h"
#include "platform/form.h"

namespace prot {

/// A picker on view: which of its entries match what is typed. Entries and text are the form's and may change
/// at any time; what follows from them is worked out anew only when they did.
class Picker {
public:
    /// Takes over what the field holds now.
    void follow(const Field& field);

    /// The entries on view, as indices in ascending order.
    const std::vector<std::size_t>& matches() const { return matches_; }

    /// Where an entry stands among the matches; nothing when it is not one of them.
    std::optional<std::size_t> place_of(std::optional<std::size_t> entry) const;

    /// The entry that is chosen once `field`, whose entries are known, holds the text it does.
    std::optional<std::size_t> chosen(const Field& field) const {
        return search_.chosen(field.text, field.selected);
    }

    /// Says how many entries match, and of how many.
    std::string count() const;

    /// Columns of the widest number; 0 when there are none.
    int number_width() const { return number_width_; }

private:
    std::vector<Entry> entries_;
    std::string typed_;
    EntrySearch search_;
    std::vector<std::size_t> matches_;
    int number_width_ = 0;
};

}  // namespace prot
