#include "platform/portable/help/page_text.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/automation/utf8.h"
#include "platform/portable/xml/xml_tree.h"

namespace prot {

namespace {

constexpr std::string_view white_space = " \t\r\n";

/// All text within `node`, white space as it stands.
std::string content(const XmlNode& node) {
    std::string text = node.text;
    for (const XmlNode& child : node.children) text += content(child);
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

    void write_blocks(const XmlNode& parent);
    const std::string& text() const { return text_; }

private:
    void write_heading(const XmlNode& heading, char underline);
    void write_paragraph(const XmlNode& paragraph);
    void write_list(const XmlNode& list);
    void write_table(const XmlNode& table);
    void write_row(const std::vector<std::string>& headings, const std::vector<std::string>& cells);

    void begin_block();
    void write_wrapped(std::string_view text, std::string_view first_indent, std::size_t indent);

    std::size_t width_;
    std::string text_;
};

void PageText::write_blocks(const XmlNode& parent) {
    for (const XmlNode& block : parent.children) {
        const std::string_view name = block.name;
        if (name == "h1")
            write_heading(block, '=');
        else if (name == "h2")
            write_heading(block, '-');
        else if (name == "p" || !block.is_element())
            write_paragraph(block);
        else if (name == "ul" || name == "ol")
            write_list(block);
        else if (name == "table")
            write_table(block);
        else
            write_blocks(block);
    }
}

void PageText::write_heading(const XmlNode& heading, char underline) {
    const std::string line = joined(content(heading));
    begin_block();
    text_ += line + '\n' + std::string(count_characters(line), underline) + '\n';
}

void PageText::write_paragraph(const XmlNode& paragraph) {
    const std::string text = content(paragraph);
    if (words(text).empty()) return;
    begin_block();
    write_wrapped(text, "", 0);
}

void PageText::write_list(const XmlNode& list) {
    begin_block();
    const bool numbered = list.name == "ol";
    std::size_t number = 0;
    for (const XmlNode& entry : list.children) {
        if (entry.name != "li") continue;
        const std::string mark = numbered ? std::to_string(++number) + ". " : "- ";
        write_wrapped(content(entry), mark, mark.size());
    }
}

void PageText::write_table(const XmlNode& table) {
    begin_block();
    std::vector<std::string> headings;
    for (const XmlNode& row : table.children) {
        if (row.name != "tr") continue;
        std::vector<std::string> cells;
        for (const XmlNode& cell : row.children)
            if (cell.is_element()) cells.push_back(joined(content(cell)));
        if (row.child("th") != nullptr)
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
    const std::optional<XmlNode> html = read_xml_tree(page);
    const XmlNode* const body = html && html->name == "html" ? html->child("body") : nullptr;
    if (body == nullptr) return std::nullopt;
    PageText text(width);
    text.write_blocks(*body);
    return text.text();
}

}  // namespace prot
