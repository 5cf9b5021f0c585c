#include "platform/windows/forms/form_layout.h"

#include <algorithm>
#include <limits>

#include "platform/automation/text_parts.h"

namespace prot {

namespace {

/// Distances in dialog units.
constexpr int margin = 7;
constexpr int frame_inset = 7, frame_top = 11, frame_bottom = 6;
constexpr int line_height = 8, option_height = 11, row_gap = 5;
constexpr int label_gap = 6, longest_label_line = 160;
constexpr int least_field = 60, longest_field = 200, field_padding = 8, arrow_width = 14;
constexpr int option_mark = 14;
constexpr int picker_width = 170, picker_gap = 2, match_rows = 6, match_height = 10;
constexpr int longest_text_line = 260;
constexpr int button_width = 50, button_height = 14, button_padding = 12, button_gap = 4;
constexpr int caption_padding = 72;  // the title bar's icon, its buttons, its bolder letters

/// Pixels, at every resolution: by which the system's closed list is higher than its text, and a list of
/// matches than its rows.
constexpr int field_border = 8, match_border = 4;

const Group* group_that_begins(const Form& form, std::size_t field) {
    const auto group = std::ranges::find_if(
        form.groups, [&](const Group& candidate) { return candidate.first == field && candidate.count > 0; });
    return group == form.groups.end() ? nullptr : &*group;
}

const Group* group_that_ends(const Form& form, std::size_t field) {
    const auto group = std::ranges::find_if(form.groups, [&](const Group& candidate) {
        return candidate.count > 0 && candidate.first + candidate.count - 1 == field;
    });
    return group == form.groups.end() ? nullptr : &*group;
}

bool any_visible(const Form& form, const Group& group) {
    for (std::size_t i = group.first; i < group.first + group.count; ++i)
        if (form.fields[i].visible) return true;
    return false;
}

class Arrangement {
public:
    Arrangement(const Form& form, const std::vector<FormControl>& controls, const TextMeasure& measure)
        : form_(form), controls_(controls), measure_(measure) {
        layout_.places.resize(controls.size());
    }

    FormLayout arrange(int least_width) {
        measure_columns(least_width);
        top_ = down(margin);
        place_notice();
        for (std::size_t field = 0; field < form_.fields.size(); ++field) {
            if (const Group* group = group_that_begins(form_, field); group && any_visible(form_, *group))
                begin_frame();
            if (form_.fields[field].visible) place_field(field);
            if (const Group* group = group_that_ends(form_, field); group && any_visible(form_, *group))
                end_frame(static_cast<std::size_t>(group - form_.groups.data()));
        }
        place_buttons();
        return std::move(layout_);
    }

private:
    int across(int units) const { return (units * measure_.unit_width() + 3) / 4; }
    int field_height() const { return measure_.unit_height() + field_border; }
    int down(int units) const { return (units * measure_.unit_height() + 7) / 8; }

    /// The width of the label's widest line when its lines break at `longest_line`; more, when a word needs
    /// it.
    int broken_width(const Field& field, int longest_line) const {
        const std::string text = without_access_key(field.label);
        int widest = 0, blank = 0;
        std::string line;
        for (std::size_t begin = 0; begin < text.size();) {
            const std::size_t end = std::min(text.find(' ', begin), text.size());
            const std::string longer = (line.empty() ? "" : line + ' ') + text.substr(begin, end - begin);
            const bool fits = line.empty() || measure_.width(longer) <= longest_line;
            line = fits ? longer : text.substr(begin, end - begin);
            // A broken line may be drawn with the blank behind it.
            if (!fits) blank = measure_.width(" ");
            widest = std::max(widest, measure_.width(line));
            begin = end + 1;
        }
        return widest + blank;
    }

    int entries_width(const Field& field, int longest) const {
        int widest = 0;
        for (const Entry& entry : field.entries) {
            widest = std::max(widest, measure_.width(entry.text));
            if (widest >= longest) return longest;
        }
        return widest;
    }

    int field_width(const Field& field) const {
        const int longest = across(longest_field);
        switch (field.kind) {
            case FieldKind::list:
                return std::min(longest, entries_width(field, longest) + across(field_padding + arrow_width));
            case FieldKind::text: {
                const auto characters = static_cast<int>(std::min<std::size_t>(field.longest, 1000));
                return std::min(longest, characters * measure_.unit_width() + across(field_padding));
            }
            case FieldKind::options:
                return across(option_mark) + entries_width(field, std::numeric_limits<int>::max());
            case FieldKind::picker:  // whatever its entries: there are too many to look at each
                return across(picker_width);
            case FieldKind::label:
                break;
        }
        return 0;
    }

    void measure_columns(int least_width) {
        const int inset = form_.groups.empty() ? 0 : across(frame_inset);
        int content = measure_.width(form_.caption) + across(caption_padding);
        for (const Field& field : form_.fields) {
            if (!field.visible) continue;
            if (field.kind == FieldKind::label) {
                content = std::max(content, broken_width(field, across(longest_text_line)));
                continue;
            }
            fields_width_ = std::max({fields_width_, field_width(field), across(least_field)});
            if (!field.label.empty())
                labels_width_ = std::max(labels_width_, broken_width(field, across(longest_label_line)));
        }
        if (!form_.notice.empty()) content = std::max(content, notice_width());
        for (const Group& group : form_.groups)
            content = std::max(content, measure_.width(group.caption) + across(frame_inset));
        const int gap = labels_width_ > 0 ? across(label_gap) : 0;
        content = std::max({content, labels_width_ + gap + fields_width_, buttons_width() - 2 * inset,
                            least_width - 2 * (across(margin) + inset)});
        left_ = across(margin) + inset;
        content_width_ = content;
        field_left_ = left_ + labels_width_ + gap;
        fields_width_ = content - labels_width_ - gap;
        layout_.width = content + 2 * left_;
    }

    /// A line that breaks is as wide as a text field may be.
    int notice_width() const {
        int widest = 0;
        for (const std::string& line : split(form_.notice, '\n'))
            widest = std::max(widest, measure_.width(line));
        return std::min(widest, across(longest_text_line));
    }

    void place_notice() {
        if (form_.notice.empty()) return;
        const int left = across(margin), width = layout_.width - 2 * left;
        const int height = measure_.height(form_.notice, width);
        place({ControlPart::notice}, {left, top_, width, height});
        top_ += height + down(row_gap);
    }

    void begin_frame() {
        frame_begin_ = top_;
        top_ += down(frame_top);
    }

    void end_frame(std::size_t group) {
        top_ += down(frame_bottom) - down(row_gap);
        const int left = across(margin);
        place({ControlPart::frame, group},
              {left, frame_begin_, layout_.width - 2 * left, top_ - frame_begin_});
        top_ += down(row_gap);
    }

    void place_field(std::size_t index) {
        const Field& field = form_.fields[index];
        const std::string label = without_access_key(field.label);
        if (field.kind == FieldKind::label) {
            const int height = std::max(down(line_height), measure_.height(label, content_width_));
            place({ControlPart::label, index}, {left_, top_, content_width_, height});
            top_ += height + down(row_gap);
            return;
        }
        const int first_line = field.kind == FieldKind::options ? down(option_height) : field_height();
        int height = place_content(index);
        if (!label.empty()) {
            const int label_height = std::max(down(line_height), measure_.height(label, labels_width_));
            // Beside a field of one line a label of one line stands at the height of its text.
            const int offset = std::max(0, (first_line - down(line_height)) / 2);
            place({ControlPart::label, index}, {left_, top_ + offset, labels_width_, label_height});
            height = std::max(height, offset + label_height);
        }
        top_ += height + down(row_gap);
    }

    int place_content(std::size_t index) {
        const Field& field = form_.fields[index];
        if (field.kind != FieldKind::options) {
            place({ControlPart::field, index}, {field_left_, top_, fields_width_, field_height()});
            return field_height() + (field.kind == FieldKind::picker ? place_matches(index) : 0);
        }
        for (std::size_t entry = 0; entry < field.entries.size(); ++entry)
            place({ControlPart::option, index, entry},
                  {field_left_, top_ + static_cast<int>(entry) * down(option_height), fields_width_,
                   down(option_height)});
        return static_cast<int>(field.entries.size()) * down(option_height);
    }

    /// What of a picker stands beneath its line. Returns the height of it.
    int place_matches(std::size_t index) {
        const int gap = down(picker_gap), count_height = down(line_height);
        const int list_height = match_rows * down(match_height) + match_border;
        const int count_top = top_ + field_height() + gap, list_top = count_top + count_height + gap;
        place({ControlPart::match_count, index}, {field_left_, count_top, fields_width_, count_height});
        place({ControlPart::matches, index}, {field_left_, list_top, fields_width_, list_height});
        return gap + count_height + gap + list_height;
    }

    int width_of(const Button& button) const {
        return std::max(across(button_width),
                        measure_.width(without_access_key(button.text)) + across(button_padding));
    }
    int buttons_width() const { return width_of(form_.ok) + across(button_gap) + width_of(form_.cancel); }

    void place_buttons() {
        top_ += down(margin) - down(row_gap);
        int left = layout_.width - across(margin) - buttons_width();
        place({ControlPart::ok}, {left, top_, width_of(form_.ok), down(button_height)});
        left += width_of(form_.ok) + across(button_gap);
        place({ControlPart::cancel}, {left, top_, width_of(form_.cancel), down(button_height)});
        layout_.height = top_ + down(button_height) + down(margin);
    }

    void place(const FormControl& control, const Rectangle& where) {
        const auto found = std::ranges::find(controls_, control);
        if (found != controls_.end())
            layout_.places[static_cast<std::size_t>(found - controls_.begin())] = where;
    }

    const Form& form_;
    const std::vector<FormControl>& controls_;
    const TextMeasure& measure_;
    FormLayout layout_;
    int left_ = 0, content_width_ = 0;  // of labels with their fields
    int labels_width_ = 0, field_left_ = 0, fields_width_ = 0;
    int top_ = 0, frame_begin_ = 0;
};

int into(int begin, int size, int area_begin, int area_size) {
    return std::max(area_begin, std::min(begin, area_begin + area_size - size));
}

}  // namespace

std::vector<FormControl> controls_of(const Form& form) {
    std::vector<FormControl> controls;
    if (!form.notice.empty()) controls.push_back({ControlPart::notice});
    for (std::size_t i = 0; i < form.fields.size(); ++i) {
        const Field& field = form.fields[i];
        if (const Group* group = group_that_begins(form, i))
            controls.push_back({ControlPart::frame, static_cast<std::size_t>(group - form.groups.data())});
        if (field.kind == FieldKind::label || !field.label.empty())
            controls.push_back({ControlPart::label, i});
        if (field.kind != FieldKind::label && field.kind != FieldKind::options)
            controls.push_back({ControlPart::field, i});
        if (field.kind == FieldKind::picker) {
            controls.push_back({ControlPart::match_count, i});
            controls.push_back({ControlPart::matches, i});
        }
        if (field.kind != FieldKind::options) continue;
        for (std::size_t entry = 0; entry < field.entries.size(); ++entry)
            controls.push_back({ControlPart::option, i, entry});
    }
    controls.push_back({ControlPart::ok});
    controls.push_back({ControlPart::cancel});
    return controls;
}

bool is_visible(const Form& form, const FormControl& control) {
    if (control.part == ControlPart::frame) return any_visible(form, form.groups[control.index]);
    return !control.belongs_to_field() || form.fields[control.index].visible;
}

FormLayout layout_form(const Form& form, const std::vector<FormControl>& controls, const TextMeasure& measure,
                       int least_width) {
    return Arrangement(form, controls, measure).arrange(least_width);
}

Rectangle moved_into(const Rectangle& window, const Rectangle& area) {
    return {into(window.left, window.width, area.left, area.width),
            into(window.top, window.height, area.top, area.height), window.width, window.height};
}

Rectangle centred(const Rectangle& window, const Rectangle& over, const Rectangle& area) {
    return moved_into({over.left + (over.width - window.width) / 2,
                       over.top + (over.height - window.height) / 2, window.width, window.height},
                      area);
}

}  // namespace prot
