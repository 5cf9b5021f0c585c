#include "tests/documents/printed.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>

#include "apps/protcsv/options/option_table.h"

namespace prot::test {

namespace {

constexpr std::string_view call = "protcsv ";

std::vector<std::string> lines_of(std::string_view text) {
    std::vector<std::string> lines;
    std::istringstream stream{std::string(text)};
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

bool calls(const std::string& line) {
    return line.starts_with(call) || line.find("(protcsv ") != std::string::npos;
}

void add_block(std::vector<Printed>& all, const std::string& document,
               const std::vector<std::string>& lines) {
    const bool of_calls = std::ranges::any_of(lines, calls);
    std::string text;
    for (const std::string& line : lines) {
        if (of_calls && line.empty()) continue;
        text += line + '\n';
        if (!of_calls || line.ends_with('\\')) continue;
        all.push_back({document, text, name_of(text)});
        text.clear();
    }
    if (!of_calls && !lines.empty()) all.push_back({document, text, name_of(lines.front())});
}

std::string file_of(const char* name) {
    std::ifstream file(std::filesystem::path(PROT_SOURCE_DIR) / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void append(std::vector<Printed>& all, const std::vector<Printed>& more) {
    all.insert(all.end(), more.begin(), more.end());
}

}  // namespace

std::string name_of(std::string_view text) {
    std::string name = std::regex_replace(std::string(text), std::regex(R"(\\\n)"), " ");
    name = std::regex_replace(name, std::regex(R"(\s# [^\n]*\n?$)"), "");
    name = std::regex_replace(name, std::regex(R"(\s+$)"), "");
    return std::regex_replace(name, std::regex(" +"), " ");
}

std::vector<Printed> printed_blocks(const std::string& document, std::string_view text, std::size_t indent) {
    std::vector<Printed> all;
    std::vector<std::string> block;
    const std::string margin(indent, ' ');
    std::size_t blank_lines = 0;
    for (const std::string& line : lines_of(text)) {
        if (line.empty() && !block.empty()) {
            ++blank_lines;
        } else if (line.starts_with(margin)) {
            block.insert(block.end(), blank_lines, "");
            blank_lines = 0;
            block.push_back(line.substr(indent));
        } else {
            add_block(all, document, block);
            block.clear();
            blank_lines = 0;
        }
    }
    add_block(all, document, block);
    return all;
}

std::vector<Printed> printed_between(const std::string& document, const std::string& text) {
    static const std::regex example("`(protcsv [a-z][^`]*|/autostart[^`]*|/[^/:`]+:[^`]*)`");
    std::vector<Printed> all;
    for (std::sregex_iterator at(text.begin(), text.end(), example), end; at != end; ++at)
        all.push_back({document, (*at)[1].str(), name_of((*at)[1].str())});
    return all;
}

std::vector<Printed> all_printed() {
    std::vector<Printed> all;
    for (const char* const document : {"README.md", "docs/handbuch.md", "docs/sql-server.md"}) {
        append(all, printed_blocks(document, file_of(document), 4));
        append(all, printed_between(document, file_of(document)));
    }
    for (const CommandRow& row : command_table())
        append(all, printed_blocks("help " + std::string(row.name), row.footer, 2));
    return all;
}

}  // namespace prot::test
