#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A filter form as data. A section describes its form once: fields, labels, buttons, and its own functions
/// that answer what happens to them; every FormDisplay renders that description. While the form is open those
/// functions may change it (fill, select, switch off, hide, move the focus), and the display follows.
namespace prot {

/// One line of a list, or one of several options.
struct Entry {
    std::int64_t key = 0;
    std::string text{};
    std::string number{};  ///< what the entry goes by besides its text; may be empty
};

enum class FieldKind {
    list,     ///< one of its entries is selected
    picker,   ///< a list of up to some ten thousand; typing leaves those on view that match (EntrySearch)
    text,     ///< a line of text
    options,  ///< all entries are on view, one is selected
    label,    ///< only its label; never has the focus
};

/// One field of a form. Which members count depends on its kind.
struct Field {
    FieldKind kind = FieldKind::list;
    std::string name{};                     ///< the control's name
    std::string label{};                    ///< stands before the field; & marks the access key, && is a &
    std::vector<Entry> entries{};           ///< list, picker, options; they keep their order
    std::optional<std::size_t> selected{};  ///< index into entries
    std::string text{};                     ///< text: what the person sees and edits; picker: what is typed
    std::size_t longest = 255;              ///< text, picker: most characters that the person can type
    bool refilled = false;                  ///< list: choices in other fields give it other entries
    bool enabled = true;
    bool visible = true;

    /// The person chose another entry, or changed the text; the field holds it already. Typing into a picker
    /// is a change when it leads to another entry.
    std::function<void()> changed{};
    /// The person leaves a text field. False: the entry is refused, and the focus stays; what is wrong has
    /// been said. Cancel may leave without asking.
    std::function<bool()> validate{};

    /// Takes what the person chose; `changed` hears of it when it is another entry.
    void choose(std::optional<std::size_t> entry);
    void add(std::int64_t key, std::string entry_text) { entries.push_back({key, std::move(entry_text)}); }
    /// Selects the first entry of that key; nothing changes when there is none.
    void select_key(std::int64_t key);
    /// The selected entry's text; empty when none is selected.
    std::string selected_text() const;
    bool can_have_focus() const { return kind != FieldKind::label && enabled && visible; }
};

/// Calls a function of a form; an empty one does nothing.
inline void notify(const std::function<void()>& function) {
    if (function) function();
}

struct Button {
    std::string name{};
    std::string text{};  ///< with & before its access key
    bool enabled = true;
    bool causes_validation = true;  ///< false: works while a field holds an invalid entry
    std::function<void()> click{};
};

/// Fields that belong together, framed under a caption.
struct Group {
    std::string caption{};
    std::size_t first = 0, count = 0;  ///< of the form's fields
};

struct KeyStroke {
    int code = 0;  ///< virtual key code; 112 is F1
    bool shift = false, control = false, alt = false;
};
inline constexpr int key_f1 = 112;

struct Form {
    std::string caption{};
    std::string help_id{};      ///< topic that F1 shows
    std::string notice{};       ///< stands above the fields, LF between lines; what the host has to say
    std::vector<Field> fields;  ///< in the order of the focus
    std::vector<Group> groups;  ///< in the order of the fields, none in another
    Button ok;                  ///< pressed by Enter
    Button cancel;              ///< pressed by Esc
    std::size_t focus = 0;      ///< index of the field that has the focus
    bool select_focus = false;  ///< set with `focus`: the text of that field is selected as a whole
    bool key_preview = false;   ///< the form sees key strokes before its fields
    bool shown = false;         ///< a modal display ends when this turns false

    std::function<void(const KeyStroke&)> key_down{};

    Field& field(std::string_view name);  ///< the field of that name, which exists
    const Field& field(std::string_view name) const;

    /// Puts the focus on a field; a text field's whole text is selected.
    void set_focus(std::size_t index) {
        focus = index;
        select_focus = true;
    }
};

/// The text of a label or button as a person reads it, without the mark of its access key.
std::string without_access_key(std::string_view label);

/// The character behind the mark, in lower case; 0 when there is none.
char32_t access_key(std::string_view label);

/// Renders forms.
class FormDisplay {
public:
    virtual ~FormDisplay() = default;

    /// The host's standard set-up of a form, called while it loads; 1000 is the set-up of the filter forms. A
    /// display that draws forms by their description alone has nothing to set up.
    virtual void standard_setup(Form& /*form*/, int /*code*/) {}

    /// Shows the form until one of its functions sets `form.shown` to false. No function of a form lets an
    /// error escape.
    virtual void show_modal(Form& form) = 0;
};

}  // namespace prot
