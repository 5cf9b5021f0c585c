#include "platform/portable/tsql/tsql_lexemes.h"

namespace prot {

namespace {

char look(std::string_view text, std::size_t at) { return at < text.size() ? text[at] : '\0'; }

std::size_t behind_digits(std::string_view text, std::size_t at) {
    while (is_ascii_digit(look(text, at))) ++at;
    return at;
}

}  // namespace

std::size_t tsql_name_size(std::string_view text) {
    std::size_t size = 1;
    while (continues_tsql_name(look(text, size))) ++size;
    return size;
}

std::size_t tsql_number_size(std::string_view text) {
    if (!is_ascii_digit(look(text, look(text, 0) == '.' ? 1 : 0))) return 0;
    std::size_t size = behind_digits(text, 0);
    if (look(text, size) == '.') size = behind_digits(text, size + 1);
    if (look(text, size) == 'e' || look(text, size) == 'E') {
        const std::size_t sign = look(text, size + 1) == '+' || look(text, size + 1) == '-' ? 1 : 0;
        if (is_ascii_digit(look(text, size + 1 + sign))) size = behind_digits(text, size + 1 + sign);
    }
    return size;
}

std::size_t tsql_quoted_size(std::string_view text, char delimiter) {
    for (std::size_t end = 1;; end += 2) {
        end = text.find(delimiter, end);
        if (end == std::string_view::npos) return end;
        if (look(text, end + 1) != delimiter) return end + 1;
    }
}

}  // namespace prot
