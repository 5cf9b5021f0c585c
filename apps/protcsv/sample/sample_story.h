#pragma once

#include <span>
#include <string_view>
#include <type_traits>
#include <utility>

#include "apps/protcsv/sample/sample_people.h"
#include "apps/protcsv/sample/sample_sections.h"

/// What happens in a section of a sample database: a story that every log tells however the dice fall, and
/// everyday changes in between. Both happen at a desk, a class that keeps the section's records and its
/// chance: each of its changes keeps the records and the log in step and returns the log row.
namespace prot::sample {

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

/// A section that is told so. The story's steps are in the order of their days.
template <class Desk>
class StorySection : public Section {
public:
    LogRow log_change(Moment moment) final {
        if (told_ == story_.size() || moment < story_[told_].due || is_night(moment))
            return any_change({moment, author_at(moment)});
        const Occasion occasion{moment, author_of_step(told_, moment)};
        const Step<Desk>& step = story_[told_++];
        return step.change(desk_, occasion, step.text);
    }

protected:
    StorySection(Desk desk, std::span<const Step<Desk>> story, std::span<const Everyday<Desk>> everyday)
        : desk_(std::move(desk)), story_(story), everyday_(everyday) {}

    Desk& desk() { return desk_; }
    const Desk& desk() const { return desk_; }

    virtual Author author_at(Moment moment) = 0;
    virtual Author author_of_step(std::size_t /*number*/, Moment moment) { return author_at(moment); }

private:
    LogRow any_change(const Occasion& occasion) {
        std::int64_t dice = desk_.random().below(100);
        auto kind = everyday_.begin();
        for (; dice >= kind->percent; ++kind) dice -= kind->percent;
        return (desk_.*kind->change)(occasion);
    }

    Desk desk_;
    std::span<const Step<Desk>> story_;
    std::span<const Everyday<Desk>> everyday_;
    std::size_t told_ = 0;  ///< steps of the story so far
};

}  // namespace prot::sample
