#include "apps/protcsv/report/closing_text.h"

#include <algorithm>
#include <string_view>

namespace prot {

namespace {

constexpr std::int64_t most_lines_of_spreadsheets = 1'048'576;

struct Reason {
    LeftOut reason;
    std::string_view text;
};

// clang-format off
constexpr Reason reasons[] = {
    {LeftOut::without_caption,     "ohne Beschriftung"},
    {LeftOut::not_exported,        "ohne auszugebendes Feld"},
    {LeftOut::unreadable_document, "unlesbar"},
    {LeftOut::without_changes,     "ohne geändertes Feld"},
    {LeftOut::without_moment,      "ohne Zeitpunkt"},
    {LeftOut::not_described,       "ohne Zuordnung"},
};
// clang-format on
static_assert(std::size(reasons) == left_out_reasons);

std::string counted(std::int64_t number, std::string_view one, std::string_view several) {
    return grouped(number).append(" ").append(number == 1 ? one : several);
}

std::string left_out_text(const NoticesReport& notices) {
    if (notices.left_out() == 0) return {};
    std::string text;
    for (const Reason& row : reasons)
        if (const std::int64_t count = notices.left_out(row.reason).count; count > 0)
            text.append(text.empty() ? "" : ", ").append(grouped(count)).append(" ").append(row.text);
    return ", " + counted(notices.left_out(), "Satz", "Sätze") + " ohne Zeile (" + text + ")";
}

/// Seconds with one decimal, the rest left off.
std::string seconds_text(std::chrono::milliseconds duration) {
    const std::int64_t tenths = duration.count() / 100;
    return grouped(tenths / 10) + "," + std::to_string(tenths % 10) + " s";
}

}  // namespace

std::string grouped(std::int64_t number) {
    std::string text = std::to_string(number);
    const std::size_t first_digit = number < 0 ? 1 : 0;
    for (std::size_t at = text.size(); at > first_digit + 3;) text.insert(at -= 3, 1, ' ');
    return text;
}

std::string closing_line(const NoticesReport& notices, std::chrono::milliseconds duration) {
    return counted(notices.records(), "Protokollsatz", "Protokollsätze") + " gelesen, " +
           counted(notices.lines(), "Zeile", "Zeilen") + " geschrieben" + left_out_text(notices) + ", " +
           seconds_text(duration) + '\n';
}

std::string amount_text(std::int64_t records, std::int64_t memos) {
    return counted(records, "Protokollsatz", "Protokollsätze") + " und " +
           counted(memos, "Memotext", "Memotexte");
}

std::string replaced_text(const ReplacedCharacters& replaced, const std::string& file) {
    if (replaced.count == 0) return {};
    std::string text = replaced.count == 1
                           ? "1 Zeichen, das die Kodierung nicht kennt, steht"
                           : grouped(replaced.count) + " Zeichen, die die Kodierung nicht kennt, stehen";
    text += " als ? in der Datei „" + file + "“: ";
    for (std::size_t i = 0; i < std::min(replaced.first.size(), most_listed); ++i) {
        const ReplacedCharacters::Place& place = replaced.first[i];
        text += (i > 0 ? "; " : "") + place.character + " in Zeile " + std::to_string(place.line) +
                ", Spalte " + std::to_string(place.column);
    }
    if (replaced.count > static_cast<std::int64_t>(most_listed))
        text += " und " + grouped(replaced.count - static_cast<std::int64_t>(most_listed)) + " weitere";
    return text + '\n';
}

std::string too_long_text(std::int64_t lines) {
    if (lines <= most_lines_of_spreadsheets) return {};
    return "Die Datei hat " + grouped(lines) + " Zeilen, ein Tabellenblatt fasst nur " +
           grouped(most_lines_of_spreadsheets) + "; --from und --to teilen den Export auf\n";
}

}  // namespace prot
