#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/csv/csv_file_writer.h"
#include "tests/fuzz/claim.h"
#include "tests/fuzz/memory_files.h"
#include "tests/fuzz/rfc4180_reader.h"
#include "tests/fuzz/utf8_reference.h"

/// Input: one byte for the encoding (its remainder by three), one for the separator (see separator_of), one
/// for the guards ("r": raw cells), then the cells; U+001F stands between cells, U+001E between lines. A file
/// reads back as the cells that were written.
namespace prot::fuzz {
namespace {

using Line = std::vector<std::string>;

constexpr std::size_t options_size = 3;
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

// What windows-1252 has beyond ISO 8859-1, in the order of its bytes. Source: Unicode Consortium, CP1252.TXT.
constexpr std::string_view windows_1252_bytes =
    "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E"
    "\x9F";
constexpr std::string_view windows_1252_characters = "€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ";

std::string windows_1252_of(std::string_view character) {
    if (character.size() == 1) return std::string(character);
    const auto lead = static_cast<unsigned char>(character[0]);
    const auto last = static_cast<unsigned char>(character.back());
    if (lead == 0xC2 && last >= 0xA0) return std::string(1, static_cast<char>(last));
    if (lead == 0xC3) return std::string(1, static_cast<char>(last + 0x40));
    std::size_t index = 0;
    std::string found = "?";
    for_each_utf8_part(windows_1252_characters, [&](std::string_view candidate, bool) {
        if (candidate == character) found = windows_1252_bytes[index];
        ++index;
    });
    return found;
}

std::string encoded(std::string_view cell, CsvEncoding encoding, bool& replaced) {
    std::string result;
    for_each_utf8_part(cell, [&](std::string_view part, bool is_character) {
        if (encoding != CsvEncoding::windows_1252) {
            result += is_character ? part : "\xEF\xBF\xBD";
            return;
        }
        const std::string byte = is_character ? windows_1252_of(part) : "?";
        replaced = replaced || (byte == "?" && part != "?");
        result += byte;
    });
    return result;
}

bool needs_guard(std::string_view cell) {
    if (cell.empty() || std::string_view("=+-@\t\r").find(cell[0]) == std::string_view::npos) return false;
    const std::string_view digits = cell.substr(cell[0] == '+' || cell[0] == '-' ? 1 : 0);
    const auto marks =
        std::count(digits.begin(), digits.end(), '.') + std::count(digits.begin(), digits.end(), ',');
    const bool is_number = digits.find_first_not_of("0123456789.,") == std::string_view::npos && marks <= 1 &&
                           digits.find_first_of("0123456789") != std::string_view::npos;
    return !is_number;
}

std::vector<Line> lines_of(std::string_view input) {
    std::vector<Line> lines(1, Line(1));
    for (const char byte : input) {
        if (byte == '\x1E') {
            lines.emplace_back(1);
        } else if (byte == '\x1F') {
            lines.back().emplace_back();
        } else {
            lines.back().back() += byte;
        }
    }
    return lines;
}

/// The separator that an input's byte stands for: its ASCII character, else one of several bytes.
std::string separator_of(std::uint8_t byte) {
    constexpr std::string_view others[] = {"§", "€", "ß", "→", "😀", "\xEF\xBF\xBD"};
    return byte < 0x80 ? std::string(1, static_cast<char>(byte))
                       : std::string(others[byte % std::size(others)]);
}

bool may_separate(const std::string& separator, CsvEncoding encoding) {
    bool replaced = false;
    encoded(separator, encoding, replaced);
    return !replaced && std::string_view("\"\r\n").find(separator) == std::string_view::npos;
}

struct Written {
    std::string bytes;
    bool replaced = false;
};

Written write(const CsvFileOptions& options, const std::vector<Line>& lines) {
    MemoryFiles files;
    SilentHost host;
    CsvFileWriter writer(options, host, files);
    std::string name = "x.csv";
    claim(writer.open(name, false) && name == "x.csv", "a file is opened under its name");
    for (const Line& line : lines) writer.write_line(line);
    claim(files.finished.empty(), "nothing is in place before close");
    writer.close();
    return {files.finished.at(name), host.replaced};
}

void check_cell(const CsvCell& read, const std::string& written, const CsvFileOptions& options,
                bool& replaced) {
    std::string expected = encoded(written, options.encoding, replaced);
    if (!options.raw_cells && needs_guard(expected)) expected.insert(expected.begin(), '\'');
    claim(read.text == expected, "a cell reads back as it was written", read.text + "\n" + expected);
    const bool needs_quotes =
        expected.find(encoded(options.separator, options.encoding, replaced)) != std::string::npos ||
        expected.find_first_of("\"\r\n") != std::string::npos;
    claim(read.quoted == needs_quotes, "a cell is quoted only when it has to be", expected);
}

void check(const CsvFileOptions& options, const std::vector<Line>& lines) {
    const Written written = write(options, lines);
    std::string_view bytes = written.bytes;
    if (options.encoding == CsvEncoding::utf8_bom) {
        claim(bytes.starts_with(byte_order_mark), "the file begins with a byte order mark");
        bytes.remove_prefix(byte_order_mark.size());
    }
    bool replaced = false;
    const std::string separator = encoded(options.separator, options.encoding, replaced);
    const auto read = Rfc4180Reader(bytes, separator).read();
    claim(read.has_value(), "the file is CSV as RFC 4180 has it", written.bytes);
    claim(read->size() == lines.size(), "there are as many lines as were written", written.bytes);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        claim((*read)[i].size() == lines[i].size(), "a line has as many cells as were written",
              written.bytes);
        for (std::size_t j = 0; j < lines[i].size(); ++j)
            check_cell((*read)[i][j], lines[i][j], options, replaced);
    }
    claim(written.replaced == replaced, "the host is told of replaced characters and only of them");
}

}  // namespace
}  // namespace prot::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace prot::fuzz;
    constexpr prot::CsvEncoding encodings[] = {prot::CsvEncoding::utf8_bom, prot::CsvEncoding::utf8,
                                               prot::CsvEncoding::windows_1252};
    if (size < options_size) return 0;
    prot::CsvFileOptions options;
    options.encoding = encodings[data[0] % 3];
    options.separator = separator_of(data[1]);
    options.raw_cells = data[2] == 'r';
    if (!may_separate(options.separator, options.encoding)) return 0;
    check(options, lines_of(input_text(data, size).substr(options_size)));
    return 0;
}
