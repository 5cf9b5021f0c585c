#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/help_display.h"

namespace prot {

/// The page of a help topic; nothing when there is none.
using HelpPage =
    std::function<std::optional<std::filesystem::path>(std::string_view map_file, std::string_view help_id)>;

/// Help as pages that the system's browser shows. A topic without a page, or a page that cannot be opened, is
/// an automation error that names it.
class BrowserHelpDisplay : public HelpDisplay {
public:
    explicit BrowserHelpDisplay(HelpPage page) : page_(std::move(page)) {}

    bool show_topic(std::string_view map_file, std::string_view help_id) override;

private:
    HelpPage page_;
};

/// The suite's help viewer where it is registered, else the pages.
std::unique_ptr<HelpDisplay> help_display(HelpPage page);

}  // namespace prot
