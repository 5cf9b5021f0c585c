#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/forms/form.h"

/// Where the controls of a form stand: arithmetic only, without a window.
namespace prot {

/// In pixels; places of controls count from the client area's upper left corner.
struct Rectangle {
    int left = 0, top = 0, width = 0, height = 0;

    bool operator==(const Rectangle&) const = default;
};

/// The sizes of texts in the form's font, in pixels.
class TextMeasure {
public:
    virtual ~TextMeasure() = default;

    /// The font's average width and height. A quarter of the one and an eighth of the other are a dialog
    /// unit, in which distances are laid down, so that they grow with font and resolution.
    virtual int unit_width() const = 0;
    virtual int unit_height() const = 0;

    virtual int width(std::string_view text) const = 0;
    /// Height of the text when its lines break between words at `width`.
    virtual int height(std::string_view text, int width) const = 0;
};

enum class ControlPart {
    notice,       ///< above all fields
    frame,        ///< around a group
    label,        ///< before its field; all there is of a field that is a label
    field,        ///< list, text, or a picker's line to type in
    match_count,  ///< of a picker, before its matches
    matches,      ///< of a picker: the entries that match what is typed
    option,       ///< one of several
    ok,
    cancel,
};

/// One control of a form. The order of controls is that of the Tab key and of screen readers.
struct FormControl {
    ControlPart part;
    std::size_t index = 0;  ///< of the field; frame: of the group
    std::size_t entry = 0;  ///< option: of the field's entry

    bool belongs_to_field() const {
        return part != ControlPart::notice && part != ControlPart::frame && part != ControlPart::ok &&
               part != ControlPart::cancel;
    }
    bool operator==(const FormControl&) const = default;
};

/// All controls, also hidden ones: the notice where there is one, each frame before its fields, each label
/// before its field, the parts of a picker from top to bottom, OK and Cancel last. A field without label has
/// none, unless it is one.
std::vector<FormControl> controls_of(const Form& form);

/// Whether the control is on view: its field is, or one field of its group.
bool is_visible(const Form& form, const FormControl& control);

struct FormLayout {
    int width = 0, height = 0;      ///< of the client area
    std::vector<Rectangle> places;  ///< one for each control; empty where it is hidden

    bool operator==(const FormLayout&) const = default;
};

/// Labels in one column, fields beside them in another; hidden fields take no room. Long labels break between
/// words. The window is as small as its texts allow, but at least `least_width` wide.
FormLayout layout_form(const Form& form, const std::vector<FormControl>& controls, const TextMeasure& measure,
                       int least_width);

/// `window` moved into the middle of `over`, but wholly into `area` where it fits there; its upper left
/// corner is in there always.
Rectangle centred(const Rectangle& window, const Rectangle& over, const Rectangle& area);
Rectangle moved_into(const Rectangle& window, const Rectangle& area);

}  // namespace prot
