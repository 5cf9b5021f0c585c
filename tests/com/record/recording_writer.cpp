#include "tests/com/record/recording_writer.h"

#include <charconv>
#include <cmath>
#include <fstream>
#include <stdexcept>
#include <type_traits>

#include "platform/automation/utf8.h"

namespace prot::recording {

namespace {

std::string escaped(std::string_view text) {
    std::string result;
    for (const char letter : text) {
        constexpr std::string_view special = "\t\r\n\\", names = "trn\\";
        const std::size_t at = special.find(letter);
        if (at == std::string_view::npos)
            result += letter;
        else
            result.append("\\").append(1, names[at]);
    }
    return result;
}

std::string number_text(double number) {
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, number).ptr;
    return {text, end};
}

void append_unit(std::string& bytes, char32_t unit) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8 & 0xFF);
}

std::string utf16le(std::string_view utf8) {
    std::string bytes = "\xFF\xFE";
    for (const char32_t point : decode_utf8(utf8)) {
        if (point < 0x10000) {
            append_unit(bytes, point);
        } else {
            append_unit(bytes, 0xD800 + ((point - 0x10000) >> 10));
            append_unit(bytes, 0xDC00 + ((point - 0x10000) & 0x3FF));
        }
    }
    return bytes;
}

}  // namespace

std::string field_of(Date date) {
    constexpr double seconds_per_day = 86400;
    const double days = std::trunc(date.serial);
    const double seconds = std::round(std::fabs(date.serial - days) * seconds_per_day);
    return number_text(days) + ":" + number_text(seconds);
}

std::string cell_of(const Value& value) {
    return std::visit(
        [](const auto& content) -> std::string {
            using Content = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<Content, std::monostate>)
                return "N";
            else if constexpr (std::is_same_v<Content, bool> || std::is_same_v<Content, std::int64_t>)
                return "I" + std::to_string(static_cast<std::int64_t>(content));
            else if constexpr (std::is_same_v<Content, double>)
                return "R" + number_text(content);
            else if constexpr (std::is_same_v<Content, Date>)
                return "D" + field_of(content);
            else
                return "T" + content;
        },
        value);
}

void RecordingWriter::add(std::initializer_list<std::string_view> fields) {
    std::string_view separator;
    for (const std::string_view field : fields) {
        text_.append(separator).append(escaped(field));
        separator = "\t";
    }
    text_ += '\n';
}

void RecordingWriter::add_rows(std::string_view sql, const RowSet& rows) {
    add({"query_array", sql, std::to_string(rows.columns()), std::to_string(rows.rows())});
    for (std::size_t row = 0; row < rows.rows(); ++row) {
        text_ += "row";
        for (std::size_t column = 0; column < rows.columns(); ++column)
            text_.append("\t").append(escaped(cell_of(rows.at(column, row).value())));
        text_ += '\n';
    }
}

void RecordingWriter::save(const std::string& path) const {
    std::ofstream file(path, std::ios::binary);
    file << utf16le(text_) << std::flush;
    if (!file) throw std::runtime_error("cannot write " + path);
}

}  // namespace prot::recording
