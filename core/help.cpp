#include "core/help.h"

#include "core/ZQErrorHandling.h"

namespace prot {

namespace {
constexpr std::string_view help_map = "mivra_allgemein.xml";
constexpr std::string_view create_help_command =
    "\r\nFehler beim Zugriff auf die srvZQ.dll\r\nSet oZqHelp = New srvZQ.ZQHelpClass";
}  // namespace

void gShowWikiHelpxxx(std::string_view sHelpId, Environment& environment) try {
    const auto oZqHelp = with_failing_command(
        create_help_command, [&environment] { return environment.components.create_help_display(); });
    oZqHelp->show_topic(help_map, sHelpId);
} catch (...) {
    show_and_end(environment, "ZQHelp", "gShowWikiHelpxxx");
}

}  // namespace prot
