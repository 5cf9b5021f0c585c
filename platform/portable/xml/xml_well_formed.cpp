#include "platform/portable/xml/xml_well_formed.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/automation/ascii.h"
#include "platform/automation/utf8.h"
#include "platform/portable/xml/xml_characters.h"

namespace prot {

namespace {

using namespace xml;

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

// Reads on through the document. Every step returns false where the document breaks a rule, and the pass ends
// there. The NUL after the document's last byte has no class and no use in the grammar, so that no step runs
// past it. Steps that every element takes are inlined into one loop, in which the position stays in a
// register; the rare ones are kept out of it.
class Scanner {
public:
    explicit Scanner(const std::string& document)
        : at_(document.data()), end_(document.data() + document.size()) {}

    bool document() {
        take(utf8_byte_order_mark);
        if (starts_with("<?xml") && is(at_[5], white_space) && !declaration()) return false;
        if (!around_root() || !start_tag()) return false;
        while (depth_ > 0) {
            if (!character_data() || !markup()) return false;
        }
        return around_root() && at_ == end_;
    }

private:
    template <ByteClass wanted>
    void skip() {
        const char* at = at_;  // a local one stays in a register
        while (is(at[0], wanted)) {
            if (!is(at[1], wanted)) {
                at += 1;
                break;
            }
            if (!is(at[2], wanted)) {
                at += 2;
                break;
            }
            if (!is(at[3], wanted)) {
                at += 3;
                break;
            }
            at += 4;
        }
        at_ = at;
    }
    bool spaces() {
        const char* const before = at_;
        skip<white_space>();
        return at_ != before;
    }
    bool starts_with(std::string_view text) const {
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (at_[i] != text[i]) return false;
        }
        return true;
    }
    bool take(std::string_view text) {
        if (!starts_with(text)) return false;
        at_ += text.size();
        return true;
    }
    bool take(char byte) {
        if (*at_ != byte) return false;
        ++at_;
        return true;
    }

    // One character beyond ASCII; anything else that comes here is a byte that may not stand in a document.
    [[gnu::noinline]] bool wide_character() {
        if (is_ascii(*at_)) return false;
        const Utf8Sequence character = utf8_sequence(at_, end_);
        if (character.length == 0 || !is_character(character.code_point)) return false;
        at_ += character.length;
        return true;
    }

    [[gnu::noinline]] bool wide_name_character(bool at_start) {
        if (is_ascii(*at_)) return false;
        const Utf8Sequence character = utf8_sequence(at_, end_);
        if (character.length == 0 || !is_name_character(character.code_point, at_start)) return false;
        at_ += character.length;
        return true;
    }

    [[gnu::always_inline]] bool name() {
        if (is(*at_, name_start)) {
            ++at_;
        } else if (!wide_name_character(true)) {
            return false;
        }
        skip<name_part>();
        while (!is_ascii(*at_)) {
            if (!wide_name_character(false)) return false;
            skip<name_part>();
        }
        return true;
    }

    // &lt; &#13; &#xD;
    [[gnu::noinline]] bool reference() {
        ++at_;
        if (take('#')) return character_reference();
        for (const std::string_view entity : {"lt;", "gt;", "amp;", "quot;", "apos;"}) {
            if (take(entity)) return true;
        }
        return false;
    }

    [[gnu::noinline]] bool character_reference() {
        const unsigned base = take('x') ? 16 : 10;
        char32_t code_point = 0;
        for (; *at_ != ';'; ++at_) {
            const auto byte = static_cast<unsigned char>(*at_);
            const unsigned letter = (byte | 0x20U) - 'a';
            const unsigned digit = is_ascii_digit(*at_) ? byte - '0' : letter < 6 ? letter + 10 : base;
            if (digit >= base) return false;
            code_point = std::min<char32_t>(code_point * base + digit, 0x110000);
        }
        ++at_;
        // No digits at all leave U+0000, which is no XML character.
        return is_character(code_point);
    }

    // Up to the next "<".
    [[gnu::always_inline]] bool character_data() {
        for (;;) {
            skip<plain_text>();
            if (*at_ == '<') return true;
            if (*at_ == '&') {
                if (!reference()) return false;
            } else if (*at_ == ']') {
                if (starts_with("]]>")) return false;
                ++at_;
            } else if (!wide_character()) {
                return false;
            }
        }
    }

    [[gnu::always_inline]] bool quoted_value() {
        const char quote = *at_;
        if (quote != '"' && quote != '\'') return false;
        ++at_;
        for (;;) {
            skip<plain_value>();
            if (take(quote)) return true;
            if (*at_ == '&') {
                if (!reference()) return false;
            } else if (*at_ == '"' || *at_ == '\'') {
                ++at_;
            } else if (!wide_character()) {
                return false;
            }
        }
    }

    // Everything up to and with `end`, of which the first byte is none of plain_body.
    bool body(std::string_view end) {
        for (;;) {
            skip<plain_body>();
            if (take(end)) return true;
            if (*at_ == '-' || *at_ == ']' || *at_ == '?') {
                ++at_;
            } else if (!wide_character()) {
                return false;
            }
        }
    }

    [[gnu::noinline]] bool comment() { return take("<!--") && body("--") && take('>'); }
    [[gnu::noinline]] bool cdata_section() { return take("<![CDATA[") && body("]]>"); }

    [[gnu::noinline]] bool processing_instruction() {
        at_ += 2;
        const char* const target = at_;
        if (!name()) return false;
        const bool reserved = at_ - target == 3 && (target[0] | 0x20) == 'x' && (target[1] | 0x20) == 'm' &&
                              (target[2] | 0x20) == 'l';
        if (reserved) return false;
        return take("?>") || (spaces() && body("?>"));
    }

    [[gnu::noinline]] bool declaration() {
        at_ += 5;
        if (!declared("version", is_version)) return false;
        declared("encoding", is_encoding_name);
        declared("standalone", is_yes_or_no);
        spaces();
        return take("?>");
    }

    // One part of the XML declaration. What is not that part, or breaks its rule, stays to be read.
    bool declared(std::string_view part, bool (*rule)(std::string_view)) {
        const char* const before = at_;
        if (spaces() && take(part) && equals_sign()) {
            const char* const value = at_ + 1;
            if (quoted_value() && rule({value, static_cast<std::size_t>(at_ - 1 - value)})) return true;
        }
        at_ = before;
        return false;
    }

    bool equals_sign() {
        spaces();
        if (!take('=')) return false;
        spaces();
        return true;
    }

    // White space, comments and processing instructions outside the root.
    [[gnu::noinline]] bool around_root() {
        for (;;) {
            spaces();
            if (starts_with("<?")) {
                if (!processing_instruction()) return false;
            } else if (starts_with("<!--")) {
                if (!comment()) return false;
            } else {
                return true;
            }
        }
    }

    [[gnu::always_inline]] bool markup() {
        switch (at_[1]) {
            case '/':
                return end_tag();
            case '?':
                return processing_instruction();
            case '!':
                return at_[2] == '-' ? comment() : cdata_section();
            default:
                return start_tag();
        }
    }

    [[gnu::always_inline]] bool end_tag() {
        at_ += 2;
        --depth_;
        if (!name()) return false;
        spaces();
        return take('>');
    }

    [[gnu::always_inline]] bool start_tag() {
        if (!take('<') || !name()) return false;
        if (take('>')) {
            ++depth_;
            return true;
        }
        return attributes() && (take("/>") || (++depth_, take('>')));
    }

    // The names are kept only from the second attribute of an element on; most elements have one or none.
    [[gnu::always_inline]] bool attributes() {
        std::string_view first;
        names_.clear();
        while (spaces() && *at_ != '>' && *at_ != '/') {
            const char* const start = at_;
            if (!name()) return false;
            const std::string_view attribute(start, static_cast<std::size_t>(at_ - start));
            if (!equals_sign() || !quoted_value()) return false;
            if (first.empty()) {
                first = attribute;
                continue;
            }
            if (names_.empty()) names_.push_back(first);
            names_.push_back(attribute);
        }
        std::sort(names_.begin(), names_.end());
        return std::adjacent_find(names_.begin(), names_.end()) == names_.end();
    }

    const char* at_;
    const char* const end_;
    std::size_t depth_ = 0;
    std::vector<std::string_view> names_;
};

}  // namespace

bool is_strict_xml(const std::string& document) { return Scanner(document).document(); }

}  // namespace prot
