#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "platform/portable/xml/document_reader.h"
#include "tests/fuzz/claim.h"
#include "tests/fuzz/expat_reader.h"
#include "tests/fuzz/utf8_reference.h"

/// Input: a column's name in the first line, a document in the rest. The document loads exactly when expat
/// finds it well-formed and without a document type, and its columns are what expat reads.
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

/// The old value that the columns have for a name.
std::string old_value_of(const std::vector<ExpatColumn>& columns, std::string_view name) {
    const auto first = std::find_if(columns.begin(), columns.end(), [&](const ExpatColumn& column) {
        return column.name == name && column.old_value;
    });
    return first == columns.end() ? std::string() : *first->old_value;
}

void expect_columns(ChangeDocumentReader& reader, const std::vector<ExpatColumn>& columns) {
    claim(reader.columns() == static_cast<std::int32_t>(columns.size()), "every column counts, no other");
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto expect = [&](ColumnPart part, const std::optional<std::string>& expected,
                                const char* what) {
            claim(reader.part(static_cast<std::int32_t>(i), part) == expected.value_or(""), what);
        };
        expect(ColumnPart::name, columns[i].name, "a name is what expat reads");
        expect(ColumnPart::old_value, columns[i].old_value, "an old value is what expat reads");
        expect(ColumnPart::new_value, columns[i].new_value, "a new value is what expat reads");
        if (columns[i].name)
            claim(reader.old_value_of(*columns[i].name) == old_value_of(columns, *columns[i].name),
                  "a name leads to its first old value", *columns[i].name);
    }
    const auto behind = static_cast<std::int32_t>(columns.size());
    claim(reader.part(behind, ColumnPart::old_value).empty(), "behind the last column there is nothing");
}

void check_document(ChangeDocumentReader& reader, std::string_view name, std::string_view document) {
    const bool loaded = reader.load(document);
    const ExpatReading reading = may_be_utf16(document) ? ExpatReading() : read_with_expat(document);
    if (loaded && is_name_of_fifth_edition(reading, document)) return;
    const bool expected = reading.well_formed && is_version(reading.version);
    claim(loaded == expected, "a document loads exactly when expat finds it well-formed",
          loaded ? "loaded" : "refused");
    const std::vector<ExpatColumn> columns = loaded ? reading.columns : std::vector<ExpatColumn>();
    expect_columns(reader, columns);
    claim(reader.old_value_of(name) == old_value_of(columns, name), "any name is looked for as it is",
          std::string(name));
}

/// Whatever was loaded before.
void check_plain_document(ChangeDocumentReader& reader) {
    claim(reader.load("<Cols a='' b=''><Col a='' b='' Name='&lt;'><OldValue>x&gt;</OldValue></Col></Cols>"),
          "a plain document loads");
    claim(reader.columns() == 1 && reader.old_value_of("<") == "x>", "it is read as it is");
}

}  // namespace
}  // namespace prot::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace prot::fuzz;
    std::string_view document = input_text(data, size);
    const std::string_view name = take_line(document);
    const auto reader = prot::create_document_reader();
    check_plain_document(*reader);
    check_document(*reader, name, document);
    check_plain_document(*reader);
    reader->load(document.substr(0, document.size() / 2));
    check_document(*reader, name, document);
    return 0;
}
