#include "platform/portable/xml/pugi_document_reader.h"

#include <cstring>
#include <new>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "platform/portable/xml/xml_well_formed.h"

namespace prot {

namespace {

// Text is taken as it is, blank-only text too; its line ends are normalised, its references resolved.
// Comments and processing instructions make no nodes. The first text of an element is kept in the element
// itself.
constexpr unsigned parse_options = pugi::parse_cdata | pugi::parse_escapes | pugi::parse_eol |
                                   pugi::parse_wconv_attribute | pugi::parse_ws_pcdata |
                                   pugi::parse_embed_pcdata;

// What one document may leave behind for the next.
constexpr std::size_t kept_bytes = 1 << 20;

// The node after `node` in document order among those below `top`; none at the end.
pugi::xml_node next_in_document(pugi::xml_node node, const pugi::xml_node& top) {
    if (const pugi::xml_node child = node.first_child()) return child;
    while (node != top) {
        if (const pugi::xml_node sibling = node.next_sibling()) return sibling;
        node = node.parent();
    }
    return {};
}

// Only elements have names.
pugi::xml_node first_of_name(const pugi::xml_node& top, const char* name) {
    pugi::xml_node node = top.first_child();
    while (node && std::strcmp(node.name(), name) != 0) node = next_in_document(node, top);
    return node;
}

template <class Container>
void release_if_large(Container& container) {
    if (container.capacity() * sizeof(*container.data()) > kept_bytes) Container().swap(container);
}

class PugiDocumentReader : public ChangeDocumentReader {
public:
    bool load(std::string_view document) override {
        forget();
        text_.assign(document);
        if (!is_strict_xml(text_)) {
            document_.reset();
            return false;
        }
        const pugi::xml_parse_result result =
            document_.load_buffer_inplace(text_.data(), text_.size(), parse_options, pugi::encoding_utf8);
        if (result.status == pugi::status_out_of_memory) throw std::bad_alloc();
        if (!result) {
            document_.reset();
            return false;
        }
        collect_columns();
        return true;
    }

    std::int32_t columns() const override { return static_cast<std::int32_t>(columns_.size()); }

    std::string_view part(std::int32_t index, ColumnPart part) override {
        if (index < 0 || index >= columns()) return {};
        const pugi::xml_node column = columns_[static_cast<std::size_t>(index)];
        switch (part) {
            case ColumnPart::name:
                return column.attribute("Name").value();
            case ColumnPart::old_value:
                return text_of(column.child("OldValue"));
            case ColumnPart::new_value:
                return text_of(column.child("NewValue"));
        }
        return {};
    }

    std::string_view old_value_of(std::string_view name) override {
        for (const pugi::xml_node& column : columns_) {
            const pugi::xml_attribute attribute = column.attribute("Name");
            if (!attribute || name != attribute.value()) continue;
            if (const pugi::xml_node old_value = column.child("OldValue")) return text_of(old_value);
        }
        return {};
    }

private:
    void forget() {
        columns_.clear();
        release_if_large(text_);
        release_if_large(joined_);
        release_if_large(columns_);
    }

    void collect_columns() {
        const pugi::xml_node all = first_of_name(document_, "Cols");
        for (pugi::xml_node node = all.child("Col"); node; node = node.next_sibling("Col")) {
            columns_.push_back(node);
        }
    }

    std::string_view text_of(const pugi::xml_node& node) {
        const std::string_view own = node.value();
        const pugi::xml_node child = node.first_child();
        if (!child) return own;
        if (own.empty() && child.type() != pugi::node_element && !child.next_sibling()) return child.value();
        joined_ = own;
        for (pugi::xml_node below = child; below; below = next_in_document(below, node)) {
            joined_ += below.value();
        }
        return joined_;
    }

    std::string text_;  // the document, which the parser turns into the nodes' texts in place
    pugi::xml_document document_;
    std::vector<pugi::xml_node> columns_;
    std::string joined_;
};

}  // namespace

std::unique_ptr<ChangeDocumentReader> create_pugi_document_reader() {
    return std::make_unique<PugiDocumentReader>();
}

}  // namespace prot
