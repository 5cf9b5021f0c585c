#pragma once

#include <concepts>
#include <cstdint>
#include <deque>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>

#include "apps/protcsv/sample/sample_people.h"
#include "apps/protcsv/sample/sample_records.h"
#include "apps/protcsv/sample/sample_sections.h"

/// What happens in a section of a sample database: a story that every log tells however the dice fall, and
/// everyday changes in between. Both happen at a desk, a class that keeps the section's records and its
/// chance: each of its changes keeps the records and the log in step and returns the log row.
namespace prot::sample {

/// A story's text where it means a whole number.
std::int32_t number_of(std::string_view text);

/// The value becomes the text, or the number that it means.
template <class Value>
void give(Value& value, std::string_view text) {
    if constexpr (requires { value = text; })
        value = text;
    else
        value = number_of(text);
}

/// A change as a story tells it; what the text means is the change's own.
template <class Desk>
using Change = LogRow (*)(Desk& desk, const Occasion& occasion, std::string_view text);

template <class Desk>
struct Step {
    Day due;  ///< the first change by day on or after this date
    Change<Desk> change;
    std::string_view text;
};

template <class Desk>
struct Everyday {
    int percent;  ///< of all everyday changes, which together have 100
    LogRow (Desk::*change)(const Occasion& occasion);
};

/// Whether the changes have a hundred percent together.
template <class Desk>
consteval bool are_all(std::span<const Everyday<Desk>> changes) {
    int sum = 0;
    for (const Everyday<Desk>& change : changes) sum += change.percent;
    return sum == 100;
}

/// A member of the desk as a change of its story; it gets the text when it takes one.
template <auto member, class Desk>
LogRow tell(Desk& desk, const Occasion& occasion, std::string_view text) {
    if constexpr (std::is_invocable_v<decltype(member), Desk&, const Occasion&, std::string_view>)
        return (desk.*member)(occasion, text);
    else
        return (desk.*member)(occasion);
}

/// The same, and the row as it is after a fault.
template <auto member, auto fault, class Desk>
LogRow damage(Desk& desk, const Occasion& occasion, std::string_view) {
    return fault((desk.*member)(occasion));
}

/// Any record gets the text in that field.
template <auto field, class Desk>
LogRow set(Desk& desk, const Occasion& occasion, std::string_view text) {
    return desk.change_any(occasion, [text](auto& record) { record.*field = text; });
}

/// A change of something that has several records and a role in the story.
template <class Desk, class Whole>
using ChangeOf = LogRow (*)(Desk& desk, Whole& whole, const Occasion& occasion, std::string_view text);

/// It happens to one of the cast, as a step of the story.
template <auto role, auto change, class Desk>
LogRow on(Desk& desk, const Occasion& occasion, std::string_view text) {
    return change(desk, desk.cast(role), occasion, text);
}

/// One of the records gets the text, or the number that it means, in that field.
template <auto record, auto field, class Desk, class Whole>
LogRow set_in(Desk&, Whole& whole, const Occasion& occasion, std::string_view text) {
    return log_change(record(whole), occasion, [text](auto& changed) { give(changed.*field, text); });
}

/// A member of the desk does it.
template <auto member, class Desk, class Whole>
LogRow act(Desk& desk, Whole& whole, const Occasion& occasion, std::string_view) {
    return (desk.*member)(whole, occasion);
}

template <auto change, auto fault, class Desk, class Whole>
LogRow damage_of(Desk& desk, Whole& whole, const Occasion& occasion, std::string_view text) {
    return fault(change(desk, whole, occasion, text));
}

template <class Desk>
struct Plot {
    std::span<const Step<Desk>> story;  ///< in the order of the days
    std::span<const Everyday<Desk>> everyday;
    Programs programs;
    bool in_turn = false;  ///< everybody has a part in the story; else whoever is likely to be at work
};

/// The base of a desk whose changes may have several log rows: what a change returns is the first, next_row
/// the others.
class DeskOfLongChanges {
public:
    bool goes_on() const { return !rows_left_.empty(); }
    LogRow next_row();

protected:
    /// rows: of the log to come.
    explicit DeskOfLongChanges(std::int64_t rows) : rows_(rows) {}

    /// Whether a change of that many rows must not begin any more: the log must not end amid them.
    bool is_too_late(const Occasion& occasion, std::int64_t rows_of_change) const;

    void queue(LogRow row) { rows_left_.push_back(std::move(row)); }
    template <class Record>
    void create_record(Record& record, const Occasion& occasion) {
        queue(log_creation(record, occasion));
    }
    template <class Record>
    void delete_record(const Record& record, const Occasion& occasion) {
        queue(log_deletion(record, occasion));
    }

private:
    std::int64_t rows_;
    std::deque<LogRow> rows_left_;  ///< of the latest change
};

/// A section that is told so.
template <class Desk>
class StorySection : public Section {
public:
    LogRow log_change(Moment moment) final {
        if constexpr (std::derived_from<Desk, DeskOfLongChanges>) {
            if (desk_.goes_on()) return desk_.next_row();
        }
        if (told_ == plot_.story.size() || moment < plot_.story[told_].due || is_night(moment))
            return any_change({moment, any_author(moment)});
        const Author teller =
            plot_.in_turn ? author(told_ % author_count(), plot_.programs) : any_author(moment);
        const Step<Desk>& step = plot_.story[told_++];
        return step.change(desk_, {moment, teller}, step.text);
    }

    bool goes_on() const final {
        if constexpr (std::derived_from<Desk, DeskOfLongChanges>) return desk_.goes_on();
        return false;
    }

protected:
    StorySection(Desk desk, const Plot<Desk>& plot) : desk_(std::move(desk)), plot_(plot) {}

    const Desk& desk() const { return desk_; }

private:
    Author any_author(Moment moment) { return author_at(moment, desk_.random(), plot_.programs); }

    LogRow any_change(const Occasion& occasion) {
        std::int64_t dice = desk_.random().below(100);
        auto kind = plot_.everyday.begin();
        for (; dice >= kind->percent; ++kind) dice -= kind->percent;
        return (desk_.*kind->change)(occasion);
    }

    Desk desk_;
    Plot<Desk> plot_;
    std::size_t told_ = 0;  ///< steps of the story so far
};

}  // namespace prot::sample
