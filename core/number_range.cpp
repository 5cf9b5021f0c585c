#include "core/number_range.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "platform/automation/error.h"
#include "platform/automation/text_parts.h"

namespace prot {

std::string plain_number(double number) {
    if (!std::isfinite(number))
        throw AutomationError(ErrorNumber::overflow, "Überlauf: Zahl jenseits aller darstellbaren");
    std::array<char, 400> digits;  // the longest Double has 309 before the point
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
    return {digits.data(), end.ptr};
}

bool is_number_entry(std::string_view text) {
    std::string_view digits = trim_blanks(text);
    if (digits.empty()) return true;
    if (digits.starts_with('-') || digits.starts_with('+')) digits.remove_prefix(1);
    return !digits.empty() && std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; });
}

std::optional<RangeRefusal> refusal_of(const NumberRange& range) {
    constexpr std::size_t from = 0, to = 1;
    const struct {
        bool failed;
        RangeRefusal refusal;
    } checks[] = {
        {range.from <= 0 || range.to <= 0,
         {"Die Werte in den Eingabefeldern 'von/bis Nummer' müssen größer 0 sein!",
          range.from <= 0 ? from : to}},
        // The next two cannot fail behind the first; their order is kept, deliberately.
        {range.from <= 0, {"Bitte geben Sie an, ab welcher Nummer die Ausgabe erfolgen soll.", from}},
        {range.to <= 0, {"Bitte geben Sie an, bis zu welcher Nummer die Ausgabe erfolgen soll.", to}},
        {range.to < range.from,
         {"Der Wert im Feld 'bis Nummer' darf nicht kleiner sein als der Wert im Feld 'von Nummer' !", to}},
    };
    for (const auto& check : checks)
        if (check.failed) return check.refusal;
    return std::nullopt;
}

}  // namespace prot
