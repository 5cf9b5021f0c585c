#include "platform/windows/forms/match_list.h"

#include <gtest/gtest.h>

#include <cwchar>

#include "tests/unit/platform/windows/forms/fixed_font.h"

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

TEST(MatchList, MarksTheSelectedRowAlsoWithoutTheFocus) {
    const auto drawn = [](DWORD stage, DWORD_PTR row, std::optional<std::size_t> selected, bool enabled) {
        NMLVCUSTOMDRAW question{};
        question.nmcd.dwDrawStage = stage;
        question.nmcd.dwItemSpec = row;
        question.nmcd.uItemState = CDIS_SELECTED;
        question.clrText = question.clrTextBk = CLR_DEFAULT;
        const LRESULT answer = answer_drawing(question, selected, enabled);
        EXPECT_EQ(answer, stage == CDDS_PREPAINT ? CDRF_NOTIFYITEMDRAW : CDRF_DODEFAULT);
        EXPECT_EQ(question.clrText == GetSysColor(COLOR_HIGHLIGHTTEXT),
                  question.clrTextBk == GetSysColor(COLOR_HIGHLIGHT));
        EXPECT_EQ(question.clrText != CLR_DEFAULT, question.nmcd.uItemState == 0U);
        return question.clrText != CLR_DEFAULT;
    };
    EXPECT_FALSE(drawn(CDDS_PREPAINT, 0, 3, true));
    EXPECT_TRUE(drawn(CDDS_ITEMPREPAINT, 3, 3, true));
    EXPECT_FALSE(drawn(CDDS_ITEMPREPAINT, 2, 3, true));
    EXPECT_FALSE(drawn(CDDS_ITEMPREPAINT, 0, std::nullopt, true));
    EXPECT_FALSE(drawn(CDDS_ITEMPREPAINT, 3, 3, false)) << "a list that is off looks so";
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
