#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace prot {

/// What a section made of one item of a batch text.
struct BatchReading {
    enum class Use : std::uint8_t {
        unknown,  ///< it begins with no key of the section
        early,    ///< it stands before "autostart", where nothing is read
        unread,   ///< the section does not look at it: it stands before the first slash, or in a text that is
                  ///< searched for keys, where it begins with none or with one that stands before it, too
        passed_over,  ///< its value is none that the key can have; what held before holds on
        absent,       ///< its value names what does not exist; what held before holds on
        idle,         ///< it has no effect beside what else the text says
        crossed,      ///< it begins a range behind its end, so that nothing is chosen
        taken
    };

    /// What a section answers of a value.
    static BatchReading passed_over() { return of(Use::passed_over); }
    static BatchReading absent(std::string read_as = {}, std::string meaning = {}) {
        return of(Use::absent, {}, std::move(read_as), std::move(meaning));
    }
    static BatchReading idle() { return of(Use::idle); }
    static BatchReading taken(std::string read_as, std::string meaning = {}, bool listed = true) {
        BatchReading reading = of(Use::taken, {}, std::move(read_as), std::move(meaning));
        reading.listed = listed;
        return reading;
    }
    /// A range whose lower bound has this key. from, to: as they were understood.
    static BatchReading crossed(std::string_view key, std::string from, std::string to) {
        return of(Use::crossed, key, std::move(from), std::move(to));
    }

    static BatchReading of(Use use, std::string_view key = {}, std::string read_as = {},
                           std::string meaning = {}) {
        BatchReading reading;
        reading.use = use;
        reading.key = key;
        reading.read_as = std::move(read_as);
        reading.meaning = std::move(meaning);
        return reading;
    }

    Use use = Use::unknown;
    std::string_view key;  ///< the section's key that the item begins with, as it is compared; or "autostart"
    std::string item;  ///< as it stands in the text, without its slash; empty for what the items say together
    std::string value;  ///< behind the item's colon; empty for items that are not read
    std::string
        read_as;  ///< taken, absent: the value as it was understood, in the same notation; crossed: from
    std::string meaning;  ///< taken: what was chosen by it, as the form shows it; empty: the value says it.
                          ///< absent: what kind of thing does not exist; may be empty. crossed: to
    bool listed = true;   ///< taken: whether it is an entry of the list that a person chooses from
};

}  // namespace prot
