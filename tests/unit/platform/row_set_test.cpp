#include "platform/row_set.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "platform/automation/error.h"

namespace {
std::size_t allocated = 0;  // bytes that were asked for in this program
}  // namespace

void* operator new(std::size_t size) {
    allocated += size;
    if (void* const place = std::malloc(size)) return place;
    throw std::bad_alloc();
}
void operator delete(void* place) noexcept { std::free(place); }
void operator delete(void* place, std::size_t) noexcept { std::free(place); }
// The sanitizers' own operators for arrays do not come here by themselves.
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete[](void* place) noexcept { std::free(place); }
void operator delete[](void* place, std::size_t) noexcept { std::free(place); }

namespace prot {
namespace {

TEST(RowSet, IsEmptyWithoutRows) {
    EXPECT_TRUE(RowSet().empty());
    EXPECT_TRUE(RowSet(3).empty());
    EXPECT_EQ(RowSet(3).columns(), 3U);
}

TEST(RowSet, HoldsValuesByColumnAndRow) {
    RowSet rows(3);
    rows.add_row();
    rows.set(0, std::int64_t{-7});
    rows.set(1, std::string_view("Größe"));
    rows.add_row();
    rows.set(0, 1.5);
    rows.set(2, Date{46000.25});
    EXPECT_EQ(rows.at(0, 0).value(), Value(std::int64_t{-7}));
    EXPECT_EQ(rows.at(1, 0).value(), Value(std::string("Größe")));
    EXPECT_TRUE(rows.at(2, 0).is_null());
    EXPECT_EQ(rows.at(0, 1).value(), Value(1.5));
    EXPECT_TRUE(rows.at(1, 1).is_null());
    EXPECT_EQ(rows.at(2, 1).value(), Value(Date{46000.25}));
}

TEST(RowSet, KeepsTheHostsNumberOfItsFirstRow) {
    RowSet rows(1);
    EXPECT_EQ(rows.first_row(), 0);
    rows.set_first_row(-3);
    rows.add_row();
    const RowSet moved = std::move(rows);
    EXPECT_EQ(moved.first_row(), -3);
}

TEST(RowSet, SaysWhichColumnsAreMissing) {
    const struct {
        std::size_t columns, required;
        const char* description;
        const char* why;
    } cases[] = {
        {2, 14, "Das Abfrageergebnis hat 2 Spalten statt 14.", "a host's array may be of any size"},
        {1, 2, "Das Abfrageergebnis hat 1 Spalte statt 2.", "one is singular"},
        {2, 2, nullptr, "enough"},
        {3, 2, nullptr, "more than enough"},
    };
    for (const auto& [columns, required, description, why] : cases) {
        SCOPED_TRACE(why);
        RowSet rows(columns);
        EXPECT_NO_THROW(rows.require_columns(required)) << "without a row nothing is read";
        rows.add_row();
        try {
            rows.require_columns(required);
            EXPECT_EQ(description, nullptr);
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::index_out_of_range));
            EXPECT_STREQ(error.what(), description ? description : "");
        }
    }
}

TEST(RowSet, KeepsTextsOfAllSizesWhileItGrowsAndMoves) {
    RowSet rows(2);
    const auto text_of = [](std::size_t i) {
        return std::string(i * 997 % 300000, static_cast<char>('a' + i % 26));
    };
    for (std::size_t i = 0; i < 600; ++i) {
        rows.add_row();
        rows.set(0, std::string_view(text_of(i)));
        rows.set(1, std::string_view("gleich"));
    }
    const RowSet moved = std::move(rows);
    ASSERT_EQ(moved.rows(), 600U);
    for (std::size_t i = 0; i < 600; ++i) ASSERT_EQ(moved.at(0, i).text(), text_of(i));
    EXPECT_EQ(moved.at(1, 599).text(), "gleich");
}

TEST(RowSet, StoresShortTextsThatRecurInAColumnOnce) {
    RowSet rows(1);
    const std::string_view names[] = {"Finanzbuchhaltung", "Devisenverwaltung", "", "Zoë"};
    for (std::size_t i = 0; i < 1000; ++i) {
        rows.add_row();
        rows.set(0, names[i % 4]);
        ASSERT_EQ(rows.at(0, i).text(), names[i % 4]);
    }
    for (std::size_t name = 0; name < 4; ++name)
        EXPECT_EQ(rows.at(0, 400 + name).text().data(), rows.at(0, 996 + name).text().data()) << names[name];
}

TEST(RowSet, TakesLittleForASingleRow) {
    const std::size_t before = allocated;
    RowSet rows(3);
    rows.add_row();
    rows.set(0, std::string_view("EUR"));
    EXPECT_LT(allocated - before, 2048U);
}

TEST(RowSet, HoldsLittleMoreThanLargeTextsNeed) {
    RowSet rows(1);
    std::string large(600 * 1024, 'x');
    std::size_t size = 0;
    const std::size_t before = allocated;
    for (char c = 'a'; c < 'z'; ++c) {
        large.back() = c;
        rows.add_row();
        rows.set(0, std::string_view(large));
        size += large.size();
    }
    EXPECT_GE(allocated - before, size) << "nothing is counted";
    EXPECT_LT(allocated - before, size + 2 * 1024 * 1024);
}

TEST(RowSet, HoldsLittleMoreThanManySmallTextsNeed) {
    const std::size_t before = allocated;
    RowSet rows(1);
    std::string text(1000, 'x');
    for (int i = 0; i < 20000; ++i) {
        rows.add_row();
        text.replace(0, 5, std::to_string(10000 + i));
        rows.set(0, std::string_view(text));
    }
    const std::size_t cells = 20224 * sizeof(Cell);  // whole blocks
    EXPECT_GE(allocated - before, 20000 * text.size() + cells);
    EXPECT_LT(allocated - before, 20000 * text.size() + cells + 3 * 1024 * 1024 / 2);
}

TEST(RowSet, TakesItsCellsInBlocksOfRowsAndLittleForOne) {
    RowSet rows(2);
    std::size_t taken = 0;
    for (std::size_t row = 0; row < 600; ++row) {
        const std::size_t before = allocated;
        rows.add_row();
        taken += allocated - before;
        const std::size_t held = row < 2 ? 2 : row < 256 ? 256 : row < 512 ? 512 : 768;
        ASSERT_GE(taken, held * 2 * sizeof(Cell)) << row;
        ASSERT_LT(taken, held * 2 * sizeof(Cell) + 4096) << row;
    }
}

TEST(RowSet, TakesEachKindOfValueInPlaceOfAnother) {
    const struct {
        Value value, held;
        const char* why;
    } cases[] = {
        {true, std::int64_t{-1}, "true, as automation counts"},
        {false, std::int64_t{0}, "false"},
        {std::int64_t{7}, std::int64_t{7}, "an integer"},
        {2.5, 2.5, "a real"},
        {Date{46000.5}, Date{46000.5}, "a date"},
        {"Text", "Text", "a text"},
        {"", "", "the empty text"},
        {Value(), Value(), "Null"},
    };
    RowSet rows(2);
    rows.add_row();
    for (const auto& [value, held, why] : cases) {
        rows.set(0, Value("davor"));
        rows.set(0, value);
        rows.set(1, Cell(1.5));
        rows.set(1, rows.at(0, 0));
        EXPECT_EQ(rows.at(0, 0).value(), held) << why;
        EXPECT_EQ(rows.at(1, 0).value(), held) << why << ", as a cell";
    }
}

TEST(RowSet, CopiesTheTextOfAnotherRowSetsCell) {
    RowSet rows(1);
    {
        RowSet other(1);
        other.add_row();
        other.set(0, std::string_view("Finanzbuchhaltung"));
        rows.add_row();
        rows.set(0, other.at(0, 0));
        other.set(0, std::string_view("anders"));
    }
    EXPECT_EQ(rows.at(0, 0).text(), "Finanzbuchhaltung");
}

// Alike in length, first, middle and last byte: the memory of recent texts keeps such texts in one place.
TEST(RowSet, TellsSimilarTextsOfOneColumnApart) {
    RowSet rows(2);
    const std::string_view names[] = {"EaUxR", "EbUyR"};
    for (std::size_t i = 0; i < 100; ++i) {
        rows.add_row();
        rows.set(0, names[i % 2]);
        rows.set(1, names[0]);
    }
    for (std::size_t i = 0; i < 100; ++i) {
        ASSERT_EQ(rows.at(0, i).text(), names[i % 2]);
        ASSERT_EQ(rows.at(1, i).text(), names[0]);
    }
    EXPECT_EQ(rows.at(1, 98).text().data(), rows.at(1, 99).text().data())
        << "another column's texts are in nobody's way";
}

TEST(RowSet, RemembersShortTextsOnly) {
    const struct {
        std::size_t size;
        bool once;
    } cases[] = {{64, true}, {65, false}};
    for (const auto& [size, once] : cases) {
        RowSet rows(1);
        const std::string text(size, 'x');
        for (std::size_t i = 0; i < 10; ++i) {
            rows.add_row();
            rows.set(0, std::string_view(text));
        }
        EXPECT_EQ(rows.at(0, 8).text().data() == rows.at(0, 9).text().data(), once) << size;
    }
}

TEST(RowSet, TakesNewRowsInTheRoomOfThoseTakenAway) {
    RowSet rows(2);
    const std::string long_text(300, 'x'), huge_text(3'000'000, 'y');
    std::vector<const void*> places;
    for (std::int64_t round = 0; round < 20; ++round) {
        EXPECT_TRUE(rows.empty());
        EXPECT_EQ(rows.text_bytes(), 0U);
        for (std::int64_t row = 0; row < 600; ++row) {
            rows.add_row();
            ASSERT_TRUE(rows.at(0, static_cast<std::size_t>(row)).is_null()) << "nothing of an earlier round";
            if (row != 7) rows.set(0, round * 1000 + row);
            rows.set(1, std::string_view(long_text));
        }
        rows.add_row();
        rows.set(1, std::string_view(huge_text));
        EXPECT_TRUE(rows.at(0, 7).is_null());
        EXPECT_EQ(rows.at(0, 599).integer(), round * 1000 + 599);
        EXPECT_EQ(rows.at(1, 0).text(), long_text);
        EXPECT_EQ(rows.at(1, 600).text(), huge_text);
        EXPECT_EQ(rows.text_bytes(), 600 * long_text.size() + huge_text.size());
        places.push_back(rows.at(1, 0).text().data());
        rows.clear();
    }
    EXPECT_EQ(places[18], places[19]) << "the room is kept";
}

TEST(RowSet, TakesTheTextsOfEachRoundAsTheyAre) {
    RowSet rows(1);
    for (const char letter : {'a', 'b', 'c'}) {
        rows.clear();
        for (int row = 0; row < 5; ++row) {
            rows.add_row();
            rows.set(0, std::string_view(std::string(5, letter)));
        }
        for (std::size_t row = 0; row < 5; ++row) EXPECT_EQ(rows.at(0, row).text(), std::string(5, letter));
    }
}

TEST(RowSet, KeepsBlocksOfRowsApart) {
    RowSet rows(3);
    for (std::int64_t row = 0; row < 1025; ++row) {
        rows.add_row();
        for (std::size_t column = 0; column < 3; ++column)
            rows.set(column, row * 3 + static_cast<std::int64_t>(column));
    }
    EXPECT_EQ(rows.rows(), 1025U);
    for (std::int64_t row = 0; row < 1025; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            ASSERT_EQ(rows.at(column, static_cast<std::size_t>(row)).integer(),
                      row * 3 + static_cast<std::int64_t>(column));
}

}  // namespace
}  // namespace prot
