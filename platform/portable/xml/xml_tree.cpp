#include "platform/portable/xml/xml_tree.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "platform/automation/utf8.h"
#include "platform/portable/xml/xml_scanner.h"
#include "platform/portable/xml/xml_text.h"

namespace prot {

namespace {

using xml::Stretch;

std::string resolved(Stretch stretch) {
    std::string text;
    xml::append_text(text, stretch);
    return text;
}

// Grows the tree. Only the last child of an element is open, so that those which are open stay where they
// are.
class Tree {
public:
    void begin_element(std::string_view name) { open_.push_back(&add({std::string(name), {}, {}, {}})); }
    void attribute(std::string_view name, Stretch value) {
        open_.back()->attributes.emplace_back(name, resolved(value));
    }
    void text(Stretch text) { add({{}, resolved(text), {}, {}}); }
    void end_element() { open_.pop_back(); }

    XmlNode& root() { return document_.children.front(); }

private:
    XmlNode& add(XmlNode node) { return open_.back()->children.emplace_back(std::move(node)); }

    XmlNode document_;
    std::vector<XmlNode*> open_ = {&document_};
};

std::string content_of(const std::filesystem::path& file) {
    std::ostringstream content;
    content << std::ifstream(file, std::ios::binary).rdbuf();
    return std::move(content).str();
}

void remove_start(std::string& text, std::string_view start) {
    if (text.starts_with(start)) text.erase(0, start.size());
}

}  // namespace

const XmlNode* XmlNode::child(std::string_view child_name) const {
    const auto found = std::ranges::find(children, child_name, &XmlNode::name);
    return found != children.end() ? &*found : nullptr;
}

std::string_view XmlNode::attribute(std::string_view attribute_name) const {
    const auto found =
        std::ranges::find(attributes, attribute_name, [](const auto& each) { return each.first; });
    return found != attributes.end() ? std::string_view(found->second) : std::string_view();
}

std::optional<XmlNode> read_xml_tree(const std::filesystem::path& file) {
    std::string document = content_of(file);
    remove_start(document, utf8_byte_order_mark);
    remove_start(document, "<!DOCTYPE html>");
    Tree tree;
    if (!xml::Scanner(tree).scan(document)) return std::nullopt;
    return std::move(tree.root());
}

}  // namespace prot
