#include "apps/protcsv/options/output_name.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "apps/protcsv/options/usage_error.h"
#include "core/batch_item.h"
#include "core/number_range.h"
#include "platform/automation/ascii.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_forms.h"
#include "platform/automation/text_parts.h"
#include "platform/portable/files/paths.h"

namespace prot {

namespace {

constexpr std::string_view client_word = "client";

std::string numbers(const char* format, int one, int two, int three) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), format, one, two, three);
    return text.data();
}

struct Placeholder {
    std::string_view name;
    std::string (*text)(const OutputFacts& facts);
};

// clang-format off
constexpr Placeholder words[] = {
    {"section",   [](const OutputFacts& facts) { return std::string(facts.section); }},
    {client_word, [](const OutputFacts& facts) { return facts.client; }},
    {"date",      [](const OutputFacts& facts) { return numbers("%04d%02d%02d", facts.now.year, facts.now.month, facts.now.day); }},
    {"time",      [](const OutputFacts& facts) { return numbers("%02d%02d%02d", facts.now.hour, facts.now.minute, facts.now.second); }},
};
// clang-format on

[[noreturn]] void refuse_word(std::string_view word) {
    throw UsageError("„" + std::string(word) +
                     "“ ist kein Platzhalter; es gibt {section}, {client}, {date} und {time}");
}

/// "k7" for an office, "123" for a client whether or not an m stands before it; empty when it names none.
std::string client_number(std::string_view value) {
    const char first = value.empty() ? '\0' : to_lower(value.substr(0, 1))[0];
    if (first == 'k' || first == 'm') value.remove_prefix(1);
    if (val(value) <= 0) return {};
    return (first == 'k' ? "k" : "") + plain_number(val(value));
}

bool is_ending(const std::string& extension) { return std::ranges::any_of(extension, is_ascii_letter); }

}  // namespace

std::string output_name(std::string_view pattern, const OutputFacts& facts) {
    std::string name;
    for (;;) {
        const std::size_t begin = pattern.find('{');
        name += pattern.substr(0, begin);
        if (begin == std::string_view::npos) return name;
        const std::size_t end = std::min(pattern.find('}', begin), pattern.size());
        const std::string_view word = pattern.substr(begin + 1, end - begin - 1);
        const Placeholder* const found = std::ranges::find(words, word, &Placeholder::name);
        if (end == pattern.size() || found == std::end(words))
            refuse_word(pattern.substr(begin, end + 1 - begin));
        name += found->text(facts);
        pattern.remove_prefix(end + 1);
    }
}

void require_output_pattern(std::string_view pattern) { output_name(pattern, {}); }

bool asks_for_client(std::string_view pattern) {
    return pattern.find("{" + std::string(client_word) + "}") != std::string_view::npos;
}

std::string client_of(std::string_view parameters, Environment& environment) {
    std::string client;
    bool autostart = false;
    for (const std::string& text : split(parameters, '/')) {
        const BatchItem item(text, environment);
        autostart = autostart || item.is("autostart");
        if (!autostart || !item.is("mandant:")) continue;
        if (std::string number = client_number(item.value()); !number.empty()) client = std::move(number);
    }
    return client.empty() ? "alle" : client;
}

std::string with_csv_ending(const std::string& name, const std::filesystem::path& folder) {
    const std::filesystem::path path = text_path(name);
    if (!path.has_filename() || is_ending(path_text(path.extension()))) return name;
    std::error_code ignored;
    const std::filesystem::file_status status = std::filesystem::status(joined_path(folder, path), ignored);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) return name;
    return name + ".csv";
}

}  // namespace prot
