#pragma once

#include <functional>
#include <vector>

#include "platform/portable/screen/form_layout.h"
#include "platform/portable/screen/form_session.h"
#include "platform/portable/screen/picture.h"

namespace prot {

/// A form as a window, drawn as its session stands.
class FormWindow : public Window {
public:
    /// Both outlive the window.
    FormWindow(const Form& form, FormSession& session) : form_(form), session_(session) {}

    /// A screen too small for the form shows that instead. From one picture to the next the window never
    /// becomes narrower than the screen makes it.
    Picture picture(Size screen) override;

private:
    std::string help_line() const;
    void draw_notice(Picture& picture, const FormLayout& layout) const;
    void draw_frames(Picture& picture, const FormLayout& layout) const;
    void draw_label(Picture& picture, const Field& field, const FieldPlace& place) const;
    void draw_field(Picture& picture, std::size_t index, const FieldPlace& place);
    void draw_list(Picture& picture, std::size_t index, const FieldPlace& place);
    void draw_picker(Picture& picture, std::size_t index, const FieldPlace& place);

    /// Lines of a list of which one is selected.
    struct Rows {
        std::size_t count = 0;
        std::optional<std::size_t> selected;
        std::function<std::string(std::size_t row)> text;
    };
    void draw_rows(Picture& picture, std::size_t index, const Place& place, const Rows& rows);
    void draw_options(Picture& picture, std::size_t index, const FieldPlace& place) const;
    void draw_line(Picture& picture, std::size_t index, const Place& place) const;
    void draw_button(Picture& picture, const Button& button, std::size_t target, const Place& place) const;
    std::size_t first_on_view(std::size_t index, const Rows& rows, std::size_t height);

    const Form& form_;
    FormSession& session_;
    std::vector<std::size_t> first_;  // of each list: the row in its first line
    int columns_ = 0;                 // of the picture before
};

}  // namespace prot
