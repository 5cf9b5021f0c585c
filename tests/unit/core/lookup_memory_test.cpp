#include "core/lookup_memory.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

TEST(TextMemory, TellsKeysApartByEveryPart) {
    TextMemory<int> memory;
    memory.remember({"ab", "c"}, 1);
    EXPECT_EQ(memory.find({"a", "bc"}), nullptr);
    EXPECT_EQ(memory.find({"ab"}), nullptr);
    EXPECT_EQ(memory.find({"ab", "c", ""}), nullptr);
    ASSERT_NE(memory.find({"ab", "c"}), nullptr);
    EXPECT_EQ(*memory.find({"ab", "c"}), 1);
}

TEST(TextMemory, KeepsAnswersValidWhileLookupsNest) {
    TextMemory<std::string> memory;
    const std::string& first = memory.remember({"außen"}, "A");
    for (int i = 0; i < 1000; ++i) memory.remember({"innen", std::to_string(i)}, "B");
    EXPECT_EQ(&first, memory.find({"außen"}));
    EXPECT_EQ(first, "A");
}

TEST(CaptionMemory, KeepsFieldsAndEventsApart) {
    CaptionMemory memory;
    EXPECT_EQ(memory.find(0, 0), nullptr);
    const struct {
        std::size_t field;
        std::int32_t event;
        std::string_view words;
    } captions[] = {{0, 0, "a"}, {0, 1, "b"}, {0, 2, "c"}, {7, 2, ""}, {1, 0, "d"}, {1, 3, "e"}};
    for (const auto& [field, event, words] : captions) memory.remember(field, event, words);
    for (const auto& [field, event, words] : captions) {
        ASSERT_NE(memory.find(field, event), nullptr);
        EXPECT_EQ(*memory.find(field, event), words);
    }
    EXPECT_EQ(memory.find(0, 3), nullptr);
    EXPECT_EQ(memory.find(7, 1), nullptr);
    EXPECT_EQ(memory.find(6, 0), nullptr);
    EXPECT_EQ(memory.find(8, 0), nullptr);
    EXPECT_EQ(*memory.find(1, -1), "e") << "no rule is about other events";
}

constexpr ValueKey bank = {"TBANK", "dcBLZ", "idBank", "7"};

TEST(ValueMemory, AnswersForTheMomentAskedAlone) {
    ValueMemory memory;
    memory.remember(bank, Date{100}, "alt", false);
    EXPECT_EQ(memory.find(bank, Date{100}), "alt");
    EXPECT_EQ(memory.find(bank, Date{99}), std::nullopt);
    EXPECT_EQ(memory.find(bank, Date{101}), std::nullopt) << "the next change may come first";
}

TEST(ValueMemory, AnswersForEveryLaterMomentWhenNothingChangesAnyMore) {
    ValueMemory memory;
    memory.remember(bank, Date{100}, "heute", true);
    EXPECT_EQ(memory.find(bank, Date{200}), "heute");
    EXPECT_EQ(memory.find(bank, Date{100}), "heute");
    EXPECT_EQ(memory.find(bank, Date{99}), std::nullopt) << "before it another value may have held";
}

TEST(ValueMemory, HoldsTheTwoMomentsAskedLast) {
    ValueMemory memory;
    memory.remember(bank, Date{90}, "alt", false);
    memory.remember(bank, Date{110}, "neu", false);
    memory.remember(bank, Date{100}, "neuer", false);
    EXPECT_EQ(memory.find(bank, Date{110}), "neu");
    EXPECT_EQ(memory.find(bank, Date{100}), "neuer");
    EXPECT_EQ(memory.find(bank, Date{90}), std::nullopt);
    EXPECT_EQ(memory.find_unchanged(bank), std::nullopt);
}

TEST(ValueMemory, KeepsTheAnswerThatHoldsForEver) {
    ValueMemory memory;
    memory.remember(bank, Date{100}, "heute", true);
    for (const double moment : {50, 60, 70}) memory.remember(bank, Date{moment}, "alt", false);
    EXPECT_EQ(memory.find(bank, Date{70}), "alt");
    EXPECT_EQ(memory.find(bank, Date{60}), std::nullopt);
    EXPECT_EQ(memory.find(bank, Date{200}), "heute");
    EXPECT_EQ(memory.find_unchanged(bank), "heute");
    memory.remember(bank, Date{80}, "heute", true);
    EXPECT_EQ(memory.find(bank, Date{90}), "heute") << "from an earlier moment on";
}

TEST(ValueMemory, TellsValuesApartByEveryPartOfTheirKey) {
    ValueMemory memory;
    memory.remember(bank, Date{100}, "x", true);
    for (const ValueKey& other :
         {ValueKey{"TBANK2", "dcBLZ", "idBank", "7"}, ValueKey{"TBANK", "dcBIC", "idBank", "7"},
          ValueKey{"TBANK", "dcBLZ", "fl", "7"}, ValueKey{"TBANK", "dcBLZ", "idBank", "8"},
          ValueKey{"TBANK", "dcBLZ", "idBank", "7", "dlSuchId1"}})
        EXPECT_EQ(memory.find(other, Date{100}), std::nullopt);
    EXPECT_EQ(memory.find({"TBANK", "dcBLZ", "idBank", "7", "dlPrimaryKey1"}, Date{100}), "x")
        << "the usual column";
}

}  // namespace
}  // namespace prot
