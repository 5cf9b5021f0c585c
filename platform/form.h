#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A filter form as data. A section describes its form once and answers its events; a FormDisplay renders it.
namespace prot {

/// A list field: one of its entries is selected. Entries keep their order.
struct ListField {
    struct Entry {
        std::int64_t key = 0;
        std::string text;
    };

    std::string name;   ///< the control's name
    std::string label;  ///< what the person reads before the field
    std::vector<Entry> entries;
    std::optional<std::size_t> selected;  ///< index into entries
    bool enabled = true;

    void add(std::int64_t key, std::string text) { entries.push_back({key, std::move(text)}); }
    /// Selects the first entry of that key; nothing changes when there is none.
    void select_key(std::int64_t key);
    /// The selected entry's text; empty when none is selected.
    std::string selected_text() const;
};

struct Form {
    std::string caption;
    std::vector<ListField> fields;         ///< in the order of the focus
    std::size_t focus = 0;                 ///< index of the field that has the focus
    bool key_preview = false;              ///< the form sees key strokes before its fields
    bool cancel_causes_validation = true;  ///< false: Cancel works while a field holds an invalid entry
    bool shown = false;                    ///< a modal display ends when this turns false
};

struct KeyStroke {
    int code = 0;  ///< virtual key code; 112 is F1
    bool shift = false, control = false, alt = false;
};
inline constexpr int key_f1 = 112;

/// What a section does when something happens to its form. No event lets an error escape.
class FormEvents {
public:
    virtual ~FormEvents() = default;
    virtual void Form_Load() = 0;
    virtual void Form_KeyDown(const KeyStroke& key) = 0;
    virtual void Form_Unload() = 0;
    virtual void cmdOK_Click() = 0;
    virtual void cmdCancel_Click() = 0;
};

/// Renders forms.
class FormDisplay {
public:
    virtual ~FormDisplay() = default;

    /// The host's standard set-up of a form, called while it loads; 1000 is the set-up of the filter forms.
    virtual void standard_setup(Form& form, int code) = 0;

    /// Shows the form until an event sets `form.shown` to false.
    virtual void show_modal(Form& form, FormEvents& events) = 0;
};

}  // namespace prot
