#pragma once

#include <string_view>

#include "platform/automation/ascii.h"
#include "platform/portable/xml/xml_characters.h"

/// The grammar of XML 1.0, fifth edition, but for elements: see xml_scanner.h. Every step takes where it
/// begins and returns where it ends, null where the document breaks a rule. The byte at `end`, behind the
/// document's last, is NUL, which has no class and no use in the grammar, so that no step runs past it.
/// Positions are handed on as values, so that they stay in registers; what most documents need is inline.
namespace prot::xml {

/// How a stretch of a document stands for its text; see append_text in xml_text.h.
enum class Form { plain, character_data, cdata_section, attribute_value };

/// A piece of a document, and how it is to be read.
struct Stretch {
    std::string_view raw;
    Form form;
};

struct Reference {
    const char* end;  ///< null: it is none
    char32_t code_point;
};

/// At "&": &lt; &#13; &#xD; Only the five predefined entities exist.
Reference reference(const char* at);

/// One character beyond ASCII; anything else that stands there may not stand in a document.
const char* wide_character(const char* at, const char* end);
const char* wide_name_character(const char* at, const char* end, bool at_start);

/// At "<!-": a comment.
const char* comment(const char* at, const char* end);

/// At "<!": a CDATA section; a document type is none.
const char* cdata_section(const char* at, const char* end);
inline constexpr std::string_view cdata_start = "<![CDATA[", cdata_end = "]]>";

/// At "<?".
const char* processing_instruction(const char* at, const char* end);

/// White space, comments and processing instructions outside the root.
const char* around_root(const char* at, const char* end);

/// Everything before the root. An encoding named in the declaration has to be a name, but means nothing.
const char* prolog(const char* at, const char* end);

constexpr std::string_view between(const char* begin, const char* end) {
    return {begin, static_cast<std::size_t>(end - begin)};
}

constexpr bool starts_with(const char* at, std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (at[i] != text[i]) return false;
    }
    return true;
}

template <ByteClass wanted>
[[gnu::always_inline]] inline const char* skip(const char* at) {
    while (is(at[0], wanted)) {
        if (!is(at[1], wanted)) return at + 1;
        if (!is(at[2], wanted)) return at + 2;
        if (!is(at[3], wanted)) return at + 3;
        at += 4;
    }
    return at;
}

[[gnu::always_inline]] inline const char* name(const char* at, const char* end) {
    if (is(*at, name_start)) {
        ++at;
    } else {
        at = wide_name_character(at, end, true);
        if (at == nullptr) return nullptr;
    }
    at = skip<name_part>(at);
    while (!is_ascii(*at)) {
        at = wide_name_character(at, end, false);
        if (at == nullptr) return nullptr;
        at = skip<name_part>(at);
    }
    return at;
}

inline const char* equals_sign(const char* at) {
    at = skip<white_space>(at);
    return *at == '=' ? skip<white_space>(at + 1) : nullptr;
}

/// Up to the next "<". `form` becomes that of character data unless the text stands as it is.
[[gnu::always_inline]] inline const char* character_data(const char* at, const char* end, Form& form) {
    for (;;) {
        at = skip<plain_text>(at);
        if (*at == '<') return at;
        if (*at == '&' || *at == '\r') {
            form = Form::character_data;
            at = *at == '&' ? reference(at).end : at + 1;
        } else if (*at == ']') {
            at = starts_with(at, cdata_end) ? nullptr : at + 1;
        } else {
            at = wide_character(at, end);
        }
        if (at == nullptr) return nullptr;
    }
}

/// An attribute's value with its quotes. `form` becomes that of such a value unless it stands as it is.
[[gnu::always_inline]] inline const char* quoted_value(const char* at, const char* end, Form& form) {
    const char quote = *at;
    if (quote != '"' && quote != '\'') return nullptr;
    ++at;
    for (;;) {
        at = skip<plain_value>(at);
        if (*at == quote) return at + 1;
        if (*at == '&' || is(*at, white_space)) {
            form = Form::attribute_value;
            at = *at == '&' ? reference(at).end : at + 1;
        } else if (*at == '"' || *at == '\'') {
            ++at;
        } else {
            at = wide_character(at, end);
        }
        if (at == nullptr) return nullptr;
    }
}

}  // namespace prot::xml
