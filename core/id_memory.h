#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <utility>
#include <vector>

namespace prot {

/// Answers by id, each remembered once: a hash table of ids in one block, so that a look-up among ten
/// thousands of answers costs little more than one access to memory. Beside the answers themselves an id
/// takes 11 to 21 bytes. References to answers stay valid.
template <class Answer>
class IdMemory {
public:
    /// The answer remembered for `id`, or null.
    const Answer* find(std::int32_t id) const {
        if (slots_.empty()) return nullptr;
        const std::uint32_t answer = slots_[place_of(id)].answer;
        return answer == 0 ? nullptr : &answers_[answer - 1];
    }

    /// Remembers the answer for `id`, for which there is none yet.
    const Answer& remember(std::int32_t id, Answer answer) {
        if (4 * (answers_.size() + 1) > 3 * slots_.size()) grow();
        answers_.push_back(std::move(answer));
        slots_[place_of(id)] = {id, static_cast<std::uint32_t>(answers_.size())};
        return answers_.back();
    }

private:
    struct Slot {
        std::int32_t id = 0;
        std::uint32_t answer = 0;  // its number from 1; 0: free
    };

    /// The slot of `id`, or the free one where it belongs: linear probing, always at least a quarter of the
    /// slots free.
    std::size_t place_of(std::int32_t id) const {
        const std::size_t mask = slots_.size() - 1;
        const std::uint64_t mixed = static_cast<std::uint32_t>(id) * std::uint64_t{0x9E3779B97F4A7C15};
        std::size_t place = static_cast<std::size_t>(mixed >> 32) & mask;
        while (slots_[place].answer != 0 && slots_[place].id != id) place = (place + 1) & mask;
        return place;
    }

    void grow() {
        std::vector<Slot> old(slots_.empty() ? 64 : slots_.size() * 2);
        old.swap(slots_);
        for (const Slot& slot : old)
            if (slot.answer != 0) slots_[place_of(slot.id)] = slot;
    }

    std::vector<Slot> slots_;  // a power of two
    std::deque<Answer> answers_;
};

}  // namespace prot
