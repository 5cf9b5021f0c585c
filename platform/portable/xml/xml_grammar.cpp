#include "platform/portable/xml/xml_grammar.h"

#include <algorithm>

#include "platform/automation/utf8.h"

namespace prot::xml {

namespace {

const char* take(const char* at, std::string_view text) {
    return starts_with(at, text) ? at + text.size() : nullptr;
}

bool is_version(std::string_view text) {
    return text.size() > 2 && text.substr(0, 2) == "1." &&
           std::all_of(text.begin() + 2, text.end(), is_ascii_digit);
}

bool is_encoding_name(std::string_view text) {
    return !text.empty() && is_ascii_letter(text.front()) &&
           std::all_of(text.begin(), text.end(), [](char c) {
               return is_ascii_letter(c) || is_ascii_digit(c) || c == '.' || c == '_' || c == '-';
           });
}

bool is_yes_or_no(std::string_view text) { return text == "yes" || text == "no"; }

// Behind "&#".
Reference character_reference(const char* at) {
    const unsigned base = *at == 'x' ? 16 : 10;
    if (base == 16) ++at;
    char32_t code_point = 0;
    for (; *at != ';'; ++at) {
        const auto byte = static_cast<unsigned char>(*at);
        const unsigned letter = (byte | 0x20U) - 'a';
        const unsigned digit = is_ascii_digit(*at) ? byte - '0' : letter < 6 ? letter + 10 : base;
        if (digit >= base) return {nullptr, 0};
        code_point = std::min<char32_t>(code_point * base + digit, 0x110000);
    }
    // No digits at all leave U+0000, which is no XML character.
    return {is_character(code_point) ? at + 1 : nullptr, code_point};
}

struct Entity {
    std::string_view name;
    char32_t code_point;
};

constexpr Entity entities[] = {{"lt;", '<'}, {"gt;", '>'}, {"amp;", '&'}, {"quot;", '"'}, {"apos;", '\''}};

// Everything up to and with `last`, of which the first byte is none of plain_body.
const char* body(const char* at, const char* end, std::string_view last) {
    for (;;) {
        at = skip<plain_body>(at);
        if (starts_with(at, last)) return at + last.size();
        at = *at == '-' || *at == ']' || *at == '?' ? at + 1 : wide_character(at, end);
        if (at == nullptr) return nullptr;
    }
}

// One part of the XML declaration. What is not that part, or breaks its rule, stays to be read.
const char* declared(const char* at, const char* end, std::string_view part, bool (*rule)(std::string_view)) {
    const char* step = skip<white_space>(at);
    if (step == at || !starts_with(step, part)) return at;
    step = equals_sign(step + part.size());
    if (step == nullptr) return at;
    const char* const value = step + 1;
    Form form = Form::plain;
    step = quoted_value(step, end, form);
    return step != nullptr && rule(between(value, step - 1)) ? step : at;
}

// Behind "<?xml".
const char* declaration(const char* at, const char* end) {
    const char* const version = declared(at, end, "version", is_version);
    if (version == at) return nullptr;
    at = declared(version, end, "encoding", is_encoding_name);
    at = declared(at, end, "standalone", is_yes_or_no);
    return take(skip<white_space>(at), "?>");
}

}  // namespace

Reference reference(const char* at) {
    ++at;
    if (*at == '#') return character_reference(at + 1);
    for (const Entity& entity : entities) {
        if (starts_with(at, entity.name)) return {at + entity.name.size(), entity.code_point};
    }
    return {nullptr, 0};
}

const char* wide_character(const char* at, const char* end) {
    if (is_ascii(*at)) return nullptr;
    const Utf8Sequence character = utf8_sequence(at, end);
    return character.length > 0 && is_character(character.code_point) ? at + character.length : nullptr;
}

const char* wide_name_character(const char* at, const char* end, bool at_start) {
    if (is_ascii(*at)) return nullptr;
    const Utf8Sequence character = utf8_sequence(at, end);
    const bool fits = character.length > 0 && is_name_character(character.code_point, at_start);
    return fits ? at + character.length : nullptr;
}

const char* comment(const char* at, const char* end) {
    at = take(at, "<!--");
    if (at != nullptr) at = body(at, end, "--");
    return at != nullptr ? take(at, ">") : nullptr;
}

const char* cdata_section(const char* at, const char* end) {
    at = take(at, cdata_start);
    return at != nullptr ? body(at, end, cdata_end) : nullptr;
}

const char* processing_instruction(const char* at, const char* end) {
    const char* const target = at + 2;
    at = name(target, end);
    if (at == nullptr) return nullptr;
    const bool reserved = at - target == 3 && (target[0] | 0x20) == 'x' && (target[1] | 0x20) == 'm' &&
                          (target[2] | 0x20) == 'l';
    if (reserved) return nullptr;
    if (starts_with(at, "?>")) return at + 2;
    return is(*at, white_space) ? body(at, end, "?>") : nullptr;
}

const char* around_root(const char* at, const char* end) {
    while (at != nullptr) {
        at = skip<white_space>(at);
        if (starts_with(at, "<?")) {
            at = processing_instruction(at, end);
        } else if (starts_with(at, "<!--")) {
            at = comment(at, end);
        } else {
            break;
        }
    }
    return at;
}

const char* prolog(const char* at, const char* end) {
    if (starts_with(at, utf8_byte_order_mark)) at += utf8_byte_order_mark.size();
    if (starts_with(at, "<?xml") && is(at[5], white_space)) at = declaration(at + 5, end);
    return at != nullptr ? around_root(at, end) : nullptr;
}

}  // namespace prot::xml
