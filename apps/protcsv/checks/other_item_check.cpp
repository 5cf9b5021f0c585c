#include <algorithm>

#include "apps/protcsv/checks/parameter_check.h"
#include "apps/protcsv/checks/parameter_keys.h"
#include "apps/protcsv/options/suggestion.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_parts.h"

namespace prot {

namespace {

using Use = BatchReading::Use;

class OtherItemCheck {
public:
    explicit OtherItemCheck(const CheckedText& text) : text_(text) {}

    Findings findings() {
        for (const BatchReading& reading : text_.understood.readings)
            if (reading.key.empty() && !reading.item.empty() && begins_part(reading.item, text_.parameters))
                look_at(reading);
        look_for_empty_items();
        return std::move(findings_);
    }

private:
    void add(std::string sentence, bool selects_more = true) {
        findings_.push_back({std::move(sentence), selects_more});
    }

    void look_at(const BatchReading& reading) {
        const std::string& item = reading.item;
        const KeyRow* const row = find_key(item);
        if (row == nullptr)
            look_at_unknown(item);
        else if (reading.use == Use::unread && row->kind == KeyKind::flag)
            add(about(key_of(item)) +
                " steht vor dem ersten Schrägstrich und wird nicht gelesen; schreiben Sie /" +
                std::string(row->name));
        else if (row->kind == KeyKind::host)
            look_at_host_key(item, *row);
        else if (row->kind == KeyKind::selection || row->kind == KeyKind::range_end)
            look_at_selection(item, *row);
    }

    /// Keys that work here: what a person who mistyped one meant most likely.
    std::vector<std::string_view> keys_here() const {
        std::vector<std::string_view> keys = {"autostart"};
        for (const std::string_view key : text_.understood.keys) keys.push_back(key_name(key));
        if (text_.command == Command::run) keys.insert(keys.end(), host_keys().begin(), host_keys().end());
        return keys;
    }

    std::string meant(std::string_view written) const {
        std::string found = suggestion(written, keys_here());
        if (!found.empty()) return found;
        std::vector<std::string_view> all;
        for (const KeyRow& row : parameter_keys()) all.push_back(row.name);
        return suggestion(written, all);
    }

    void look_at_unknown(const std::string& item) {
        const std::string_view written = key_of(item);
        const std::string suggested = meant(written);
        if (is_rest_of_password(item, text_.parameters)) {
            const bool may_select = item.find(':') != std::string::npos && !suggested.empty();
            add("--params: hinter pwd steht ein Stück, das kein Schlüssel ist (hier nicht gezeigt)" +
                    (suggested.empty() ? "; ein Wert darf keinen Schrägstrich enthalten" : suggested),
                may_select);
            return;
        }
        std::string there_are;
        for (const std::string_view key : keys_here())
            there_are += (there_are.empty() ? "; es gibt hier " : ", ") + std::string(key);
        add(about(written) + " ist kein Schlüssel" + (suggested.empty() ? there_are : suggested));
    }

    /// With their colon they are the host's, and check_host_keys looks at them.
    void look_at_host_key(const std::string& item, const KeyRow& row) {
        if (!to_lower(item).starts_with(std::string(row.name) + ':')) add(lacks_colon(item, row.name));
    }

    bool section_has(std::string_view name) const {
        return std::ranges::find(text_.understood.keys, name, key_name) != text_.understood.keys.end();
    }

    void look_at_selection(const std::string& item, const KeyRow& row) {
        if (section_has(row.name)) {
            add(lacks_colon(item, row.name));
        } else if (row.kind == KeyKind::range_end && (row.other != "mandant" || section_has("mandant"))) {
            const bool user = row.other == "mitarbeiter";
            const std::string instead =
                user && text_.command != Command::run ? "--user" : std::string(row.other);
            add(about(item) + " wirkt nicht; geben Sie je Lauf einen " +
                    (user ? "Mitarbeiter" : "Mandanten") + " mit " + instead + " an",
                !has_beginning(row));
        } else {
            // An empty one restricts nothing.
            const bool restricts = item.find(':') + 1 < item.size();
            add(about(item) + " wirkt im Bereich " + title() + " nicht; lassen Sie es weg", restricts);
        }
    }

    /// Whether the beginning of the range is chosen: then less is selected than up to its end.
    bool has_beginning(const KeyRow& row) const {
        if (row.other == "mitarbeiter") return text_.command == Command::run && !text_.request.user.empty();
        return std::ranges::any_of(text_.understood.readings, [](const BatchReading& reading) {
            return reading.key == "mandant:" && reading.use == Use::taken;
        });
    }

    std::string title() const {
        const auto section = std::ranges::find(text_.sections, text_.request.section, &Section::number);
        return std::string(section->title);
    }

    /// An empty item is often a variable that is not set. In a text that is searched, slashes may follow each
    /// other in a name.
    void look_for_empty_items() {
        if (text_.understood.keys.empty() ||
            to_lower(text_.parameters).find("auswertungsrahmen:") != std::string::npos)
            return;
        const std::vector<std::string> parts = split(text_.parameters, '/');
        if (std::any_of(parts.begin() + 1, parts.end(),
                        [](const std::string& part) { return trim_blanks(part).empty(); }))
            add("--params: hinter einem Schrägstrich steht nichts; streichen Sie ihn oder schreiben Sie "
                "dahinter, was "
                "gemeint ist",
                false);
    }

    const CheckedText& text_;
    Findings findings_;
};

}  // namespace

Findings check_other_items(const CheckedText& text) { return OtherItemCheck(text).findings(); }

}  // namespace prot
