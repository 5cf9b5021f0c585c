#include "platform/portable/tsql/tsql_literals.h"

#include <charconv>
#include <cstdint>

#include "platform/portable/tsql/tsql_lexemes.h"
#include "platform/portable/tsql/tsql_tokens.h"

namespace prot {

namespace {

// No characters of a statement, outside texts and names.
constexpr char text_mark = '\1';
constexpr char number_mark = '\2';

std::optional<TsqlParameter> number_value(std::string_view digits, bool negative) {
    const char* const end = digits.data() + digits.size();
    std::int64_t integer = 0;
    const auto whole = std::from_chars(digits.data(), end, integer);
    if (whole.ec == std::errc() && whole.ptr == end) return negative ? -integer : integer;
    double real = 0.0;
    if (std::from_chars(digits.data(), end, real).ec != std::errc()) return std::nullopt;
    return negative ? -real : real;
}

}  // namespace

std::optional<TsqlParameter> literal_value(std::string_view literal, bool negative) {
    if (literal.ends_with('\'')) return string_of(literal);
    return number_value(literal, negative);
}

bool take_shape(std::string_view sql, TsqlShape& shape) {
    shape.text.clear();
    shape.literals.clear();
    while (!sql.empty()) {
        const char first = sql.front();
        if (first == text_mark || first == number_mark) return false;
        const bool is_text = first == '\'';
        const std::size_t literal = is_text ? tsql_quoted_size(sql, '\'') : tsql_number_size(sql);
        if (literal == std::string_view::npos) return false;
        const std::size_t other = starts_tsql_name(first) ? tsql_name_size(sql) : 1;
        if (literal == 0) {
            shape.text += sql.substr(0, other);
        } else {
            shape.text += is_text ? text_mark : number_mark;
            shape.literals.push_back(sql.substr(0, literal));
        }
        sql.remove_prefix(literal == 0 ? other : literal);
    }
    return true;
}

}  // namespace prot
