#include <algorithm>
#include <optional>

#include "apps/protcsv/checks/parameter_check.h"
#include "apps/protcsv/checks/parameter_keys.h"
#include "apps/protcsv/options/option_values.h"
#include "apps/protcsv/options/usage_error.h"
#include "platform/automation/date_text.h"

namespace prot {

namespace {

std::string name_of(Command command) { return command == Command::delete_log ? "delete" : "export"; }

const Section* section_named(const std::string& value, SectionTable sections) {
    try {
        return &find_section(value, sections);
    } catch (const UsageError&) {
        return nullptr;
    }
}

/// The commands that have options for the period, the user and the events read none of these keys.
void check_without_effect(const CheckedText& text, Findings& findings) {
    for (const HostItem& item : text.host_items) {
        const std::string option(find_key(item.item)->other);
        if (item.key != "sektion") {
            findings.push_back({about(item.item) + " wirkt bei " + name_of(text.command) +
                                " nicht; nehmen Sie dafür " + option});
            continue;
        }
        const Section* const section = section_named(item.value, text.sections);
        if (section == nullptr || section->number != text.request.section)
            findings.push_back({about(item.item) + " ist nicht der Bereich von --section (" +
                                std::to_string(text.request.section) + "); berichtigen Sie eins von beiden"});
    }
}

const HostItem* first_of(const CheckedText& text, std::string_view key) {
    const auto item = std::ranges::find(text.host_items, key, &HostItem::key);
    return item == text.host_items.end() ? nullptr : &*item;
}

void check_item(const CheckedText& text, const HostItem& item, Findings& findings) {
    const HostItem* const first = first_of(text, item.key);
    if (first != &item)
        findings.push_back({about(item.item) + ": " + std::string(item.key) +
                            " steht mehrmals im Text; lassen Sie nur eine Angabe stehen"});
    // A section that is missing has been said.
    if (item.value.empty() && item.key != "sektion")
        findings.push_back(
            {about(item.item) + " hat keinen Wert; geben Sie einen an oder lassen Sie den Schlüssel weg"});
}

bool is_null_day(std::string_view text) {
    const std::optional<Date> day = read_iso_day(text);
    return (day ? day : read_german_day(text)).value_or(Date{1}).is_null();
}

void check_period(const CheckedText& text, Findings& findings) {
    const HostItem* const from = first_of(text, "datvon");
    const HostItem* const to = first_of(text, "datbis");
    const LogRequest& request = text.request;
    if (to != nullptr && is_null_day(to->value))
        findings.push_back(
            {about(to->item) + " ist der Nulltag und gälte als keine Grenze; nennen Sie einen anderen Tag"});
    if (from != nullptr && to != nullptr && !request.to.is_null() && request.from.serial > request.to.serial)
        findings.push_back({about(from->item) + " liegt hinter „" + to->item +
                                "“, so wird nichts gefunden; vertauschen Sie die Tage",
                            false});
}

void check_events(const CheckedText& text, Findings& findings) {
    if (text.request.events != 0) return;
    const auto item = std::ranges::find_if(
        text.host_items, [](const HostItem& each) { return find_key(each.item)->other == "--events"; });
    if (item != text.host_items.end())
        findings.push_back(
            {about(item->item) +
                 " lässt keine Ereignisse übrig, so wird nichts gefunden; geben Sie neu:1, aend:1 "
                 "oder loe:1 an",
             false});
}

}  // namespace

Findings check_host_keys(const CheckedText& text) {
    Findings findings;
    if (text.command != Command::run) {
        check_without_effect(text, findings);
        return findings;
    }
    for (const HostItem& item : text.host_items) check_item(text, item, findings);
    check_period(text, findings);
    check_events(text, findings);
    return findings;
}

}  // namespace prot
