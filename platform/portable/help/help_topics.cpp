#include "platform/portable/help/help_topics.h"

#include <system_error>

#include "platform/portable/files/atomic_file.h"
#include "platform/portable/help/page_text.h"
#include "platform/portable/xml/xml_tree.h"

namespace prot {

namespace {

namespace fs = std::filesystem;

/// A colon would name a drive or a stream of the file on Windows.
bool is_plain_name(std::string_view name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string_view("/\\:\0", 4)) == std::string_view::npos;
}

std::optional<fs::path> file_in(const fs::path& folder, std::string_view name) {
    if (folder.empty() || !is_plain_name(name)) return std::nullopt;
    fs::path file = folder / text_path(name);
    std::error_code missing;
    if (!fs::is_regular_file(file, missing)) return std::nullopt;
    return file;
}

}  // namespace

HelpTopics HelpTopics::of_program(const fs::path& folder) {
    for (const char* place : {"hilfe", PROT_INSTALLED_HELP}) {
        std::error_code missing;
        const fs::path help = (folder / place).lexically_normal();
        if (!folder.empty() && fs::is_directory(help, missing)) return HelpTopics(help);
    }
    return HelpTopics({});
}

std::optional<fs::path> HelpTopics::page(std::string_view map_file, std::string_view help_id) const {
    const std::optional<fs::path> map = file_in(folder_, map_file);
    const std::optional<XmlNode> topics = map ? read_xml_tree(*map) : std::nullopt;
    if (!topics || topics->name != "hilfe") return std::nullopt;
    for (const XmlNode& topic : topics->children)
        if (topic.name == "thema" && topic.attribute("id") == help_id)
            return file_in(folder_, topic.attribute("seite"));
    return std::nullopt;
}

std::optional<std::string> HelpTopics::text(std::string_view map_file, std::string_view help_id,
                                            std::size_t width) const {
    const std::optional<fs::path> file = page(map_file, help_id);
    return file ? page_text(*file, width) : std::nullopt;
}

}  // namespace prot
