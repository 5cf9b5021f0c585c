#include "platform/automation/text_parts.h"

namespace prot {

std::string_view trim_blanks(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

void append_doubled(std::string& text, std::string_view part, char delimiter) {
    for (std::size_t end = part.find(delimiter); end != std::string_view::npos; end = part.find(delimiter)) {
        text += part.substr(0, end + 1);
        text += delimiter;
        part.remove_prefix(end + 1);
    }
    text += part;
}

void append_quoted(std::string& text, std::string_view part, char delimiter) {
    text += delimiter;
    append_doubled(text, part, delimiter);
    text += delimiter;
}

std::string replaced(std::string text, std::string_view mark, std::string_view replacement) {
    for (std::size_t at = text.find(mark); at != std::string::npos;
         at = text.find(mark, at + replacement.size()))
        text.replace(at, mark.size(), replacement);
    return text;
}

}  // namespace prot
