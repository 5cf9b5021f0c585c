#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/xml/xml_grammar.h"

namespace prot::xml {

/// What one document may leave behind for the next.
inline constexpr std::size_t kept_bytes = 1 << 20;

template <class Container>
void clear_kept(Container& container) {
    container.clear();
    if (container.capacity() * sizeof(*container.data()) > kept_bytes) Container().swap(container);
}

/// Reads documents (UTF-8, a byte order mark at the start allowed) and checks on the way that each is a
/// well-formed XML 1.0 document: one root and only white space, comments and processing instructions around
/// it; valid UTF-8 and XML characters throughout; the XML declaration only at the start; names, tags,
/// attributes, references, comments and CDATA sections as the grammar has them; no attribute twice; every end
/// tag names the element that it ends. A document type is refused altogether, so only the five predefined
/// entities exist. Names without regard to namespaces.
///
/// One pass, no recursion; time proportional to the document, n log n for the attributes of one element;
/// memory for the depth, and for elements of several attributes.
///
/// What is found goes to the Handler as the pass goes on, as views into the document:
///     void begin_element(std::string_view name);
///     void attribute(std::string_view name, Stretch value);   of the element begun last
///     void text(Stretch text);                                a piece of text or CDATA, never empty
///     void end_element();                                     of the one begun last and not yet ended
template <class Handler>
class Scanner {
public:
    explicit Scanner(Handler& handler) : handler_(handler) {}

    /// Whether `document` is well-formed. If not, the handler has heard of its beginning only. Throws nothing
    /// of its own but std::bad_alloc.
    bool scan(const std::string& document) {
        clear_kept(open_);
        clear_kept(names_);
        end_ = document.data() + document.size();
        const char* at = prolog(document.data(), end_);
        if (at == nullptr || *at != '<') return false;
        at = start_tag(at);
        while (at != nullptr && !open_.empty()) at = content(at);
        return at != nullptr && around_root(at, end_) == end_;
    }

private:
    // Text up to the next markup, and that.
    [[gnu::always_inline]] const char* content(const char* at) {
        const char* const text = at;
        Form form = Form::plain;
        at = character_data(at, end_, form);
        if (at == nullptr) return nullptr;
        if (at != text) handler_.text({between(text, at), form});
        switch (at[1]) {
            case '/':
                return end_tag(at);
            case '?':
                return processing_instruction(at, end_);
            case '!':
                return at[2] == '-' ? comment(at, end_) : cdata(at);
            default:
                return start_tag(at);
        }
    }

    const char* cdata(const char* at) {
        const char* const end = cdata_section(at, end_);
        if (end == nullptr) return nullptr;
        const std::string_view text = between(at + cdata_start.size(), end - cdata_end.size());
        if (!text.empty()) handler_.text({text, Form::cdata_section});
        return end;
    }

    [[gnu::always_inline]] const char* start_tag(const char* at) {
        const char* const begin = at + 1;
        at = name(begin, end_);
        if (at == nullptr) return nullptr;
        handler_.begin_element(between(begin, at));
        if (*at != '>') {
            at = attributes(at);
            if (at == nullptr) return nullptr;
            if (starts_with(at, "/>")) {
                handler_.end_element();
                return at + 2;
            }
            if (*at != '>') return nullptr;
        }
        open_.push_back(begin);
        return at + 1;
    }

    // The name in the start tag is still there to compare with; what ends it belongs to no name.
    [[gnu::always_inline]] const char* end_tag(const char* at) {
        at += 2;
        const char* begun = open_.back();
        for (; *at == *begun && !is(*begun, name_end); ++at) ++begun;
        if (!is(*begun, name_end)) return nullptr;
        open_.pop_back();
        handler_.end_element();
        at = skip<white_space>(at);
        return *at == '>' ? at + 1 : nullptr;
    }

    // The names are kept only from the second attribute of an element on; most elements have one or none.
    [[gnu::always_inline]] const char* attributes(const char* at) {
        std::string_view first;
        for (;;) {
            const char* const begin = skip<white_space>(at);
            if (begin == at || *begin == '>' || *begin == '/') {
                at = begin;
                break;
            }
            at = name(begin, end_);
            if (at == nullptr) return nullptr;
            const std::string_view attribute = between(begin, at);
            at = equals_sign(at);
            if (at == nullptr) return nullptr;
            const char* const value = at + 1;
            Form form = Form::plain;
            at = quoted_value(at, end_, form);
            if (at == nullptr) return nullptr;
            handler_.attribute(attribute, {between(value, at - 1), form});
            if (first.empty()) {
                first = attribute;
            } else {
                remember(first, attribute);
            }
        }
        return names_.empty() || are_different() ? at : nullptr;
    }

    [[gnu::noinline]] void remember(std::string_view first, std::string_view attribute) {
        if (names_.empty()) names_.push_back(first);
        names_.push_back(attribute);
    }

    [[gnu::noinline]] bool are_different() {
        std::sort(names_.begin(), names_.end());
        const bool different = std::adjacent_find(names_.begin(), names_.end()) == names_.end();
        names_.clear();
        return different;
    }

    Handler& handler_;
    const char* end_ = nullptr;
    std::vector<const char*> open_;        // the names of the open elements, in their start tags
    std::vector<std::string_view> names_;  // of one element's attributes, if it has several
};

}  // namespace prot::xml
