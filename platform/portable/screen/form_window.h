#pragma once

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

    /// A screen too small for the form shows that instead.
    Picture picture(Size screen) override;

private:
    bool on_choice() const;
    void draw_frames(Picture& picture, const FormLayout& layout) const;
    void draw_label(Picture& picture, const Field& field, const FieldPlace& place) const;
    void draw_field(Picture& picture, std::size_t index, const FieldPlace& place);
    void draw_list(Picture& picture, std::size_t index, const FieldPlace& place);
    void draw_options(Picture& picture, std::size_t index, const FieldPlace& place) const;
    void draw_text(Picture& picture, std::size_t index, const FieldPlace& place) const;
    void draw_button(Picture& picture, const Button& button, std::size_t target, const Place& place) const;
    std::size_t first_on_view(std::size_t index, std::size_t rows);

    const Form& form_;
    FormSession& session_;
    std::vector<std::size_t> first_;  // of each list: the entry in its first line
};

}  // namespace prot
