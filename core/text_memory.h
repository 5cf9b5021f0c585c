#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace prot {

/// Answers by several texts, such as table and column. References to answers stay valid, and no key outlives
/// the call that brought it, so that lookups may nest.
template <class Answer>
class TextMemory {
public:
    using Key = std::initializer_list<std::string_view>;

    /// The answer remembered for `key`, or null.
    const Answer* find(Key key) const {
        const auto known = answers_.find(joined(key));
        return known == answers_.end() ? nullptr : &known->second;
    }

    /// The answer remembered for `key`, else a new one.
    Answer& operator[](Key key) { return answers_[joined(key)]; }

    /// Remembers the answer for `key`, in place of an earlier one.
    const Answer& remember(Key key, Answer answer) {
        return answers_.insert_or_assign(joined(key), std::move(answer)).first->second;
    }

private:
    /// In one buffer for all searches, whose room is kept.
    const std::string& joined(Key key) const {
        joined_.clear();
        for (const std::string_view part : key) joined_.append(part).push_back('\0');
        return joined_;
    }

    std::unordered_map<std::string, Answer> answers_;
    mutable std::string joined_;
};

}  // namespace prot
