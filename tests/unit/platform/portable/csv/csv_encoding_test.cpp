#include "platform/portable/csv/csv_encoding.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace prot {
namespace {

using namespace std::string_literals;

std::string line(const std::vector<std::string>& cells, std::string_view separator = ";",
                 CsvEncoding encoding = CsvEncoding::utf8, bool raw_cells = false) {
    std::string out;
    CsvLineEncoder(separator, encoding, raw_cells).append_line(cells, out);
    return out;
}

TEST(CsvEncoding, SeparatesCellsAndEndsLinesInCrLf) {
    EXPECT_EQ(line({"a", "", "b c"}), "a;;b c\r\n");
    EXPECT_EQ(line({"", ""}), ";\r\n");
    EXPECT_EQ(line({""}), "\r\n");
    EXPECT_EQ(line({}), "\r\n");
}

struct Cell {
    const char* why;
    std::string cell;
    std::string written;
};

const Cell quoted_cells[] = {
    {"plain", "abc", "abc"},
    {"a blank needs no quotes", " a b ", " a b "},
    {"an apostrophe needs no quotes", "'a", "'a"},
    {"another separator", "a,b\tc", "a,b\tc"},
    {"the separator", "a;b", "\"a;b\""},
    {"only the separator", ";", "\";\""},
    {"a quote", "a\"b", "\"a\"\"b\""},
    {"only quotes", "\"\"", "\"\"\"\"\"\""},
    {"CR", "a\rb", "\"a\rb\""},
    {"LF", "a\nb", "\"a\nb\""},
    {"CR LF", "a\r\nb", "\"a\r\nb\""},
    {"LF first", "\na", "\"\na\""},
    {"care at the end of a long cell", std::string(33, 'x') + ";", "\"" + std::string(33, 'x') + ";\""},
    {"care in the third of four bytes", "ab;d", "\"ab;d\""},
    {"care in the fourth of four bytes", "abc;", "\"abc;\""},
    {"a NUL passes", "a\0b"s, "a\0b"s},
    {"umlauts and quotes", "Müller \"Söhne\"; €", "\"Müller \"\"Söhne\"\"; €\""},
};

TEST(CsvEncoding, QuotesACellOnlyWhenItHasTo) {
    for (const Cell& row : quoted_cells) EXPECT_EQ(line({row.cell}), row.written + "\r\n") << row.why;
}

TEST(CsvEncoding, QuotesForTheSeparatorInUse) {
    EXPECT_EQ(line({"a;b", "c\td"}, "\t"), "a;b\t\"c\td\"\r\n");
    EXPECT_EQ(line({"1,5", "a;b"}, ","), "\"1,5\",a;b\r\n");
}

const Cell guarded_cells[] = {
    {"a formula", "=1+1", "'=1+1"},
    {"a plus", "+49 30 1234", "'+49 30 1234"},
    {"a minus", "-abc", "'-abc"},
    {"an at sign", "@SUM(A1)", "'@SUM(A1)"},
    {"a tab", "\t=1", "'\t=1"},
    {"CR: apostrophe first, then quotes", "\r=1", "\"'\r=1\""},
    {"a formula that needs quotes", "=A1;\"x\"", "\"'=A1;\"\"x\"\"\""},
    {"a lone sign", "-", "'-"},
    {"a sign and a mark", "-,", "'-,"},
    {"two signs", "--1", "'--1"},
    {"two marks", "-1.234,56", "'-1.234,56"},
    {"a number with a blank", "-1 ", "'-1 "},
    {"an exponent", "-1e5", "'-1e5"},
    {"a negative number", "-12", "-12"},
    {"a negative number with a comma", "-12,50", "-12,50"},
    {"a positive number with a point", "+0.5", "+0.5"},
    {"a number that ends in its mark", "-5,", "-5,"},
    {"a number that begins with its mark", "-,5", "-,5"},
    {"a sign inside", "a=b", "a=b"},
    {"a formula after a blank", " =1", " =1"},
    {"a plain number", "1.234,56", "1.234,56"},
    {"LF begins no formula", "\n=1", "\"\n=1\""},
};

TEST(CsvEncoding, KeepsASpreadsheetFromRunningACell) {
    for (const Cell& row : guarded_cells) EXPECT_EQ(line({row.cell}), row.written + "\r\n") << row.why;
}

TEST(CsvEncoding, LeavesRawCellsUnguarded) {
    EXPECT_EQ(line({"=1+1", "-a;b"}, ";", CsvEncoding::utf8, true), "=1+1;\"-a;b\"\r\n");
}

TEST(CsvEncoding, GuardsNumbersThatContainTheSeparatorByQuotesOnly) {
    EXPECT_EQ(line({"-1,5"}, ","), "\"-1,5\"\r\n");
}

const Cell utf8_cells[] = {
    {"all lengths", "aä€𝄞", "aä€𝄞"},
    {"a lone byte", "a\xFC", "a\xEF\xBF\xBD"},
    {"each byte of a cut character", "\xE2\x82", "\xEF\xBF\xBD\xEF\xBF\xBD"},
    {"valid characters around", "ä\x80ö", "ä\xEF\xBF\xBDö"},
    {"a character of four bytes beside it", "\xFF𝄞\xFF𝄞", "\xEF\xBF\xBD𝄞\xEF\xBF\xBD𝄞"},
    {"a surrogate", "\xED\xA0\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
    {"with quotes", "\xFF;", "\"\xEF\xBF\xBD;\""},
};

TEST(CsvEncoding, QuotesACellWhoseGuardIsTheSeparator) {
    EXPECT_EQ(line({"=1", "a"}, "'"), "\"'=1\"'a\r\n");
    EXPECT_EQ(line({"=1", "a"}, "'", CsvEncoding::utf8, true), "=1'a\r\n");
}

TEST(CsvEncoding, WritesALineLikeAnyOtherWhateverStandsAboveIt) {
    const std::string longest(100, 'x'), longer(101, 'y'), guarded = "=1", quoted = "a;b", invalid = "\xFF";
    const std::vector<std::string> contents = {"",      "plain", guarded,      quoted,      invalid,
                                               longest, longer,  longer + ";", "-" + longer};
    for (const CsvEncoding encoding : {CsvEncoding::utf8, CsvEncoding::windows_1252}) {
        CsvLineEncoder encoder(";", encoding, false);
        for (const std::string& above : contents)
            for (const std::string& below : contents)
                for (const std::string& cell : {above, below, below, above, below}) {
                    std::string out;
                    encoder.append_line(std::vector{cell, std::string("fest"), cell}, out);
                    EXPECT_EQ(out, line({cell, "fest", cell}, ";", encoding)) << above << " above " << below;
                }
    }
}

TEST(CsvEncoding, KeepsTheLinesOfAnyNumberOfCellsApart) {
    CsvLineEncoder encoder(";", CsvEncoding::utf8, false);
    std::string out;
    for (const std::vector<std::string>& cells :
         std::vector<std::vector<std::string>>{{"a"}, {"a", "=b"}, {}, {"=b", "=b"}})
        encoder.append_line(cells, out);
    EXPECT_EQ(out, "a\r\na;'=b\r\n\r\n'=b;'=b\r\n");
}

TEST(CsvEncoding, WritesOnlyValidUtf8) {
    for (const Cell& row : utf8_cells) {
        EXPECT_EQ(line({row.cell}), row.written + "\r\n") << row.why;
        EXPECT_EQ(line({row.cell}, ";", CsvEncoding::utf8_bom), row.written + "\r\n") << row.why;
    }
}

const Cell windows_cells[] = {
    {"umlauts", "ÄÖÜäöüß", "\xC4\xD6\xDC\xE4\xF6\xFC\xDF"},
    {"the block from 0x80", "€‚ƒ„…†‡ˆ‰Š‹ŒŽ", "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"},
    {"the block from 0x91", "‘’“”•–—˜™š›œžŸ", "\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"},
    {"the last of ISO 8859-1", "\xC2\xA0ÿ", "\xA0\xFF"},
    {"with quotes", "ä;\"", "\"\xE4;\"\"\""},
    {"a NUL passes", "ä\0"s, "\xE4\0"s},
};

TEST(CsvEncoding, WritesWindows1252) {
    for (const Cell& row : windows_cells) {
        std::string out;
        CsvLineEncoder encoder(";", CsvEncoding::windows_1252, false);
        encoder.append_line(std::vector{row.cell}, out);
        EXPECT_EQ(out, row.written + "\r\n") << row.why;
        EXPECT_EQ(encoder.replaced_characters().count, 0) << row.why;
    }
}

TEST(CsvEncoding, ReplacesWhatWindows1252CannotHold) {
    for (const char* lost : {"Ł", "𝄞", "\xC2\x81", "\xC2\x80", "\xEF\xBF\xBD", "\xFF"}) {
        std::string out;
        CsvLineEncoder encoder(";", CsvEncoding::windows_1252, false);
        encoder.append_line(std::vector{std::string("a") + lost + "b"}, out);
        EXPECT_EQ(out, "a?b\r\n");
        EXPECT_EQ(encoder.replaced_characters().count, 1);
    }
}

TEST(CsvEncoding, CountsWhatItReplacesInEveryLineAndSaysWhere) {
    std::string out;
    CsvLineEncoder encoder(";", CsvEncoding::windows_1252, false);
    encoder.append_line(std::vector<std::string>{"ä", "ŁaΩ"}, out);
    encoder.append_line(std::vector<std::string>{"\xFF", "ŁaΩ"}, out);
    EXPECT_EQ(encoder.replaced_characters().count, 5);
    EXPECT_EQ(encoder.replaced_characters().first,
              (std::vector<ReplacedCharacters::Place>{
                  {1, 2, "Ł"}, {1, 2, "Ω"}, {2, 1, "\uFFFD"}, {2, 2, "Ł"}, {2, 2, "Ω"}}));
}

TEST(CsvEncoding, ListsAThousandPlacesAndCountsTheOthers) {
    std::string out;
    CsvLineEncoder encoder(";", CsvEncoding::windows_1252, false);
    for (int i = 0; i < 1001; ++i) encoder.append_line(std::vector<std::string>{"Ω"}, out);
    EXPECT_EQ(encoder.replaced_characters().count, 1001);
    EXPECT_EQ(encoder.replaced_characters().first.size(), 1000U);
    EXPECT_EQ(encoder.replaced_characters().first.back().line, 1000);
}

TEST(CsvEncoding, QuotesForASeparatorOfTheEncodingsOwn) {
    EXPECT_EQ(line({"a§b", "ç"}, "§", CsvEncoding::windows_1252),
              "\"a\xA7"
              "b\"\xA7\xE7\r\n");
}

TEST(CsvEncoding, TakesASeparatorOfSeveralBytes) {
    EXPECT_EQ(line({"a§b", "ß", "c;d", "\xC2"}, "§"), "\"a§b\"§ß§c;d§\xEF\xBF\xBD\r\n");
    EXPECT_EQ(line({"→", "x→y", ""}, "→"), "\"→\"→\"x→y\"→\r\n");
}

TEST(CsvEncoding, HasAByteOrderMarkOnlyWhereAsked) {
    EXPECT_EQ(byte_order_mark(CsvEncoding::utf8_bom), "\xEF\xBB\xBF");
    EXPECT_EQ(byte_order_mark(CsvEncoding::utf8), "");
    EXPECT_EQ(byte_order_mark(CsvEncoding::windows_1252), "");
}

}  // namespace
}  // namespace prot
