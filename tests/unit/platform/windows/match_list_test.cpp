#include "platform/windows/match_list.h"

#include <gtest/gtest.h>

#include <cwchar>

#include "tests/unit/platform/windows/fixed_font.h"

namespace prot {
namespace {

const std::vector<Entry> clients = {{1, "Meier", "7"}, {2, "Müller", "700"}};

PickerMatches all_clients() {
    PickerMatches matches;
    matches.look_through(clients);
    matches.filter("");
    return matches;
}

/// What a list is told that asks for a text of up to `room` characters, the zero at the end included.
std::wstring answered(int row, int column, int room) {
    wchar_t text[16] = L"unanswered";
    NMLVDISPINFOW question{};
    question.item.mask = LVIF_TEXT;
    question.item.iItem = row;
    question.item.iSubItem = column;
    question.item.pszText = text;
    question.item.cchTextMax = room;
    answer_text(all_clients(), question);
    return text;
}

TEST(MatchList, IsToldWhatStandsInARow) {
    const struct {
        int row, column, room;
        const wchar_t* text;
        const char* why;
    } rows[] = {
        {0, 0, 16, L"7", "the number"},
        {1, 1, 16, L"M\u00fcller", "the text"},
        {1, 1, 7, L"M\u00fcller", "that just fits"},
        {1, 1, 4, L"M\u00fcl", "no more than there is room for"},
        {1, 1, 1, L"", "room for the end alone"},
        {2, 0, 16, L"", "there is no such row"},
        {-1, 0, 16, L"", "nor one before the first"},
        {0, 0, 0, L"unanswered", "no room at all"},
    };
    for (const auto& row : rows) EXPECT_EQ(answered(row.row, row.column, row.room), row.text) << row.why;
}

TEST(MatchList, AnswersOnlyWhatItIsAskedFor) {
    NMLVDISPINFOW question{};
    question.item.mask = LVIF_STATE;
    wchar_t text[] = L"unanswered";
    question.item.pszText = text;
    question.item.cchTextMax = 5;
    answer_text(all_clients(), question);
    EXPECT_STREQ(text, L"unanswered");
}

TEST(MatchList, TheColumnOfNumbersHasRoomForTheWidest) {
    for (const int resolution : {96, 144}) {
        const FixedFont font(resolution);
        EXPECT_GT(number_column_width(clients, font), font.width("700"));
        EXPECT_EQ(number_column_width({{1, "ohne Nummer"}}, font), 0);
        EXPECT_EQ(number_column_width({}, font), 0);
    }
}

}  // namespace
}  // namespace prot
