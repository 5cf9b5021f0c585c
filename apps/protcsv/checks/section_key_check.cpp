#include <algorithm>
#include <map>

#include "apps/protcsv/checks/parameter_check.h"
#include "apps/protcsv/checks/parameter_keys.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_parts.h"

namespace prot {

namespace {

using Use = BatchReading::Use;

/// What is said of a key's values.
struct KeyTexts {
    std::string_view key;          ///< without its colon
    std::string_view passed_over;  ///< of a value that the key cannot have
    std::string_view absent;       ///< of a value that names what does not exist
    std::string_view idle{};       ///< of an item without effect
    std::string_view needs{};      ///< the key that gives it its effect
};

// clang-format off
constexpr KeyTexts key_texts[] = {
    {"mandant",  " ist keine Nummer größer als 0; schreiben Sie etwa mandant:123, für eine Kanzlei mandant:k7", ""},
    {"vonkonto", " ist keine Zahl größer als 0; schreiben Sie etwa vonkonto:10000", ""},
    {"biskonto", " ist keine Zahl größer als 0; schreiben Sie etwa biskonto:19999", ""},
    {"stdkanz",  " gibt es nicht; schreiben Sie stdkanz:s (Standardrahmen) oder stdkanz:k (Kanzleirahmen)", ""},
    {"awraend",  " gibt es nicht; schreiben Sie awraend:alle, awraend:kto, awraend:pos, awraend:za oder awraend:sp", ""},
    {"wirtschaftsjahr", "",
     ": so heißt kein Wirtschaftsjahr dieses Mandanten; schreiben Sie es wie in der Auswahl, etwa "
     "wirtschaftsjahr:01.01.2025 - 31.12.2025",
     " wirkt nur zusammen mit mandant; geben Sie mandant an", "mandant:"},
    {"auswertung", "", ": diese Auswertung gibt es nicht; schreiben Sie sie wie in der Auswahl, etwa auswertung:Bilanz"},
    {"auswertungsrahmen", "",
     ": so beginnt kein Rahmen dieser Auswertung; schreiben Sie ihn wie in der Auswahl",
     " wirkt nur zusammen mit auswertung; geben Sie auswertung an", "auswertung:"},
    {"kontenrahmen", "", ": diesen Kontenrahmen gibt es nicht; schreiben Sie ihn wie in der Auswahl",
     " wirkt nur bei Kontozuordnungen; lassen Sie es weg oder wählen Sie awraend:kto"},
};
// clang-format on

const KeyTexts& texts_of(std::string_view key) {
    static constexpr KeyTexts others{"", " führt zu nichts; berichtigen Sie den Wert",
                                     " gibt es nicht; berichtigen Sie den Wert",
                                     " wirkt hier nicht; lassen Sie es weg"};
    const auto row = std::ranges::find(key_texts, key_name(key), &KeyTexts::key);
    return row == std::end(key_texts) ? others : *row;
}

bool is_number_key(std::string_view key) {
    return key == "mandant:" || key == "vonkonto" || key == "biskonto";
}

/// A number without blanks, the letter of a client or office, a sign and leading zeros.
std::string bare_number(std::string_view text) {
    std::string number = to_lower(replaced(std::string(text), " ", ""));
    if (number.starts_with('k') || number.starts_with('m')) number.erase(0, 1);
    if (number.starts_with('+')) number.erase(0, 1);
    return number.erase(0, std::min(number.find_first_not_of('0'), number.size()));
}

/// Whether a number is read as it stands there: its digits are all that there is.
bool is_read_as_written(const BatchReading& reading) {
    const std::string written = bare_number(reading.value);
    return written == bare_number(reading.read_as) &&
           std::ranges::all_of(written, [](char c) { return c >= '0' && c <= '9'; });
}

/// Goes through the readings of a text in their order.
class SectionKeyCheck {
public:
    explicit SectionKeyCheck(const CheckedText& text) : text_(text), readings_(text.understood.readings) {}

    Findings findings() {
        for (const BatchReading& reading : readings_)
            if (!reading.key.empty()) look_at(reading);
        return std::move(findings_);
    }

private:
    void add(std::string sentence, bool selects_more = true) {
        findings_.push_back({std::move(sentence), selects_more});
    }

    void look_at(const BatchReading& reading) {
        if (reading.item.empty())
            look_at_whole(reading);
        else if (begins_part(reading.item, text_.parameters))
            look_at_item(reading);
    }

    void look_at_item(const BatchReading& reading) {
        if (!is_key_as_written(reading)) return;
        if (reading.key == "autostart") {
            look_at_flag(reading);
        } else if (reading.use == Use::early) {
            add(about(reading.item) +
                (text_.understood.has_autostart() ? " steht vor autostart und wirkt dort nicht"
                                                  : " wirkt nur hinter autostart") +
                "; schreiben Sie /autostart/" + reading.item);
        } else if (reading.use == Use::unread && text_.parameters.starts_with(reading.item)) {
            add(about(reading.item) +
                " steht vor dem ersten Schrägstrich und wird nicht gelesen; schreiben Sie /" + reading.item);
        } else {
            if (seen_[reading.key]++ == 1)
                add(about(reading.item) + ": " + std::string(key_name(reading.key)) +
                    " steht mehrmals im Text; lassen Sie nur eine Angabe stehen");
            if (reading.use != Use::unread) look_at_value(reading);
        }
    }

    /// Keys are compared by their beginning alone: vonkontox is read as vonkonto.
    bool is_key_as_written(const BatchReading& reading) {
        const std::string_view key = key_name(reading.key);
        const std::string written = to_lower(key_of(reading.item));
        if (written == key) return true;
        // In a text that is searched, the flag is found behind another item's value, too.
        if (written.starts_with(key))
            add(about(key_of(reading.item)) + " wird als " + std::string(key) + " gelesen; schreiben Sie /" +
                std::string(key) + (reading.key == "autostart" ? "" : ":WERT"));
        return false;
    }

    void look_at_flag(const BatchReading& reading) {
        const std::size_t colon = reading.item.find_first_of(":= ");
        if (colon == std::string::npos) return;
        add(about(reading.item) +
                " gilt als autostart, was immer dahinter steht; schreiben Sie /autostart oder "
                "lassen Sie es weg",
            false);
    }

    void look_at_value(const BatchReading& reading) {
        const std::string& item = reading.item;
        if (item.find(':') == std::string::npos) {
            add(lacks_colon(item, key_name(reading.key)));
        } else if (trim_blanks(reading.value).empty()) {
            add(about(item) + " hat keinen Wert; geben Sie einen an oder lassen Sie den Schlüssel weg");
        } else if (to_lower(reading.value).find("/autostart") != std::string::npos) {
            add(about(item) + ": autostart zählt hier zum Wert; schreiben Sie /autostart an den Anfang");
        } else if (is_number_key(reading.key) && !reading.read_as.empty() && !is_read_as_written(reading)) {
            add(about(item) + " wird als " + reading.read_as + " gelesen; schreiben Sie nur Ziffern");
        } else if (reading.use == Use::taken) {
            look_at_choice(reading);
        } else {
            look_at_refusal(reading);
        }
    }

    void look_at_choice(const BatchReading& reading) {
        // "Alle" is an entry of the list like a framework, and the first one.
        if (reading.key == "auswertungsrahmen:" && reading.meaning == "Alle" &&
            to_lower(trim_blanks(reading.value)) != "alle")
            add(about(reading.item) + " wird als „Alle“ gelesen; schreiben Sie mehr vom Namen des Rahmens");
        if (!reading.listed)
            add(about(reading.item) + " steht nicht in der Liste; schreiben Sie den Wert wie in der Auswahl",
                false);
    }

    void look_at_refusal(const BatchReading& reading) {
        const KeyTexts& key = texts_of(reading.key);
        if (reading.use == Use::passed_over) add(about(reading.item) + std::string(key.passed_over));
        if (reading.use == Use::absent) add(about(reading.item) + absent_text(reading, key));
        if (reading.use == Use::idle) look_at_idle(reading.item, key);
    }

    static std::string absent_text(const BatchReading& reading, const KeyTexts& key) {
        if (reading.key != "mandant:") return std::string(key.absent);
        return ": " + std::string(reading.meaning == "Kanzlei" ? "eine Kanzlei" : "einen Mandanten") +
               " mit dieser Nummer gibt es nicht; ohne autostart zeigt die Auswahl alle";
    }

    /// Nothing is said where the key that gives an effect is there, but was of no use: that has been said.
    void look_at_idle(const std::string& item, const KeyTexts& key) {
        const bool needs_another = !key.needs.empty();
        const bool said = needs_another && std::ranges::any_of(readings_, [&](const BatchReading& each) {
                              return each.key == key.needs && each.use != Use::taken;
                          });
        if (!said) add(about(item) + std::string(key.idle), needs_another);
    }

    /// What shows when all items are known.
    void look_at_whole(const BatchReading& reading) {
        const BatchReading* const item = last_of(reading.key);
        if (reading.use == Use::crossed) {
            look_at_range(reading, item);
        } else if (item != nullptr && !trim_blanks(item->value).empty()) {
            BatchReading whole = reading;
            whole.item = item->item;
            look_at_refusal(whole);
        }
    }

    /// Whether something else has been said of a bound.
    static bool is_doubtful(const BatchReading* bound) {
        return bound != nullptr && (bound->use != Use::taken || !bound->listed ||
                                    (is_number_key(bound->key) && !is_read_as_written(*bound)));
    }

    void look_at_range(const BatchReading& reading, const BatchReading* from) {
        const std::string_view from_key = reading.key;
        const std::string_view to_key = from_key == "vondevi" ? "bisdevi" : "biskonto";
        const BatchReading* const to = last_of(to_key);
        if (is_doubtful(from) || is_doubtful(to)) return;
        const auto bound = [](std::string_view key, const BatchReading* item, const std::string& value) {
            return item != nullptr ? "„" + item->item + "“"
                                   : std::string(key) + " (ohne Angabe " + value + ")";
        };
        add("--params: " + bound(from_key, from, reading.read_as) + " liegt hinter " +
                bound(to_key, to, reading.meaning) + ", so wird nichts gefunden; " +
                (from != nullptr && to != nullptr ? "vertauschen Sie die Grenzen"
                                                  : "geben Sie beide Grenzen an"),
            false);
    }

    /// The last item of a key that was taken or passed over.
    const BatchReading* last_of(std::string_view key) const {
        const BatchReading* last = nullptr;
        for (const BatchReading& reading : readings_)
            if (reading.key == key && !reading.item.empty() && reading.use != Use::early &&
                reading.use != Use::unread)
                last = &reading;
        return last;
    }

    const CheckedText& text_;
    const std::vector<BatchReading>& readings_;
    std::map<std::string_view, int> seen_;
    Findings findings_;
};

}  // namespace

Findings check_section_keys(const CheckedText& text) { return SectionKeyCheck(text).findings(); }

}  // namespace prot
