#include "apps/protcsv/console/console_text_windows.h"

#include <algorithm>

#include "platform/automation/utf16.h"
#include "platform/automation/utf8.h"
#include "platform/windows/text/wide_text.h"

namespace prot {

namespace {

constexpr wchar_t ctrl_z = 0x1A;
constexpr std::size_t longest_text = 4096;

/// How much of `text` are whole characters.
std::size_t whole_size(std::string_view text) {
    for (std::size_t cut = 1; cut <= std::min<std::size_t>(text.size(), 3); ++cut)
        if (begins_character(text.substr(text.size() - cut))) return text.size() - cut;
    return text.size();
}

}  // namespace

ConsoleOutput::int_type ConsoleOutput::overflow(int_type c) {
    if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    const char character = traits_type::to_char_type(c);
    return xsputn(&character, 1) == 1 ? c : traits_type::eof();
}

std::streamsize ConsoleOutput::xsputn(const char* text, std::streamsize size) {
    pending_.append(text, static_cast<std::size_t>(size));
    return pending_.size() < longest_text || show() ? size : 0;
}

int ConsoleOutput::sync() { return show() ? 0 : -1; }

bool ConsoleOutput::show() {
    const std::size_t size = whole_size(pending_);
    const std::wstring wide = to_wide(std::string_view(pending_).substr(0, size));
    pending_.erase(0, size);
    for (std::wstring_view rest = wide; !rest.empty();) {
        std::size_t part = std::min(rest.size(), longest_text);
        if (part < rest.size() && is_high_surrogate(rest[part - 1])) --part;
        if (!write_(rest.substr(0, part))) return false;
        rest.remove_prefix(part);
    }
    return true;
}

ConsoleInput::int_type ConsoleInput::underflow() {
    std::wstring wide = read_();
    // A character that lies in two pieces of the input is read whole.
    while (!wide.empty() && is_high_surrogate(wide.back())) {
        const std::wstring more = read_();
        if (more.empty()) break;
        wide += more;
    }
    if (wide.empty() || wide.front() == ctrl_z) return traits_type::eof();
    text_ = to_utf8(wide);
    setg(text_.data(), text_.data(), text_.data() + text_.size());
    return traits_type::to_int_type(text_.front());
}

}  // namespace prot
