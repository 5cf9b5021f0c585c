#pragma once

#include <optional>
#include <vector>

#include "platform/forms/form.h"
#include "platform/portable/screen/picture.h"

/// Where the parts of a form stand in its window: fields below each other in the order of the focus, lists in
/// pairs side by side where the screen is wide enough, the buttons below them all. Lists and pickers get as
/// many lines as the screen has to spare. Neither pickers nor lists that are refilled become longer or
/// shorter with what they hold, so that typing and choosing move nothing.
namespace prot {

struct Place {
    Position at{};
    int width = 0, height = 0;
};

struct FieldPlace {
    bool shown = false;
    Place label{};
    Place value{};
    Place line{}, count{};  ///< picker: what is typed, and beside it how many entries match; `value` is below
    bool in_a_row = false;  ///< options: beside each other instead of below
};

struct FormLayout {
    Size size{};
    std::vector<FieldPlace> fields;   ///< one a field
    std::vector<Place> frames;        ///< one a group; width 0: none of its fields is visible
    std::vector<std::string> notice;  ///< its lines, from `notice_at` downwards
    Position notice_at{};
    Place ok{}, cancel{};
};

/// What a line of a list takes besides its text: the mark of the selected one, and the scroll bar.
inline constexpr int list_mark_width = 2;
inline constexpr int list_bar_width = 2;
inline constexpr int list_extra_width = list_mark_width + list_bar_width;
/// What an option takes besides its text.
inline constexpr int option_mark_width = 4;

/// The text of a button with what marks it as one.
std::string button_text(const Button& button);

/// Nothing when the form does not fit into a window of that size. least_columns: of the window, as far as
/// there is room for them.
std::optional<FormLayout> lay_out(const Form& form, Size largest, int least_columns = 0);

}  // namespace prot
