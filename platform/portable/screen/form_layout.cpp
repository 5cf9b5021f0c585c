#include "platform/portable/screen/form_layout.h"

#include <algorithm>
#include <span>

#include "platform/portable/screen/columns.h"

namespace prot {

namespace {

constexpr int margin = 1;           // between the window's frame and its content, left and right
constexpr int frame_width = 2;      // a group's frame and the blank beside it, on each side
constexpr int between = 2;          // columns between a label and its field
constexpr int between_lists = 4;    // columns
constexpr int between_buttons = 3;  // columns
constexpr int widest_text = 40;     // columns of a text field; a longer text scrolls
constexpr int narrowest_text = 10;
constexpr int most_list_rows = 10;
constexpr int comfortable_list_rows = 4;
constexpr int most_rows_beside_picker = 4;
constexpr int fewest_long_rows = 3;
constexpr int picker_width = 64;
constexpr int count_width = 15;  // "20000 von 20000"

using Row = std::vector<std::size_t>;  // fields beside each other

/// Fields with one frame around them, or with none.
struct Block {
    std::optional<std::size_t> group;
    std::vector<Row> rows;
};

int label_width(const Field& field) { return columns(without_access_key(field.label)); }

int widest_entry(const Field& field) {
    int widest = 0;
    for (const Entry& entry : field.entries) widest = std::max(widest, columns(entry.text));
    return widest;
}

int list_width(const Field& field) {
    return std::max(label_width(field), widest_entry(field) + list_extra_width);
}

int text_width(const Field& field) {
    // One more than the text, for the cursor behind it.
    return static_cast<int>(std::min<std::size_t>(field.longest + 1, widest_text));
}

int options_width_in_a_row(const Field& field) {
    int width = 0;
    for (const Entry& entry : field.entries) width += option_mark_width + columns(entry.text) + between;
    return std::max(width - between, 0);
}

std::optional<std::size_t> group_of(const Form& form, std::size_t field) {
    for (std::size_t i = 0; i < form.groups.size(); ++i)
        if (field >= form.groups[i].first && field < form.groups[i].first + form.groups[i].count) return i;
    return std::nullopt;
}

/// Whether the list may stand beside the one before it. Where a list that is refilled stands must not depend
/// on what it holds.
bool pairs(const Form& form, const Row& row, std::size_t field, int width) {
    const Field &before = form.fields[row[0]], &list = form.fields[field];
    if (row.size() != 1 || before.kind != FieldKind::list || list.kind != FieldKind::list) return false;
    if (before.refilled || list.refilled) return false;
    return list_width(before) + between_lists + list_width(list) <= width;
}

std::vector<Block> blocks_of(const Form& form, int width) {
    std::vector<Block> blocks;
    for (std::size_t i = 0; i < form.fields.size(); ++i) {
        if (!form.fields[i].visible) continue;
        const std::optional<std::size_t> group = group_of(form, i);
        if (blocks.empty() || blocks.back().group != group) blocks.push_back({group, {}});
        std::vector<Row>& rows = blocks.back().rows;
        if (!rows.empty() && pairs(form, rows.back(), i, width))
            rows.back().push_back(i);
        else
            rows.push_back({i});
    }
    return blocks;
}

struct Allowance {
    int gap;  // empty lines between the parts
    int list_rows;
    int long_rows;  // of pickers; without one, of lists that are refilled
};

/// One attempt to place everything, with no more lines than allowed.
class Placing {
public:
    Placing(const Form& form, const std::vector<Block>& blocks, int width, int least_width,
            const Allowance& allowed)
        : form_(form),
          blocks_(blocks),
          width_(width),
          allowed_(allowed),
          gap_(allowed.gap),
          content_width_(least_width) {
        layout_.fields.resize(form.fields.size());
        layout_.frames.resize(form.groups.size());
    }

    FormLayout layout() {
        row_ = gap_;
        place_notice();
        for (const Block& block : blocks_) {
            if (row_ > gap_) row_ += gap_;
            place_block(block);
        }
        row_ += gap_;
        place_buttons();
        layout_.size.columns = content_width_ + 2 * margin;
        layout_.size.rows = row_ + gap_;
        for (std::size_t i = 0; i < layout_.frames.size(); ++i)
            if (layout_.frames[i].width > 0) layout_.frames[i].width = content_width_;
        return layout_;
    }

private:
    void place_notice() {
        if (form_.notice.empty()) return;
        layout_.notice_at = {margin, row_};
        layout_.notice = wrapped(form_.notice, width_);
        for (const std::string& line : layout_.notice) widen(columns(line));
        row_ += static_cast<int>(layout_.notice.size());
    }

    void place_block(const Block& block) {
        const int inset = block.group ? frame_width : 0;
        const int top = row_;
        if (block.group) ++row_;
        label_width_ = 0;
        for (const Row& row : block.rows)
            if (const Field& field = form_.fields[row[0]]; has_label_beside(field))
                label_width_ = std::max(label_width_, label_width(field));
        for (const Row& row : block.rows) place_row(row, inset);
        if (!block.group) return;
        const std::string& caption = form_.groups[*block.group].caption;
        layout_.frames[*block.group] = {{margin, top}, 1, ++row_ - top};
        widen(columns(caption) + 2 * frame_width + 2);
    }

    static bool has_label_beside(const Field& field) {
        return field.kind == FieldKind::text || field.kind == FieldKind::options ||
               field.kind == FieldKind::picker;
    }

    void place_row(const Row& row, int inset) {
        int column = margin + inset;
        int height = 1;
        for (const std::size_t index : row) {
            place_field(index, column);
            const FieldPlace& place = layout_.fields[index];
            height = std::max(height, place.value.at.row + place.value.height - row_);
            int end = 0;
            for (const Place& part : {place.label, place.value, place.line, place.count})
                end = std::max(end, part.at.column + part.width);
            widen(end - margin + inset);
            column = end + between_lists;
        }
        row_ += height;
    }

    void place_field(std::size_t index, int column) {
        const Field& field = form_.fields[index];
        FieldPlace& place = layout_.fields[index];
        place.shown = true;
        place.label = {{column, row_}, std::min(label_width(field), width_), 1};
        const int beside = column + label_width_ + between;
        switch (field.kind) {
            case FieldKind::label:
                place.value = {{column, row_}, 0, 1};
                break;
            case FieldKind::list:
                place.value = {{column, row_ + 1}, std::min(list_width(field), width_), list_height(index)};
                break;
            case FieldKind::picker:
                place_picker(field, place, beside);
                break;
            case FieldKind::text:
                place.value = {{beside, row_}, text_width_from(field, beside), 1};
                break;
            case FieldKind::options:
                place_options(field, place, beside);
                break;
        }
    }

    /// As much as there is room for; so little that it is of no use shows as a form that does not fit.
    int text_width_from(const Field& field, int column) const {
        const int room = margin + frame_width + width_ - column;
        return std::max(std::min(text_width(field), room), std::min(text_width(field), narrowest_text));
    }

    int list_height(std::size_t index) const {
        const Field& list = form_.fields[index];
        if (!list.refilled) return std::clamp(static_cast<int>(list.entries.size()), 1, allowed_.list_rows);
        const bool beside_picker = std::ranges::any_of(form_.fields, [](const Field& field) {
            return field.visible && field.kind == FieldKind::picker;
        });
        return beside_picker ? std::min(most_rows_beside_picker, allowed_.list_rows) : allowed_.long_rows;
    }

    /// Its width is that of no entry: a look at each of them would take longer than a key may.
    void place_picker(const Field& field, FieldPlace& place, int beside) {
        const int column = place.label.at.column;
        const int width = std::min(picker_width, width_);
        const int room = column + width - between - count_width - beside;
        const int typed = std::clamp(room, narrowest_text, std::max(narrowest_text, text_width(field)));
        place.line = {{beside, row_}, typed, 1};
        place.count = {{beside + typed + between, row_}, count_width, 1};
        place.value = {{column, row_ + 1}, width, allowed_.long_rows};
    }

    void place_options(const Field& field, FieldPlace& place, int beside) {
        const int in_a_row = options_width_in_a_row(field);
        place.in_a_row = beside + in_a_row <= margin + frame_width + width_;
        if (place.in_a_row)
            place.value = {{beside, row_}, in_a_row, 1};
        else
            place.value = {{beside, row_},
                           option_mark_width + widest_entry(field),
                           std::max(static_cast<int>(field.entries.size()), 1)};
    }

    void place_buttons() {
        const int ok = columns(button_text(form_.ok));
        const int cancel = columns(button_text(form_.cancel));
        const int both = ok + between_buttons + cancel;
        widen(both);
        widen(columns(form_.caption) + 2);
        const int left = margin + (content_width_ - both) / 2;
        layout_.ok = {{left, row_}, ok, 1};
        layout_.cancel = {{left + ok + between_buttons, row_}, cancel, 1};
        ++row_;
    }

    void widen(int width) { content_width_ = std::max(content_width_, width); }

    const Form& form_;
    const std::vector<Block>& blocks_;
    int width_;  // inside a group
    Allowance allowed_;
    int gap_;
    FormLayout layout_;
    int row_ = 0;
    int content_width_;
    int label_width_ = 0;  // of the block's labels that stand beside their fields
};

}  // namespace

std::string button_text(const Button& button) { return "< " + without_access_key(button.text) + " >"; }

std::optional<FormLayout> lay_out(const Form& form, Size largest, int least_columns) {
    const int width = largest.columns - 2 * margin - 2 * frame_width;
    const int least_width = std::min(least_columns, largest.columns) - 2 * margin;
    const std::vector<Block> blocks = blocks_of(form, width);
    const auto placed = [&](const Allowance& allowed) {
        return Placing(form, blocks, width, least_width, allowed).layout();
    };
    for (const int gap : {1, 0}) {
        const int fewest = gap > 0 ? comfortable_list_rows : 1;
        for (int list_rows = most_list_rows; list_rows >= fewest; --list_rows) {
            Allowance allowed{gap, list_rows, std::max(list_rows, fewest_long_rows)};
            FormLayout layout = placed(allowed);
            if (layout.size.columns > largest.columns) return std::nullopt;
            if (layout.size.rows > largest.rows) continue;
            // Lines that are too few for one more in every list are spent on the long ones.
            while (++allowed.long_rows <= most_list_rows) {
                FormLayout longer = placed(allowed);
                if (longer.size.rows > largest.rows) break;
                layout = std::move(longer);
            }
            return layout;
        }
    }
    return std::nullopt;
}

}  // namespace prot
