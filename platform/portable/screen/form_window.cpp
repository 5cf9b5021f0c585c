#include "platform/portable/screen/form_window.h"

#include <algorithm>

#include "platform/automation/utf8.h"
#include "platform/portable/screen/columns.h"

namespace prot {

namespace {

constexpr std::string_view too_small_text = "Das Fenster ist zu klein.";
constexpr std::string_view selected_mark = "• ";
constexpr std::string_view option_on = "(•) ";
constexpr std::string_view option_off = "( ) ";
constexpr int between_options = 2;
constexpr int widest_number = 14;  // columns
constexpr char blank_of_entry = '_';

std::string repeated(std::string_view text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i) all += text;
    return all;
}

/// `text` in exactly `width` columns.
std::string filled(std::string_view text, int width, char blank = ' ') {
    std::string line = cut_to(printable(text), width);
    line.append(static_cast<std::size_t>(std::max(width - columns(line), 0)), blank);
    return line;
}

/// Columns of the numbers of a picker; 0 when there are none.
int widest_number_of(const std::vector<Entry>& entries) {
    int widest = 0;
    for (const Entry& entry : entries) widest = std::max(widest, columns(entry.number));
    return std::min(widest, widest_number);
}

/// The column of the letter that the label marks, from the label's beginning; nothing when it marks none.
std::optional<int> access_column(std::string_view label) {
    for (std::size_t i = 0; i + 1 < label.size(); ++i) {
        if (label[i] != '&') continue;
        if (label[i + 1] != '&') return columns(without_access_key(label.substr(0, i)));
        ++i;
    }
    return std::nullopt;
}

Picture too_small(const Form& form) {
    Picture picture;
    picture.title = form.caption;
    picture.size = {columns(too_small_text), 1};
    picture.pieces.push_back({{0, 0}, std::string(too_small_text)});
    picture.help_line = "Esc " + without_access_key(form.cancel.text);
    return picture;
}

}  // namespace

Picture FormWindow::picture(Size screen) {
    const std::optional<FormLayout> layout = lay_out(form_, largest_window(screen), columns_);
    if (!layout) return too_small(form_);
    columns_ = layout->size.columns;
    Picture picture;
    picture.title = form_.caption;
    picture.size = layout->size;
    picture.help_line = help_line();
    first_.resize(form_.fields.size());
    draw_notice(picture, *layout);
    draw_frames(picture, *layout);
    for (std::size_t i = 0; i < form_.fields.size(); ++i)
        if (layout->fields[i].shown) draw_field(picture, i, layout->fields[i]);
    draw_button(picture, form_.ok, session_.ok(), layout->ok);
    draw_button(picture, form_.cancel, session_.cancel(), layout->cancel);
    return picture;
}

/// The keys that do something where the focus is.
std::string FormWindow::help_line() const {
    const std::size_t target = session_.target();
    const bool on_field = target < form_.fields.size();
    const FieldKind kind = on_field ? form_.fields[target].kind : FieldKind::text;
    std::string keys = kind == FieldKind::text     ? "Tab nächstes Feld"
                       : kind == FieldKind::picker ? "Tippen sucht   ↑ ↓ Auswahl   Tab weiter"
                                                   : "↑ ↓ Auswahl   Tab nächstes Feld";
    keys +=
        "   Eingabe " + without_access_key(form_.ok.text) + "   Esc " + without_access_key(form_.cancel.text);
    if (form_.key_down) keys += "   F1 Hilfe";
    return keys;
}

void FormWindow::draw_notice(Picture& picture, const FormLayout& layout) const {
    Position at = layout.notice_at;
    for (const std::string& line : layout.notice) {
        picture.pieces.push_back({at, printable(line)});
        ++at.row;
    }
}

void FormWindow::draw_frames(Picture& picture, const FormLayout& layout) const {
    for (std::size_t i = 0; i < form_.groups.size(); ++i) {
        const Place& frame = layout.frames[i];
        if (frame.width == 0) continue;
        const std::string caption = form_.groups[i].caption.empty()
                                        ? ""
                                        : " " + cut_to(form_.groups[i].caption, frame.width - 6) + " ";
        const int rest = frame.width - 3 - columns(caption);
        const auto [column, row] = frame.at;
        const int last = frame.height - 1;
        picture.pieces.push_back({frame.at, "┌─" + caption + repeated("─", rest) + "┐"});
        for (int line = 1; line < last; ++line)
            for (const int side : {column, column + frame.width - 1})
                picture.pieces.push_back({{side, row + line}, "│"});
        picture.pieces.push_back({{column, row + last}, "└" + repeated("─", frame.width - 2) + "┘"});
    }
}

void FormWindow::draw_label(Picture& picture, const Field& field, const FieldPlace& place) const {
    const Style style = field.enabled ? Style::text : Style::disabled;
    picture.pieces.push_back(
        {place.label.at, cut_to(printable(without_access_key(field.label)), place.label.width), style});
    const std::optional<int> column = access_column(field.label);
    if (!column || !field.enabled || *column >= place.label.width) return;
    const std::u32string rest = decode_utf8(without_access_key(field.label));
    std::string letter;
    for (int at = 0; const char32_t c : rest) {
        if (at == *column) letter = encode_utf8(std::u32string(1, c));
        at += columns(c);
    }
    picture.pieces.push_back({{place.label.at.column + *column, place.label.at.row}, letter, Style::access});
}

void FormWindow::draw_field(Picture& picture, std::size_t index, const FieldPlace& place) {
    draw_label(picture, form_.fields[index], place);
    switch (form_.fields[index].kind) {
        case FieldKind::list:
            draw_list(picture, index, place);
            break;
        case FieldKind::picker:
            draw_picker(picture, index, place);
            break;
        case FieldKind::options:
            draw_options(picture, index, place);
            break;
        case FieldKind::text:
            draw_line(picture, index, place.value);
            break;
        case FieldKind::label:
            break;
    }
}

/// The list moves no further than it must to keep the selected row on view.
std::size_t FormWindow::first_on_view(std::size_t index, const Rows& rows, std::size_t height) {
    const std::size_t most = rows.count > height ? rows.count - height : 0;
    std::size_t& first = first_[index];
    if (rows.selected && *rows.selected < first) first = *rows.selected;
    if (rows.selected && *rows.selected >= first + height) first = *rows.selected - height + 1;
    return first = std::min(first, most);
}

void FormWindow::draw_list(Picture& picture, std::size_t index, const FieldPlace& place) {
    const Field& field = form_.fields[index];
    if (session_.target() == index) picture.cursor = place.value.at;
    draw_rows(picture, index, place.value, {field.entries.size(), field.selected, [&field](std::size_t row) {
                                                return field.entries[row].text;
                                            }});
}

void FormWindow::draw_picker(Picture& picture, std::size_t index, const FieldPlace& place) {
    const Field& field = form_.fields[index];
    const PickerMatches& matches = session_.matches(index);
    const int number_width = widest_number_of(matches.entries());
    const auto text = [&](std::size_t row) {
        const Entry& entry = *matches.entry_in(row);
        return number_width > 0 ? filled(entry.number, number_width) + "  " + entry.text : entry.text;
    };
    const std::optional<std::size_t> selected = matches.row_of(field.selected);
    if (!selected) first_[index] = 0;
    draw_rows(picture, index, place.value, {matches.row_count(), selected, text});
    if (field.enabled)
        picture.pieces.push_back({place.count.at, cut_to(matches.count_text(), place.count.width)});
    draw_line(picture, index, place.line);
}

void FormWindow::draw_rows(Picture& picture, std::size_t index, const Place& place, const Rows& rows) {
    const bool enabled = form_.fields[index].enabled;
    const bool focused = session_.target() == index;
    const auto height = static_cast<std::size_t>(place.height);
    const std::size_t first = first_on_view(index, rows, height);
    const int width = place.width - list_bar_width;
    if (focused) session_.set_page(height);
    for (std::size_t i = first; i < std::min(first + height, rows.count); ++i) {
        const bool selected = rows.selected == i;
        const Position at{place.at.column, place.at.row + static_cast<int>(i - first)};
        const std::string text =
            std::string(selected ? selected_mark : "  ") + filled(rows.text(i), width - list_mark_width);
        const Style style = !enabled ? Style::disabled : selected && focused ? Style::chosen : Style::text;
        picture.pieces.push_back({at, text, style});
        if (selected && focused) picture.cursor = at;
    }
    if (rows.count <= height) return;
    picture.bars.push_back({{place.at.column + width + list_bar_width - 1, place.at.row},
                            place.height,
                            static_cast<int>(rows.selected.value_or(first)),
                            static_cast<int>(rows.count) - 1});
}

void FormWindow::draw_options(Picture& picture, std::size_t index, const FieldPlace& place) const {
    const Field& field = form_.fields[index];
    const bool focused = session_.target() == index;
    Position at = place.value.at;
    if (focused) picture.cursor = {at.column + 1, at.row};
    for (std::size_t i = 0; i < field.entries.size(); ++i) {
        const bool selected = field.selected == i;
        const std::string text =
            std::string(selected ? option_on : option_off) + printable(field.entries[i].text);
        const Style style = !field.enabled        ? Style::disabled
                            : selected && focused ? Style::marked
                                                  : Style::text;
        picture.pieces.push_back({at, text, style});
        if (selected && focused) picture.cursor = {at.column + 1, at.row};
        if (place.in_a_row)
            at.column += columns(text) + between_options;
        else
            ++at.row;
    }
}

/// A line to type in.
void FormWindow::draw_line(Picture& picture, std::size_t index, const Place& place) const {
    const Field& field = form_.fields[index];
    const auto [at, width, height] = place;
    const TextLine* const line = session_.target() == index ? session_.line() : nullptr;
    if (!line) {
        const Style style = field.enabled ? Style::entry : Style::disabled;
        picture.pieces.push_back(
            {at, filled(field.text, width, field.enabled ? blank_of_entry : ' '), style});
        return;
    }
    const TextLine::View view = line->view(width);
    picture.pieces.push_back({at, filled(view.text, width, blank_of_entry), Style::entry});
    if (line->selected()) picture.pieces.push_back({at, view.text, Style::marked});
    picture.cursor = {at.column + view.cursor, at.row};
}

void FormWindow::draw_button(Picture& picture, const Button& button, std::size_t target,
                             const Place& place) const {
    const bool focused = session_.target() == target;
    const Style style = !button.enabled ? Style::disabled : focused ? Style::marked : Style::text;
    picture.pieces.push_back({place.at, button_text(button), style});
    if (focused) picture.cursor = {place.at.column + 2, place.at.row};
}

}  // namespace prot
