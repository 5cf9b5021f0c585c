#include "apps/protcsv/options/run_parameters.h"

#include <algorithm>
#include <string>

#include "apps/protcsv/options/days.h"
#include "apps/protcsv/options/option_values.h"
#include "apps/protcsv/options/usage_error.h"
#include "core/Prot0000UtilitiesBAS.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_parts.h"

namespace prot {

namespace {

struct EventKey {
    std::string_view key;
    std::int32_t bit;
};
constexpr EventKey event_keys[] = {{"neu", 1}, {"aend", 2}, {"loe", 4}};

bool parse_flag(std::string_view text) {
    const std::string word = to_lower(text);
    if (word == "1" || word == "ja") return true;
    if (word == "0" || word == "nein") return false;
    throw UsageError("„" + std::string(text) + "“ ist weder 1 oder ja noch 0 oder nein");
}

constexpr std::string_view own_keys[] = {"sektion", "mitarbeiter", "datvon", "datbis", "neu", "aend", "loe"};

class Reader {
public:
    explicit Reader(const std::vector<HostItem>& items) : items_(items) {}

    std::vector<std::string> errors;

    /// Hands the value of `key`, when it is given, to `use`; says whether it was given.
    template <typename Use>
    bool read(std::string_view key, Use use) {
        const auto item = std::ranges::find(items_, key, &HostItem::key);
        if (item == items_.end() || item->value.empty()) return false;
        try {
            use(item->value);
        } catch (const UsageError& error) {
            errors.push_back("--params: " + std::string(key) + ": " + error.what());
        }
        return true;
    }

private:
    const std::vector<HostItem>& items_;
};

}  // namespace

std::span<const std::string_view> host_keys() { return own_keys; }

std::vector<HostItem> host_items(std::string_view parameters, Environment& environment) {
    std::vector<HostItem> items;
    for (const std::string& item : split(parameters, '/'))
        for (const std::string_view key : own_keys)
            if (pbCommandVorhanden(item, std::string(key) + ':'))
                items.push_back({key, std::string(trim_blanks(item)),
                                 std::string(trim_blanks(psComWert("/" + item, environment)))});
    return items;
}

RunParameters read_run_parameters(std::string_view parameters, SectionTable sections,
                                  Environment& environment) {
    const std::vector<HostItem> items = host_items(parameters, environment);
    Reader reader(items);
    LogRequest request;
    const auto read_section = [&](const std::string& text) {
        request.section = find_section(text, sections).number;
    };
    if (!reader.read("sektion", read_section))
        reader.errors.emplace_back("--params: sektion fehlt, etwa /sektion:15/autostart");
    reader.read("mitarbeiter", [&](const std::string& text) { request.user = text; });
    const Date today = to_date(environment.clock.now());
    reader.read("datvon", [&](const std::string& text) { request.from = parse_days(text, today).first; });
    reader.read("datbis", [&](const std::string& text) { request.to = parse_days(text, today).last; });

    bool any_event_key = false;
    std::int32_t events = 0;
    for (const EventKey& event : event_keys)
        any_event_key |= reader.read(
            event.key, [&](const std::string& text) { events |= parse_flag(text) ? event.bit : 0; });
    if (any_event_key) request.events = events;
    return {request, std::move(reader.errors)};
}

}  // namespace prot
