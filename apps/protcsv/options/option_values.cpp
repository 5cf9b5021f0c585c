#include "apps/protcsv/options/option_values.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <vector>

#include "apps/protcsv/options/suggestion.h"
#include "apps/protcsv/options/usage_error.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_parts.h"
#include "platform/automation/utf8.h"

namespace prot {

namespace {

template <typename T>
struct Word {
    std::string_view text;
    T value;
};

constexpr Word<std::int32_t> event_kinds[] = {{"created", 1},  {"changed", 2},   {"deleted", 4},
                                              {"angelegt", 1}, {"geändert", 2},  {"gelöscht", 4},
                                              {"neu", 1},      {"geaendert", 2}, {"geloescht", 4}};
constexpr Word<std::int32_t> event_masks[] = {{"all", 7}, {"none", 0}, {"alle", 7}, {"keine", 0}};
constexpr Word<CsvEncoding> encodings[] = {{"utf-8-bom", CsvEncoding::utf8_bom},
                                           {"utf-8", CsvEncoding::utf8},
                                           {"windows-1252", CsvEncoding::windows_1252}};

constexpr Word<Shell> shells[] = {{"bash", Shell::bash}, {"zsh", Shell::zsh}, {"fish", Shell::fish}};

template <typename T, std::size_t n>
void add_words(std::vector<std::string_view>& texts, const Word<T> (&words)[n]) {
    for (const Word<T>& word : words) texts.push_back(word.text);
}

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

/// A name as it is compared: in small letters, without the blanks and dashes between its words.
std::string compact(std::string_view name) {
    std::string result = to_lower(name);
    std::erase_if(result, [](char c) { return c == ' ' || c == '-'; });
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

std::int32_t parse_events(std::string_view text) {
    constexpr std::string_view accepted =
        "ist keine Liste von Ereignissen; erwartet wird created, changed, deleted oder angelegt, geändert, "
        "gelöscht (durch Komma getrennt), all, none oder eine Summe aus 1, 2 und 4";
    const std::string list = without_blanks(to_lower(text));
    if (const auto mask = find_word(event_masks, list)) return *mask;
    if (const auto mask = parse_decimal<std::int32_t>(list)) {
        if (*mask != 0 && (*mask & all_events) == 0) refuse(text, accepted);
        return *mask;
    }
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
    const std::string name = compact(text);
    const std::optional<std::int32_t> number = parse_decimal<std::int32_t>(text);
    std::vector<std::string_view> names;
    for (const Section& section : sections) {
        if (section.number == number || compact(section.name) == name || compact(section.title) == name)
            return section;
        names.insert(names.end(), {section.name, section.title});
    }
    const std::string meant = suggestion(text, names);
    refuse(text, "ist kein Bereich" + (meant.empty() ? "; es gibt: " + names_of(sections) : meant));
}

std::vector<std::int32_t> parse_sections(std::string_view text, SectionTable sections) {
    std::vector<std::int32_t> numbers;
    if (const std::string word = compact(text); word == "all" || word == "alle") {
        for (const Section& section : sections) numbers.push_back(section.number);
        return numbers;
    }
    for (const std::string& part : split(text, ',')) {
        const std::int32_t number = find_section(trim_blanks(part), sections).number;
        if (std::ranges::find(numbers, number) != numbers.end()) refuse(text, "nennt einen Bereich zweimal");
        numbers.push_back(number);
    }
    return numbers;
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

Shell parse_shell(std::string_view text) {
    if (const auto shell = find_word(shells, text)) return *shell;
    refuse(text,
           "ist keine Shell, für die es eine Vervollständigung gibt; erwartet wird bash, zsh oder fish");
}

std::vector<std::string_view> words_of_events() {
    std::vector<std::string_view> texts;
    add_words(texts, event_kinds);
    add_words(texts, event_masks);
    return texts;
}

std::vector<std::string_view> words_of_encodings() {
    std::vector<std::string_view> texts;
    add_words(texts, encodings);
    return texts;
}

std::vector<std::string_view> words_of_shells() {
    std::vector<std::string_view> texts;
    add_words(texts, shells);
    return texts;
}

std::uint64_t parse_number(std::string_view text, std::uint64_t least, std::uint64_t most) {
    const auto number = parse_decimal<std::uint64_t>(text);
    if (number && *number >= least && *number <= most) return *number;
    refuse(text, "ist keine ganze Zahl von " + std::to_string(least) + " bis " + std::to_string(most));
}

}  // namespace prot
