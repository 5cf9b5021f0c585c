#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/forms/form.h"

namespace prot {

/// A key as a person pressed it.
struct Key {
    enum class Kind {
        character,  ///< with control: the letter that was pressed
        enter,
        escape,
        tab,
        up,
        down,
        left,
        right,
        home,
        end,
        page_up,
        page_down,
        insert,
        backspace,
        remove,    ///< Entf
        function,  ///< F1 and so on; `character` holds the number
        unknown,
    };

    Kind kind = Kind::unknown;
    char32_t character = 0;
    bool shift = false, control = false, alt = false;

    bool operator==(const Key&) const = default;

    bool plain() const { return !control && !alt; }
    bool is(Kind other) const { return kind == other && plain(); }
    /// A character that stands for itself.
    bool types() const { return kind == Kind::character && plain(); }
    bool types(char32_t c) const { return types() && character == c; }
};

/// The key with its virtual key code; code 0 when it has none.
KeyStroke key_stroke(const Key& key);

/// Keys out of the bytes that a terminal sends for them: characters in UTF-8, control characters, the escape
/// sequences of xterm, its kin and the Linux console. Alt is an escape character before the key.
class KeyDecoder {
public:
    void feed(std::string_view bytes) { bytes_ += bytes; }

    /// The next key. Nothing when there is none, or, while `more_may_come`, when the bytes at hand may still
    /// grow into another key.
    std::optional<Key> next(bool more_may_come);

    /// Whether bytes wait for others.
    bool waits() const { return !bytes_.empty(); }

private:
    std::string bytes_;
};

}  // namespace prot
