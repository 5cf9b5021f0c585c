#pragma once

#include "platform/clock.h"
#include "platform/components.h"
#include "platform/connection_information.h"
#include "platform/export_notices.h"
#include "platform/forms/form.h"
#include "platform/message_boxes.h"
#include "platform/screen_pointer.h"

namespace prot {

/// All that an exporter needs from outside, besides the database and the progress parent that each call
/// brings. Refers to objects of the host, which outlive every exporter.
struct Environment {
    Components& components;
    MessageBoxes& message_boxes;
    FormDisplay& form_display;
    ScreenPointer& screen_pointer;
    ConnectionInformation& connection_information;
    Clock& clock;
    ExportNotices& notices;
};

}  // namespace prot
