#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "platform/portable/xml/pugi_xml_select.h"
#include "tests/fuzz/claim.h"
#include "tests/fuzz/expat_reader.h"
#include "tests/fuzz/utf8_reference.h"

/// Input: a path in the first line, a document in the rest. The document loads exactly when expat finds it
/// well-formed and without a document type, and the paths select what expat reads.
namespace prot::fuzz {
namespace {

struct CodePoints {
    char32_t first, last;
};

// Beyond ASCII, the characters that no name holds. Source: XML 1.0, fifth edition, production NameChar.
constexpr CodePoints never_in_names[] = {
    {0x80, 0xB6},     {0xB8, 0xBF},     {0xD7, 0xD7},     {0xF7, 0xF7},        {0x37E, 0x37E},
    {0x2000, 0x200B}, {0x200E, 0x203E}, {0x2041, 0x206F}, {0x2190, 0x2BFF},    {0x2FF0, 0x3000},
    {0xD800, 0xF8FF}, {0xFDD0, 0xFDEF}, {0xFFFE, 0xFFFF}, {0xF0000, 0x10FFFF},
};

char32_t code_point_of(std::string_view character) {
    auto code_point = static_cast<char32_t>(static_cast<unsigned char>(character[0]) &
                                            (character.size() == 1 ? 0x7F : 0xFF >> (character.size() + 1)));
    for (const char byte : character.substr(1))
        code_point = code_point << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
    return code_point;
}

/// The fifth edition lets most characters stand in names; expat keeps to the lists of the fourth.
bool is_name_of_fifth_edition(const ExpatReading& reading, std::string_view document) {
    if (!reading.invalid_token || reading.error_at >= document.size()) return false;
    const std::string_view rest = document.substr(reading.error_at);
    const std::size_t length = utf8_length(rest);
    if (length < 2) return false;
    const char32_t c = code_point_of(rest.substr(0, length));
    return std::none_of(std::begin(never_in_names), std::end(never_in_names),
                        [c](const CodePoints& range) { return c >= range.first && c <= range.last; });
}

/// expat takes any version number.
bool is_version(std::string_view text) {
    return text.size() > 2 && text.starts_with("1.") &&
           text.find_first_not_of("0123456789", 2) == std::string_view::npos;
}

/// expat recognises UTF-16 by itself, whatever encoding it is told.
bool may_be_utf16(std::string_view document) {
    return document.find('\0') != std::string_view::npos || document.starts_with("\xFE\xFF") ||
           document.starts_with("\xFF\xFE");
}

std::string column_path(std::size_t index, std::string_view part) {
    return "//Cols/Col[" + std::to_string(index) + "]/" + std::string(part);
}

/// An index may be written with leading zeros.
std::string without_leading_zeros(std::string_view path) {
    constexpr std::string_view start = "//Cols/Col[";
    std::string result(path);
    if (!path.starts_with(start)) return result;
    while (result.size() > start.size() + 1 && result[start.size()] == '0' &&
           result[start.size() + 1] >= '0' && result[start.size() + 1] <= '9')
        result.erase(start.size(), 1);
    return result;
}

/// What has to be found in one document; a path given in the input has to agree with one of the paths known.
class Comparison {
public:
    Comparison(XmlSelect& xml, std::string_view path) : xml_(xml), path_(without_leading_zeros(path)) {}

    void expect(const std::string& path, const std::optional<std::string>& expected) {
        const std::string_view found = xml_.value(path);
        claim(found == expected.value_or(""), "a path selects what expat reads", path);
        if (path == path_) expected_ = expected.value_or("");
    }
    void expect_columns(const std::vector<ExpatColumn>& columns) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            expect(column_path(i, "attribute(\"Name\")"), columns[i].name);
            expect(column_path(i, "OldValue"), columns[i].old_value);
            expect(column_path(i, "NewValue"), columns[i].new_value);
            if (columns[i].name) expect_by_name(columns, *columns[i].name);
        }
    }
    void expect_path(std::string_view path) {
        claim(xml_.value(path) == expected_, "a path of no known form selects nothing", std::string(path));
    }

private:
    void expect_by_name(const std::vector<ExpatColumn>& columns, const std::string& name) {
        const auto first = std::find_if(columns.begin(), columns.end(), [&](const ExpatColumn& column) {
            return column.name == name && column.old_value;
        });
        expect("//Cols/Col[@Name=\"" + name + "\"]/OldValue",
               first == columns.end() ? std::nullopt : first->old_value);
    }

    XmlSelect& xml_;
    const std::string path_;
    std::string expected_;
};

void check_document(XmlSelect& xml, std::string_view path, std::string_view document) {
    const bool loaded = xml.load(document);
    const ExpatReading reading = may_be_utf16(document) ? ExpatReading() : read_with_expat(document);
    if (loaded && is_name_of_fifth_edition(reading, document)) return;
    const bool expected = reading.well_formed && is_version(reading.version);
    claim(loaded == expected, "a document loads exactly when expat finds it well-formed",
          loaded ? "loaded" : "refused");
    const std::vector<ExpatColumn> columns = loaded ? reading.columns : std::vector<ExpatColumn>();
    claim(xml.count("//Cols") == static_cast<std::int32_t>(columns.size()), "every column counts, no other");
    Comparison comparison(xml, path);
    comparison.expect_columns(columns);
    comparison.expect_path(path);
    claim(path == "//Cols" || xml.count(path) == 0, "only //Cols counts anything");
}

}  // namespace
}  // namespace prot::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace prot::fuzz;
    std::string_view document = input_text(data, size);
    const std::string_view path = take_line(document);
    const auto xml = prot::create_pugi_xml_select();
    claim(xml->load("<Cols><Col Name='a'><OldValue>stale</OldValue></Col></Cols>"), "a plain document loads");
    check_document(*xml, path, document);
    check_document(*xml, path, document);
    return 0;
}
