#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <utility>
#include <vector>

namespace prot {

/// Answers by id, each remembered once: a hash table of ids in one block, so that a look-up among ten
/// thousands of answers costs little more than one access to memory. References to answers stay valid.
template <class Answer>
class IdMemory {
public:
    /// The answer remembered for `id`, or null.
    const Answer* find(std::int32_t id) const {
        return slots_.empty() ? nullptr : slots_[place_of(id)].answer;
    }

    /// Remembers the answer for `id`, for which there is none yet.
    const Answer& remember(std::int32_t id, Answer answer) {
        if (2 * (answers_.size() + 1) > slots_.size()) grow();
        answers_.push_back(std::move(answer));
        slots_[place_of(id)] = {id, &answers_.back()};
        return answers_.back();
    }

private:
    struct Slot {
        std::int32_t id = 0;
        const Answer* answer = nullptr;  // null: free
    };

    /// The slot of `id`, or the free one where it belongs: linear probing, always at least half of the slots
    /// free.
    std::size_t place_of(std::int32_t id) const {
        const std::size_t mask = slots_.size() - 1;
        const std::uint64_t mixed = static_cast<std::uint32_t>(id) * std::uint64_t{0x9E3779B97F4A7C15};
        std::size_t place = static_cast<std::size_t>(mixed >> 32) & mask;
        while (slots_[place].answer && slots_[place].id != id) place = (place + 1) & mask;
        return place;
    }

    void grow() {
        std::vector<Slot> old(slots_.empty() ? 64 : slots_.size() * 2);
        old.swap(slots_);
        for (const Slot& slot : old)
            if (slot.answer) slots_[place_of(slot.id)] = slot;
    }

    std::vector<Slot> slots_;  // a power of two
    std::deque<Answer> answers_;
};

}  // namespace prot
