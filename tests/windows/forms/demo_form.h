#pragma once

#include <functional>
#include <string>

#include "platform/forms/form.h"
#include "platform/message_boxes.h"

namespace prot::demo {

/// A form with a field of every kind, whose functions do to it what a form's functions may do, and tell the
/// log what they were called for, a line each.
class DemoForm {
public:
    using Log = std::function<void(const std::string&)>;

    DemoForm(MessageBoxes& boxes, Log log);

    Form& form() { return form_; }

private:
    void describe();
    void fill_accounts();
    void kind_changed();
    void currency_changed();
    void detail_changed();
    bool valid_year();
    bool valid_text();
    void ok();

    MessageBoxes& boxes_;
    Log log_;
    Form form_;
};

}  // namespace prot::demo
