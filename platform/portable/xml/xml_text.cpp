#include "platform/portable/xml/xml_text.h"

#include <algorithm>

#include "platform/automation/utf8.h"

namespace prot::xml {

void append_text(std::string& text, Stretch stretch) {
    const bool is_value = stretch.form == Form::attribute_value;
    const bool has_references = stretch.form != Form::cdata_section;
    const char* at = stretch.raw.data();
    const char* const end = at + stretch.raw.size();
    const auto stands_for_itself = [&](char byte) {
        return byte != '\r' && !(byte == '&' && has_references) && !(is_value && is(byte, white_space));
    };
    while (at != end) {
        const char* const plain = std::find_if_not(at, end, stands_for_itself);
        text.append(at, plain);
        at = plain;
        if (at == end) return;
        if (*at == '&') {
            const Reference found = reference(at);
            char character[4];
            text.append(character, put_utf8(character, found.code_point));
            at = found.end;
        } else {
            const bool two = *at == '\r' && end - at > 1 && at[1] == '\n';
            text += is_value ? ' ' : '\n';
            at += two ? 2 : 1;
        }
    }
}

}  // namespace prot::xml
