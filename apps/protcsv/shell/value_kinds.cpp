#include "apps/protcsv/shell/value_kinds.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "apps/protcsv/options/option_values.h"

namespace prot {

namespace {

using Words = std::vector<std::string>;

Words as_texts(const std::vector<std::string_view>& words) { return {words.begin(), words.end()}; }

Words section_words(SectionTable sections) {
    Words words;
    for (const Section& section : sections) words.emplace_back(section.name);
    return words;
}

Words section_words_and_all(SectionTable sections) {
    Words words = section_words(sections);
    words.emplace_back("all");
    return words;
}

// clang-format off
constexpr ValueRow value_rows[] = {
    {"BEREICHE",      ValueKind::words,  section_words_and_all},
    {"DATEI",         ValueKind::file,   nullptr},
    {"DATUM",         ValueKind::word,   [](SectionTable) { return Words{"heute", "gestern"}; }},
    {"KODIERUNG",     ValueKind::word,   [](SectionTable) { return as_texts(words_of_encodings()); }},
    {"LISTE",         ValueKind::words,  [](SectionTable) { return as_texts(words_of_events()); }},
    {"NAME",          ValueKind::text,   nullptr},
    {"NR|NAME",       ValueKind::word,   section_words},
    {"ORDNER",        ValueKind::folder, nullptr},
    {"SEKUNDEN",      ValueKind::text,   nullptr},
    {"TEXT",          ValueKind::text,   nullptr},
    {"ZAHL",          ValueKind::text,   nullptr},
    {"ZEICHEN",       ValueKind::word,   [](SectionTable) { return Words{"tab"}; }},
    {"ZIEL",          ValueKind::file,   nullptr},
    {"1|2",           ValueKind::word,   [](SectionTable) { return Words{"1", "2"}; }},
    {"bash|zsh|fish", ValueKind::word,   [](SectionTable) { return as_texts(words_of_shells()); }},
};
// clang-format on

}  // namespace

const ValueRow& values_called(std::string_view value_name) {
    const auto row = std::ranges::find(value_rows, value_name, &ValueRow::value_name);
    if (row == std::end(value_rows)) throw std::out_of_range(std::string(value_name));
    return *row;
}

std::vector<std::string> words_of(const ValueRow& values, SectionTable sections) {
    return values.words == nullptr ? Words() : values.words(sections);
}

std::vector<const OptionRow*> shown_options(const CommandRow& command) {
    std::vector<const OptionRow*> rows;
    for (const OptionRow& row : option_table())
        if (row.commands & set_of(command.command) && !row.group.empty()) rows.push_back(&row);
    return rows;
}

const OptionRow* argument_of(const CommandRow& command) {
    const auto rows = shown_options(command);
    const auto row = std::ranges::find_if(rows, &OptionRow::is_positional);
    return row == rows.end() ? nullptr : *row;
}

std::string joined(std::span<const std::string> words, std::string_view separator) {
    std::string text;
    for (const std::string& word : words) {
        if (!text.empty()) text += separator;
        text += word;
    }
    return text;
}

std::vector<std::string> command_words() {
    Words words;
    for (const CommandRow& row : command_table()) words.emplace_back(row.name);
    words.emplace_back(help_command);
    return words;
}

std::string for_each_command(const std::function<std::string(const CommandRow&)>& each) {
    std::string text;
    for (const CommandRow& row : command_table()) text += each(row);
    return text;
}

}  // namespace prot
