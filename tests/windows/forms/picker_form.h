#pragma once

#include <functional>
#include <string>

#include "platform/forms/form.h"

namespace prot::demo {

/// A form whose picker offers twenty thousand entries. F5 to F8 change it as a form's functions may; what
/// happens is told to the log, a line each.
class PickerForm {
public:
    using Log = std::function<void(const std::string&)>;

    explicit PickerForm(Log log);

    Form& form() { return form_; }

private:
    void describe();
    void kind_changed();
    void client_changed();
    void key_pressed(int code);

    Log log_;
    Form form_;
};

}  // namespace prot::demo
