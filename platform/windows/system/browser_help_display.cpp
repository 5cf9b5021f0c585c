#include "platform/windows/system/browser_help_display.h"

#include "platform/automation/error.h"
#include "platform/windows/host/suite_components.h"
#include "platform/windows/system/finished_file.h"
#include "platform/windows/text/wide_text.h"

namespace prot {

bool BrowserHelpDisplay::show_topic(std::string_view map_file, std::string_view help_id) {
    const std::optional<std::filesystem::path> page = page_(map_file, help_id);
    if (!page)
        throw AutomationError(ErrorNumber::file,
                              "Zum Hilfethema „" + std::string(help_id) + "“ gibt es hier keine Seite.");
    const std::optional<std::string> problem = open_with_registered_program(to_utf8(page->wstring()));
    if (problem)
        throw AutomationError(ErrorNumber::file, "Die Hilfeseite lässt sich nicht öffnen:\r\n" + *problem);
    return true;
}

std::unique_ptr<HelpDisplay> help_display(HelpPage page) {
    if (is_registered(help_class)) return suite_help_display();
    return std::make_unique<BrowserHelpDisplay>(std::move(page));
}

}  // namespace prot
