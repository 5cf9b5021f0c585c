#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/forms/form.h"

namespace prot {

/// Finds entries by a part of what they go by: the beginning of the number, or any part of the text, without
/// regard to letter case. Several words may be typed; each must be found. Made for pickers of some ten
/// thousand entries: what is compared is prepared once, not at every key.
class EntrySearch {
public:
    /// The entries to look through from now on; indexes below are those of this list.
    void look_through(const std::vector<Entry>& entries);

    /// The entries that may be meant by `typed`, in their order; all of them when it is blank.
    std::vector<std::size_t> matches(std::string_view typed) const;

    /// The entry that is chosen once `typed` has been typed: the one that goes by just that number or text,
    /// or by both; else the only one that matches; else the one chosen before, as long as it matches. Blank
    /// text changes nothing.
    std::optional<std::size_t> chosen(std::string_view typed, std::optional<std::size_t> before) const;

private:
    struct Item {
        std::string number, text;  // in lower case
    };
    bool matches_all(const Item& item, const std::vector<std::string>& words) const;
    std::optional<std::size_t> same(const std::string& whole) const;

    std::vector<Item> items_;
};

}  // namespace prot
