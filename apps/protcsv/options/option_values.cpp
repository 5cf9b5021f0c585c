#include "apps/protcsv/options/option_values.h"

#include <charconv>
#include <optional>
#include <string>

#include "apps/protcsv/options/usage_error.h"
#include "platform/automation/date_text.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/utf8.h"

namespace prot {

namespace {

template <typename T>
struct Word {
    std::string_view text;
    T value;
};

constexpr Word<std::int32_t> event_kinds[] = {{"created", 1}, {"changed", 2}, {"deleted", 4}};
constexpr Word<std::int32_t> event_masks[] = {{"all", 7}, {"none", 0}};
constexpr Word<CsvEncoding> encodings[] = {{"utf-8-bom", CsvEncoding::utf8_bom},
                                           {"utf-8", CsvEncoding::utf8},
                                           {"windows-1252", CsvEncoding::windows_1252}};

template <typename T, std::size_t n>
std::optional<T> find_word(const Word<T> (&words)[n], std::string_view text) {
    for (const Word<T>& word : words)
        if (word.text == text) return word.value;
    return std::nullopt;
}

template <typename T>
std::optional<T> parse_decimal(std::string_view text) {
    T number = 0;
    if (text.empty() || text.front() == '-') return std::nullopt;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::string without_blanks(std::string_view text) {
    std::string result;
    for (const char c : text)
        if (c != ' ') result += c;
    return result;
}

[[noreturn]] void refuse(std::string_view value, std::string_view accepted) {
    throw UsageError("„" + std::string(value) + "“ " + std::string(accepted));
}

std::string names_of(SectionTable sections) {
    std::string names;
    for (const Section& section : sections) {
        if (!names.empty()) names += ", ";
        names += std::to_string(section.number) + " " + std::string(section.name);
    }
    return names;
}

}  // namespace

Date parse_date(std::string_view text) {
    for (const auto read : {read_iso_day, read_german_day})
        if (const std::optional<Date> day = read(text)) return *day;
    refuse(text, "ist kein Datum; erwartet wird JJJJ-MM-TT oder TT.MM.JJJJ");
}

Date parse_last_day_of_deletion(std::string_view text) {
    const Date date = parse_date(text);
    if (date.is_null()) refuse(text, "ist der Nulltag; er stünde für eine Löschung ohne Grenze");
    return date;
}

std::int32_t parse_events(std::string_view text) {
    constexpr std::string_view accepted =
        "ist keine Liste von Ereignissen; erwartet wird created, changed, deleted (durch Komma getrennt), "
        "all, none "
        "oder eine Zahl";
    const std::string list = without_blanks(to_lower(text));
    if (const auto mask = find_word(event_masks, list)) return *mask;
    if (const auto mask = parse_decimal<std::int32_t>(list)) return *mask;
    std::int32_t mask = 0;
    for (std::string_view rest = list;;) {
        const std::size_t comma = rest.find(',');
        const auto kind = find_word(event_kinds, rest.substr(0, comma));
        if (!kind) refuse(text, accepted);
        mask |= *kind;
        if (comma == std::string_view::npos) return mask;
        rest.remove_prefix(comma + 1);
    }
}

const Section& find_section(std::string_view text, SectionTable sections) {
    const std::string name = to_lower(text);
    const std::optional<std::int32_t> number = parse_decimal<std::int32_t>(text);
    for (const Section& section : sections)
        if (section.name == name || section.number == number) return section;
    refuse(text, "ist kein Bereich; es gibt: " + names_of(sections));
}

std::string parse_separator(std::string_view text) {
    if (to_lower(text) == "tab") return "\t";
    const bool one_character = is_valid_utf8(text) && decode_utf8(text).size() == 1;
    constexpr std::string_view refused("\"\r\n\0", 4);
    if (!one_character || refused.find(text[0]) != std::string_view::npos)
        refuse(text, "ist kein Trennzeichen; erwartet wird ein einzelnes Zeichen oder tab");
    return std::string(text);
}

CsvEncoding parse_encoding(std::string_view text) {
    if (const auto encoding = find_word(encodings, to_lower(text))) return *encoding;
    refuse(text, "ist keine Kodierung; erwartet wird utf-8-bom, utf-8 oder windows-1252");
}

std::uint64_t parse_number(std::string_view text, std::uint64_t least, std::uint64_t most) {
    const auto number = parse_decimal<std::uint64_t>(text);
    if (number && *number >= least && *number <= most) return *number;
    refuse(text, "ist keine ganze Zahl von " + std::to_string(least) + " bis " + std::to_string(most));
}

}  // namespace prot
