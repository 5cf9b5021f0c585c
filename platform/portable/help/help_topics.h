#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/portable/files/program_folder.h"

namespace prot {

/// The help topics of a folder: help maps, which name a page for each help id, and the pages themselves.
///
/// A map is XML of the form `<hilfe><thema id="HID_…" seite="seite.html"/>…</hilfe>`, a page XHTML (see
/// page_text.h). Maps and pages are named without folders; a name that leads out of the folder is taken for
/// missing. Nothing is remembered, each question reads the files.
class HelpTopics {
public:
    static constexpr std::size_t terminal_width = 76;

    /// An empty folder holds no topics.
    explicit HelpTopics(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// The topics of the program in `folder`, by default the running one: those in the folder `hilfe` beside
    /// it, else those that were installed with it; none when both are missing.
    static HelpTopics of_program(const std::filesystem::path& folder = program_folder());

    /// The page of topic `help_id`, which exists. Nothing when the map or the page is missing, or the map is
    /// no XML or names no page for the id.
    std::optional<std::filesystem::path> page(std::string_view map_file, std::string_view help_id) const;

    /// The page as plain text in UTF-8, its lines at most `width` characters long where their words allow it.
    /// Nothing when there is no page or it is no XML.
    std::optional<std::string> text(std::string_view map_file, std::string_view help_id,
                                    std::size_t width = terminal_width) const;

private:
    std::filesystem::path folder_;
};

}  // namespace prot
