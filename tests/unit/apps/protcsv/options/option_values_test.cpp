#include "apps/protcsv/options/option_values.h"

#include <optional>

#include <gtest/gtest.h>

#include "tests/unit/apps/protcsv/options/refusal_of.h"

namespace prot {
namespace {

constexpr Section sections[] = {{9, "customers", "Kunden", nullptr},
                                {15, "exchange-rates", "Devisenkurse", nullptr}};

TEST(OptionValues, ReadsEvents) {
    const struct {
        const char* text;
        std::int32_t mask;
        const char* why;
    } rows[] = {
        {"created", 1, "one kind"},
        {"changed", 2, "one kind"},
        {"deleted", 4, "one kind"},
        {"created, DELETED", 5, "blanks and letter case do not matter"},
        {"changed,changed", 2, "twice is once"},
        {"all", 7, "word"},
        {"None", 0, "word"},
        {"5", 5, "the mask itself"},
        {"2147483647", 2147483647, "other bits are the caller's"},
        {"9", 9, "beside one of the three"},
        {"0", 0, "no kind at all"},
        {"angelegt,geändert", 3, "German"},
        {"GELÖSCHT", 4, "in capitals"},
        {"neu, geaendert, geloescht", 7, "without umlauts"},
        {"changed,gelöscht", 6, "mixed"},
        {"alle", 7, "word"},
        {"keine", 0, "word"},
    };
    for (const auto& row : rows) EXPECT_EQ(parse_events(row.text), row.mask) << row.why;
}

TEST(OptionValues, RefusesOtherEvents) {
    for (const char* text :
         {"", "made", "created,", ",created", "all,created", "-1", "2147483648", "1,2", "8", "2147483640"})
        EXPECT_EQ(
            refusal_of([&] { parse_events(text); }),
            "„" + std::string(text) +
                "“ ist keine Liste von Ereignissen; erwartet wird created, changed, deleted oder angelegt, "
                "geändert, gelöscht (durch Komma getrennt), all, none oder eine Summe aus 1, 2 und 4");
}

TEST(OptionValues, FindsASectionByNumberOrName) {
    EXPECT_EQ(find_section("15", sections).number, 15);
    EXPECT_EQ(find_section("Exchange-Rates", sections).number, 15);
    EXPECT_EQ(find_section("customers", sections).number, 9);
}

TEST(OptionValues, FindsASectionByItsTitle) {
    constexpr Section titled[] = {{6, "open-items", "Offene Posten", nullptr},
                                  {8, "suppliers", "Lieferanten", nullptr}};
    for (const char* text : {"Offene Posten", "offene-posten", "OFFENEPOSTEN", "open-items", "Open Items"})
        EXPECT_EQ(find_section(text, titled).number, 6) << text;
    EXPECT_EQ(find_section("lieferanten", titled).number, 8);
    EXPECT_EQ(refusal_of([&] { find_section("Liferanten", titled); }),
              "„Liferanten“ ist kein Bereich; meinten Sie Lieferanten?");
}

TEST(OptionValues, NamesTheSectionsThatExistWhenOneDoesNot) {
    for (const char* text : {"7", "exchange", "", "-15"})
        EXPECT_EQ(refusal_of([&] { find_section(text, sections); }),
                  "„" + std::string(text) + "“ ist kein Bereich; es gibt: 9 customers, 15 exchange-rates");
}

TEST(OptionValues, ReadsASeparator) {
    EXPECT_EQ(parse_separator(","), ",");
    EXPECT_EQ(parse_separator("Tab"), "\t");
    EXPECT_EQ(parse_separator("\t"), "\t");
    EXPECT_EQ(parse_separator("§"), "§");
    for (const char* text : {"", ";;", "\"", "\n", "\r", "§§", "\xFF"})
        EXPECT_NE(refusal_of([&] { parse_separator(text); }), "") << text;
    EXPECT_NE(refusal_of([] { parse_separator(std::string_view("\0", 1)); }), "") << "NUL";
}

TEST(OptionValues, ReadsAnEncoding) {
    EXPECT_EQ(parse_encoding("utf-8-bom"), CsvEncoding::utf8_bom);
    EXPECT_EQ(parse_encoding("UTF-8"), CsvEncoding::utf8);
    EXPECT_EQ(parse_encoding("windows-1252"), CsvEncoding::windows_1252);
    EXPECT_EQ(refusal_of([] { parse_encoding("latin1"); }),
              "„latin1“ ist keine Kodierung; erwartet wird utf-8-bom, utf-8 oder windows-1252");
}

TEST(OptionValues, ReadsANumberWithinItsRange) {
    EXPECT_EQ(parse_number("18446744073709551615", 0, UINT64_MAX), UINT64_MAX);
    EXPECT_EQ(parse_number("1", 1, 9), 1u);
    EXPECT_EQ(parse_number("9", 1, 9), 9u);
    for (const char* text : {"", "-1", "0", "10", "1.5", "x", "18446744073709551616"})
        EXPECT_EQ(refusal_of([&] { parse_number(text, 1, 9); }),
                  "„" + std::string(text) + "“ ist keine ganze Zahl von 1 bis 9");
}

}  // namespace
}  // namespace prot
