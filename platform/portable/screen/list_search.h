#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/form.h"

namespace prot {

/// Finds entries of a list by the letters that a person types. Letters in quick succession are the beginning
/// of one entry; the same letter again goes on to the next entry that begins with it.
class ListSearch {
public:
    using Now = std::function<std::chrono::steady_clock::time_point()>;

    explicit ListSearch(Now now = std::chrono::steady_clock::now) : now_(std::move(now)) {}

    /// The entry meant after `letter`; nothing when none begins so.
    std::optional<std::size_t> press(char32_t letter, const Field& list);

    /// Another list, or another key: what is typed next is a beginning.
    void forget() { typed_.clear(); }

private:
    Now now_;
    std::string typed_;  // in lower case
    std::chrono::steady_clock::time_point last_{};
};

}  // namespace prot
