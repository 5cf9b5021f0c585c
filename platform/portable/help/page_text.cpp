#include "platform/portable/help/page_text.h"

#include <algorithm>
#include <pugixml.hpp>
#include <string_view>
#include <vector>

#include "platform/automation/utf8.h"

namespace prot {

namespace {

constexpr unsigned parse_options = pugi::parse_default | pugi::parse_ws_pcdata;
constexpr std::string_view white_space = " \t\r\n";

/// All text within `node`, white space as it stands.
std::string content(const pugi::xml_node& node) {
    std::string text;
    for (const pugi::xml_node& child : node.children())
        text += child.type() == pugi::node_element ? content(child) : child.value();
    return text;
}

std::vector<std::string_view> words(std::string_view text) {
    std::vector<std::string_view> found;
    for (std::size_t start = text.find_first_not_of(white_space); start != std::string_view::npos;) {
        const std::size_t end = std::min(text.find_first_of(white_space, start), text.size());
        found.push_back(text.substr(start, end - start));
        start = text.find_first_not_of(white_space, end);
    }
    return found;
}

std::string joined(std::string_view text) {
    std::string line;
    for (const std::string_view word : words(text)) line.append(line.empty() ? "" : " ").append(word);
    return line;
}

class PageText {
public:
    explicit PageText(std::size_t width) : width_(width) {}

    void write_blocks(const pugi::xml_node& parent);
    const std::string& text() const { return text_; }

private:
    void write_heading(const pugi::xml_node& heading, char underline);
    void write_paragraph(const pugi::xml_node& paragraph);
    void write_list(const pugi::xml_node& list);
    void write_table(const pugi::xml_node& table);
    void write_row(const std::vector<std::string>& headings, const std::vector<std::string>& cells);

    void begin_block();
    void write_wrapped(std::string_view text, std::string_view first_indent, std::size_t indent);

    std::size_t width_;
    std::string text_;
};

void PageText::write_blocks(const pugi::xml_node& parent) {
    for (const pugi::xml_node& block : parent.children()) {
        const std::string_view name = block.name();
        if (name == "h1")
            write_heading(block, '=');
        else if (name == "h2")
            write_heading(block, '-');
        else if (name == "p" || block.type() == pugi::node_pcdata || block.type() == pugi::node_cdata)
            write_paragraph(block);
        else if (name == "ul" || name == "ol")
            write_list(block);
        else if (name == "table")
            write_table(block);
        else
            write_blocks(block);
    }
}

void PageText::write_heading(const pugi::xml_node& heading, char underline) {
    const std::string line = joined(content(heading));
    begin_block();
    text_ += line + '\n' + std::string(count_characters(line), underline) + '\n';
}

void PageText::write_paragraph(const pugi::xml_node& paragraph) {
    const std::string text =
        paragraph.type() == pugi::node_element ? content(paragraph) : std::string(paragraph.value());
    if (words(text).empty()) return;
    begin_block();
    write_wrapped(text, "", 0);
}

void PageText::write_list(const pugi::xml_node& list) {
    begin_block();
    const bool numbered = std::string_view(list.name()) == "ol";
    std::size_t number = 0;
    for (const pugi::xml_node& entry : list.children("li")) {
        const std::string mark = numbered ? std::to_string(++number) + ". " : "- ";
        write_wrapped(content(entry), mark, mark.size());
    }
}

void PageText::write_table(const pugi::xml_node& table) {
    begin_block();
    std::vector<std::string> headings;
    for (const pugi::xml_node& row : table.children("tr")) {
        std::vector<std::string> cells;
        for (const pugi::xml_node& cell : row.children())
            if (cell.type() == pugi::node_element) cells.push_back(joined(content(cell)));
        if (row.child("th"))
            headings = cells;
        else
            write_row(headings, cells);
    }
}

void PageText::write_row(const std::vector<std::string>& headings, const std::vector<std::string>& cells) {
    constexpr std::size_t indent = 2;
    if (cells.size() == 2) return write_wrapped(cells[0] + ": " + cells[1], "", indent);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (i == 0)
            write_wrapped(cells[i], "", indent);
        else if (i < headings.size())
            write_wrapped(headings[i] + ": " + cells[i], "  ", 2 * indent);
        else
            write_wrapped(cells[i], "  ", 2 * indent);
    }
}

void PageText::begin_block() {
    if (!text_.empty()) text_ += '\n';
}

/// Lines of whole words; the first begins with `first_indent`, the others with `indent` blanks.
void PageText::write_wrapped(std::string_view text, std::string_view first_indent, std::size_t indent) {
    std::string line(first_indent);
    bool begun = false;
    for (const std::string_view word : words(text)) {
        if (begun && count_characters(line) + 1 + count_characters(word) > width_) {
            text_ += line + '\n';
            line.assign(indent, ' ');
            begun = false;
        }
        line.append(begun ? " " : "").append(word);
        begun = true;
    }
    text_ += line + '\n';
}

}  // namespace

std::optional<std::string> page_text(const std::filesystem::path& page, std::size_t width) {
    pugi::xml_document document;
    if (!document.load_file(page.c_str(), parse_options)) return std::nullopt;
    const pugi::xml_node body = document.child("html").child("body");
    if (!body) return std::nullopt;
    PageText text(width);
    text.write_blocks(body);
    return text.text();
}

}  // namespace prot
