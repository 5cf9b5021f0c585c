#include "tests/odbc/double/transfer.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace prot::odbc_double {

namespace {

Failure no_value(std::string_view text) {
    return {"22018", 0, "Invalid character value: " + std::string(text)};
}

template <class Value>
std::string bytes(const Value& value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

template <class Number>
Number number_of(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) throw no_value(text);
    return number;
}

/// "yyyy-mm-dd", and " hh:mm:ss" and a fraction of up to nine digits behind it.
SQL_TIMESTAMP_STRUCT timestamp_of(std::string_view text) {
    SQL_TIMESTAMP_STRUCT time{};
    char fraction[10] = "";
    const int read =
        std::sscanf(std::string(text).c_str(), "%4hd-%2hu-%2hu %2hu:%2hu:%2hu.%9[0-9]", &time.year,
                    &time.month, &time.day, &time.hour, &time.minute, &time.second, fraction);
    if (read != 3 && read < 6) throw no_value(text);
    std::string nanoseconds(fraction);
    nanoseconds.resize(9, '0');
    time.fraction = number_of<SQLUINTEGER>(nanoseconds);
    return time;
}

}  // namespace

std::string bytes_of(std::string_view text, SQLSMALLINT c_type) {
    switch (c_type) {
        case SQL_C_SBIGINT:
            return bytes(number_of<SQLBIGINT>(text));
        case SQL_C_DOUBLE:
            return bytes(number_of<SQLDOUBLE>(text));
        case SQL_C_FLOAT:
            return bytes(number_of<SQLREAL>(text));
        case SQL_C_BIT:
            return bytes(static_cast<SQLCHAR>(text == "0" ? 0 : 1));
        case SQL_C_TYPE_TIMESTAMP:
            return bytes(timestamp_of(text));
        case SQL_C_BINARY:
            return std::string(text);
        case SQL_C_WCHAR: {
            const OdbcText units = to_odbc(text);
            return {reinterpret_cast<const char*>(units.data()), units.size() * sizeof(SQLWCHAR)};
        }
        default:
            throw Failure("HYC00", 0, "This driver delivers no such type of C");
    }
}

std::size_t ending_of(SQLSMALLINT c_type) { return c_type == SQL_C_WCHAR ? sizeof(SQLWCHAR) : 0; }

std::string text_of(const SQLWCHAR* units, SQLINTEGER size) {
    return size == SQL_NTS ? from_odbc(units, std::char_traits<SQLWCHAR>::length(units))
                           : from_odbc(units, static_cast<std::size_t>(size));
}

bool put_text(std::string_view text, SQLWCHAR* target, SQLSMALLINT room, SQLSMALLINT* size) {
    const OdbcText units = to_odbc(text);
    if (size != nullptr) *size = static_cast<SQLSMALLINT>(units.size());
    if (target == nullptr || room <= 0) return true;
    const std::size_t taken = std::min(units.size(), static_cast<std::size_t>(room) - 1);
    std::copy_n(units.data(), taken, target);
    target[taken] = 0;
    return taken == units.size();
}

}  // namespace prot::odbc_double
