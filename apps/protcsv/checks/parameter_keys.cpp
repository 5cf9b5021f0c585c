#include "apps/protcsv/checks/parameter_keys.h"

#include <algorithm>

#include "platform/automation/letter_case.h"
#include "platform/automation/text_parts.h"

namespace prot {

namespace {

// clang-format off
constexpr KeyRow key_rows[] = {
    {"autostart",         KeyKind::flag},
    {"sektion",           KeyKind::host, "--section"},
    {"mitarbeiter",       KeyKind::host, "--user"},
    {"datvon",            KeyKind::host, "--from"},
    {"datbis",            KeyKind::host, "--to"},
    {"neu",               KeyKind::host, "--events"},
    {"aend",              KeyKind::host, "--events"},
    {"loe",               KeyKind::host, "--events"},
    {"mandant",           KeyKind::selection},
    {"wirtschaftsjahr",   KeyKind::selection},
    {"vonkonto",          KeyKind::selection},
    {"biskonto",          KeyKind::selection},
    {"vondevi",           KeyKind::selection},
    {"bisdevi",           KeyKind::selection},
    {"stdkanz",           KeyKind::selection},
    {"auswertung",        KeyKind::selection},
    {"auswertungsrahmen", KeyKind::selection},
    {"awraend",           KeyKind::selection},
    {"kontenrahmen",      KeyKind::selection},
    {"mandantbis",        KeyKind::range_end, "mandant"},
    {"mitarbeiterbis",    KeyKind::range_end, "mitarbeiter"},
    {"login",             KeyKind::suite},
    {password_key,        KeyKind::suite},
    {"nowindow",          KeyKind::suite},
    {"dsgvo",             KeyKind::suite},
    {"änderungsaktion",   KeyKind::suite},
    {"fehlermeldung",     KeyKind::suite},
};
// clang-format on

}  // namespace

std::span<const KeyRow> parameter_keys() { return key_rows; }

const KeyRow* find_key(std::string_view item) {
    const std::string name = to_lower(key_of(item));
    const auto row = std::ranges::find(key_rows, std::string_view(name), &KeyRow::name);
    return row == std::end(key_rows) ? nullptr : &*row;
}

std::string_view key_of(std::string_view item) {
    item = trim_blanks(item);
    std::size_t end = item.find(':');
    if (end == std::string_view::npos) end = item.find_first_of("= ");
    return trim_blanks(item.substr(0, end));
}

std::string_view key_name(std::string_view key) {
    if (key.ends_with(':')) key.remove_suffix(1);
    return key;
}

bool begins_part(std::string_view item, std::string_view parameters) {
    const std::string_view beginning = trim_blanks(item.substr(0, item.find('/')));
    const std::vector<std::string> parts = split(parameters, '/');
    return std::ranges::any_of(parts,
                               [&](const std::string& part) { return trim_blanks(part) == beginning; });
}

bool is_rest_of_password(std::string_view item, std::string_view parameters) {
    bool behind_password = false;
    for (const std::string& part : split(parameters, '/')) {
        if (const KeyRow* const row = find_key(part))
            behind_password = row->name == password_key;
        else if (behind_password && trim_blanks(part) == item)
            return true;
    }
    return false;
}

}  // namespace prot
