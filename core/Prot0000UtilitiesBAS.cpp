#include "core/Prot0000UtilitiesBAS.h"

#include <algorithm>

#include "core/ZQErrorHandling.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_parts.h"
#include "platform/automation/utf8.h"

namespace prot {

namespace {

constexpr std::string_view owner = "Prot0000UtilitiesBAS";
constexpr std::string_view flag_autostart = "autostart";
constexpr std::string_view key_framework = "auswertungsrahmen:";

/// The keys of a scan, in the order in which their items come out. Those without a colon are deliberate: the
/// scan finds "vonkonto" also in an item vonkonto:1000. "aend:" is also found inside "awraend:".
constexpr std::string_view scanned_keys[] = {
    "login:",   "pwd:",          "nowindow:",   "sektion:",    "mitarbeiter:",     "datvon:",
    "datbis:",  "neu:",          "aend:",       "loe:",        "mandant:",         "mandantbis:",
    "stdkanz:", "kontenrahmen:", "auswertung:", key_framework, "awraend:",         "wirtschaftsjahr:",
    "vonkonto", "biskonto",      "vondevi",     "bisdevi",     "änderungsaktion:", "fehlermeldung:",
};

std::vector<std::string> scan(std::string_view sCommandline, bool bMitAutostart, Environment& environment) {
    std::vector<std::string> parts(1);
    const auto keep = [&](std::string_view key) {
        if (std::string item = gbCommandOk(key, sCommandline, environment); !item.empty())
            parts.push_back(std::move(item));
    };
    if (bMitAutostart) keep(flag_autostart);
    for (const std::string_view key : scanned_keys) keep(key);
    return parts;
}

bool is_scanned(std::string_view sCommandline) {
    return to_lower(sCommandline).find(key_framework) != std::string::npos;
}

/// Where the item that begins at `start` ends: before the last slash that precedes the next colon behind a
/// slash.
std::size_t item_end(std::u32string_view text, std::size_t start) {
    std::size_t slash = std::u32string_view::npos;
    for (std::size_t i = start; i < text.size(); ++i) {
        if (text[i] == U'/') slash = i;
        if (text[i] == U':' && slash != std::u32string_view::npos) return slash;
    }
    return text.size();
}

/// Where an item stands in a text, by code points.
struct Place {
    std::size_t start, end;
};

/// The places of all items that a scan finds.
std::vector<Place> scanned_places(std::u32string_view text, std::u32string_view lower) {
    std::vector<Place> places;
    const auto find = [&](std::string_view key) {
        const std::size_t start = lower.find(decode_utf8(key));
        if (start != std::u32string::npos) places.push_back({start, item_end(text, start)});
    };
    find(flag_autostart);
    for (const std::string_view key : scanned_keys) find(key);
    return places;
}

/// What follows `start` up to the next slash.
std::u32string_view part_at(std::u32string_view text, std::size_t start) {
    return text.substr(start, text.find(U'/', start) - start);
}

}  // namespace

std::vector<std::string> gCommandlineSplit(std::string_view sCommandline, bool bMitAutostart,
                                           Environment& environment) try {
    if (is_scanned(sCommandline)) return scan(sCommandline, bMitAutostart, environment);
    return split(sCommandline, '/');
} catch (...) {
    show_and_end(environment, owner, "gCommandlineSplit");
    return {};
}

std::vector<std::string> unread_parts(std::string_view sCommandline) {
    const std::u32string text = decode_utf8(sCommandline);
    std::vector<Place> read;
    if (is_scanned(sCommandline))
        read = scanned_places(text, decode_utf8(to_lower(sCommandline)));
    else
        read.push_back({part_at(text, 0).size(), text.size()});
    std::vector<std::string> unread;
    for (std::size_t start = 0; start <= text.size(); start += part_at(text, start).size() + 1) {
        const std::size_t begin = std::min(text.find_first_not_of(U' ', start), text.size());
        const auto holds_begin = [&](const Place& item) { return item.start <= begin && begin < item.end; };
        const std::string part = encode_utf8(part_at(text, start));
        if (!trim_blanks(part).empty() && std::ranges::none_of(read, holds_begin))
            unread.emplace_back(trim_blanks(part));
    }
    return unread;
}

std::string gbCommandOk(std::string_view sKey, std::string_view sCommandline, Environment& environment) try {
    // By code points: a letter and its small form may differ in bytes, but not in their place.
    const std::u32string text = decode_utf8(sCommandline);
    const std::u32string lower = decode_utf8(to_lower(sCommandline));
    const std::size_t start = lower.find(decode_utf8(sKey));
    if (start == std::u32string::npos) return {};
    const std::u32string_view rest = std::u32string_view(text).substr(start, item_end(text, start) - start);
    return std::string(trim_blanks(encode_utf8(rest)));
} catch (...) {
    show_and_end(environment, owner, "gbCommandOk");
    return {};
}

std::string psCommand(std::string_view sItem, Environment& environment) try {
    const std::string_view item = trim_blanks(sItem);
    if (!item.starts_with('/')) return {};
    const std::size_t colon = item.find(':');
    if (colon == std::string_view::npos) return {};
    return std::string(item.substr(1, colon - 1));
} catch (...) {
    show_and_end(environment, owner, "psCommand");
    return {};
}

std::string psComWert(std::string_view sItem, Environment& environment) try {
    const std::string_view item = trim_blanks(sItem);
    if (!item.starts_with('/')) return {};
    const std::size_t colon = item.find(':');
    if (colon == std::string_view::npos) return {};
    return std::string(item.substr(colon + 1));
} catch (...) {
    show_and_end(environment, owner, "psComWert");
    return {};
}

bool pbCommandVorhanden(std::string_view sText, std::string_view sKey) try {
    const std::string text = "/" + to_lower(trim_blanks(sText));
    return text.find("/" + to_lower(sKey)) != std::string::npos;
} catch (...) {
    end_quietly();
    return false;
}

}  // namespace prot
