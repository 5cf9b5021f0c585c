#include "platform/windows/system/system_message_boxes.h"

#include <windows.h>

#include <string>

#include "platform/windows/com/com_error.h"
#include "platform/windows/text/wide_text.h"

namespace prot {

namespace {

AutomationError unseen(std::string_view text, std::string_view title, const std::string& reason) {
    std::string description =
        "Ohne interaktiven Desktop lässt sich nichts anzeigen und nichts fragen. Nicht gezeigt wurde: [";
    description.append(title).append("] ").append(text);
    if (!reason.empty()) description.append(" (").append(reason).append(")");
    return {ErrorNumber::internal, std::move(description)};
}

}  // namespace

BoxAnswer SystemMessageBoxes::show(std::string_view text, BoxStyle style, std::string_view title) {
    int pressed = 0;
    std::string reason;
    if (has_interactive_desktop()) {
        pressed = MessageBoxW(GetActiveWindow(), to_wide(text).c_str(), to_wide(title).c_str(),
                              static_cast<UINT>(style));
        // Wine answers -1 where no window can be opened.
        if (pressed <= 0) reason = system_text(HRESULT_FROM_WIN32(GetLastError()));
    }
    if (pressed <= 0) {
        refused_(unseen(text, title, reason));
        return is_question(style) ? BoxAnswer::no : BoxAnswer::ok;
    }
    return static_cast<BoxAnswer>(pressed);
}

bool has_interactive_desktop() noexcept {
    USEROBJECTFLAGS flags = {};
    const HWINSTA station = GetProcessWindowStation();
    return station && GetUserObjectInformationW(station, UOI_FLAGS, &flags, sizeof flags, nullptr) &&
           (flags.dwFlags & WSF_VISIBLE) != 0;
}

}  // namespace prot
