#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace prot {

/// An element of a document, with what is in it in document order; or a text, which has no name.
struct XmlNode {
    std::string name;
    std::string text;  ///< of a text; one ends at each comment, instruction and CDATA section
    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<XmlNode> children;

    bool is_element() const { return !name.empty(); }

    /// The first child element of that name; null when there is none.
    const XmlNode* child(std::string_view child_name) const;

    /// Empty when there is none of that name.
    std::string_view attribute(std::string_view attribute_name) const;
};

/// The root of the document (UTF-8) in `file`; nothing when it cannot be read or is not well-formed. For
/// files of our own: each level of elements takes a bit of the stack. The document type of XHTML may stand at
/// the start, and means nothing.
std::optional<XmlNode> read_xml_tree(const std::filesystem::path& file);

}  // namespace prot
