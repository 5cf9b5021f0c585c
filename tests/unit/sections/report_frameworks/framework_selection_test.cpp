#include "sections/report_frameworks/framework_selection.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace prot::report_frameworks {
namespace {

/// The pieces as whole texts, for the frameworks `S` and what identifies them in the log, `A`.
constexpr const char* position_piece =
    "(dcTable = 'AUSWERTUNGSPOSITION' AND dlSuchId1 IN (SELECT ZA_ID FROM ZEILENART WHERE ARA_ID IN S)) OR "
    "(dcTable = 'AUSWERTUNGSPOSITION' AND dlSuchId1 IN (SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = "
    "'ZEILENART' AND dlSuchId1 IN ( SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = 'AUSWERTUNGSRAHMEN' "
    "AND A)))";

/// K: the restriction to a chart, with its blanks.
std::string assignment_piece(const std::string& K) {
    return "(dcTable = 'FORMEL_POSITION' " + K +
           "AND dlSuchId2 IN (SELECT AUSWERTUNGSPOSITION.AP_ID FROM AUSWERTUNGSRAHMEN, AUSWERTUNGSPOSITION, "
           "ZEILENART, FORMEL_POSITION WHERE AUSWERTUNGSPOSITION.AP_ID = FORMEL_POSITION.AP_ID AND "
           "AUSWERTUNGSPOSITION.ZA_ID = ZEILENART.ZA_ID AND ZEILENART.ARA_ID IN S)) OR (dcTable = "
           "'FORMEL_POSITION' " +
           K +
           "AND dlSuchId2 IN (SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = 'AUSWERTUNGSPOSITION' AND "
           "dlSuchId1 IN (SELECT ZA_ID FROM AUSWERTUNGSRAHMEN, ZEILENART WHERE ZEILENART.ARA_ID = "
           "AUSWERTUNGSRAHMEN.ARA_ID AND ZEILENART.ARA_ID IN S))) OR (dcTable = 'FORMEL_POSITION' " +
           K +
           "AND dlSuchId2 IN (SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = 'AUSWERTUNGSPOSITION' AND "
           "dlSuchId1 IN (SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = 'ZEILENART' AND dlSuchId1 IN "
           "( "
           "SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = 'AUSWERTUNGSRAHMEN' AND A))))";
}

constexpr const char* column_piece =
    "(dcTable = 'SPALTENFORMATE' AND dlSuchId2 IN (SELECT ZEILENART.ZA_ID FROM ZEILENART WHERE "
    "ZEILENART.ARA_ID IN S)) OR (dcTable = 'SPALTENFORMATE' AND dlSuchId2 IN (SELECT dlPrimaryKey1 FROM "
    "tProtokoll WHERE dcTable = 'ZEILENART' AND dlSuchId1 IN ( SELECT dlPrimaryKey1 FROM tProtokoll WHERE "
    "dcTable = 'AUSWERTUNGSRAHMEN' AND A))) OR (dcTable = 'AUSWERTUNGSSPALTE' AND dlSuchId1 IN (SELECT "
    "AUSWERTUNGSART.AA_ID FROM AUSWERTUNGSART WHERE AUSWERTUNGSART.ARA_ID IN S)) OR (dcTable = "
    "'AUSWERTUNGSSPALTE' AND dlSuchId1 IN (SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = "
    "'AUSWERTUNGSART' AND dlSuchId1 IN ( SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = "
    "'AUSWERTUNGSRAHMEN' AND A)))";

constexpr const char* line_kind_piece =
    "(dcTable = 'ZEILENART' AND dlSuchId1 IN (S)) OR (dcTable = 'ZEILENART' AND dlSuchId1 IN ( SELECT "
    "dlPrimaryKey1 FROM tProtokoll WHERE dcTable = 'AUSWERTUNGSRAHMEN' AND A))";

constexpr const char* cell_piece =
    "(dcTable = 'AUSWERTUNGSZELLE' AND dlSuchId1 IN (SELECT AUSWERTUNGSPOSITION.AP_ID FROM "
    "AUSWERTUNGSRAHMEN, "
    "AUSWERTUNGSPOSITION, ZEILENART WHERE AUSWERTUNGSPOSITION.ZA_ID = ZEILENART.ZA_ID AND ZEILENART.ARA_ID "
    "IN "
    "S)) OR (dcTable = 'AUSWERTUNGSZELLE' AND dlSuchId1 IN (SELECT dlPrimaryKey1 FROM tProtokoll WHERE "
    "dcTable "
    "= 'AUSWERTUNGSPOSITION' AND dlSuchId1 IN (SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = "
    "'ZEILENART' AND dlSuchId1 IN ( SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = 'AUSWERTUNGSRAHMEN' "
    "AND A))))";

constexpr const char* deletion_piece =
    " OR (dcTable = 'AUSWERTUNGSRAHMEN'  AND dlPrimaryKey1 IN (S)) OR (dcTable = 'AUSWERTUNGSDICHTE'  AND "
    "dlSuchId1 IN (S)) OR (dcTable = 'AUSWERTUNGSART'  AND dlSuchId1 IN (S))";

/// The condition on `S` with `A` in place of the text that identifies the frameworks.
std::string condition(Filter filter, bool deleting) {
    std::string text = msWHERE(filter, "S", deleting);
    const std::string logged = msSQL_ARaArt(filter);
    for (std::size_t at = text.find(logged); at != std::string::npos; at = text.find(logged, at + 1))
        text.replace(at, logged.size(), "A");
    return text;
}

constexpr Filter office_frameworks = {.mlAuswertungsart = 20, .mbyRahmenTyp = 1};

Filter of_kind(ChangeKind kind, std::int32_t chart = 0) {
    Filter filter = office_frameworks;
    filter.mlAenderungsart = kind;
    filter.mlKontenrahmen = chart;
    return filter;
}

struct Case {
    const char* name;
    ChangeKind kind;
    std::int32_t chart;
    std::string pieces;
};

void PrintTo(const Case& each, std::ostream* out) { *out << each.name; }

std::vector<Case> cases() {
    const auto all = [](const std::string& K) {
        return std::string(position_piece) + " OR " + assignment_piece(K) + " OR " + column_piece + " OR " +
               line_kind_piece + " OR " + cell_piece;
    };
    return {
        {"AllChanges", ChangeKind::all, 0, all(" ")},
        {"AllChangesOfOneChart", ChangeKind::all, 7, all(" AND dlSuchId1 = 7 ")},
        {"AccountAssignments", ChangeKind::assignments, 0, assignment_piece(" ")},
        {"AccountAssignmentsOfOneChart", ChangeKind::assignments, 7, assignment_piece(" AND dlSuchId1 = 7 ")},
        {"Positions", ChangeKind::positions, 0, position_piece},
        {"LineKinds", ChangeKind::line_kinds, 0, line_kind_piece},
        {"Columns", ChangeKind::columns, 0, column_piece},
    };
}

class FrameworkSelection : public testing::TestWithParam<Case> {};

TEST_P(FrameworkSelection, SelectsWhatIsExported) {
    const Case& expected = GetParam();
    EXPECT_EQ(condition(of_kind(expected.kind, expected.chart), false), " (" + expected.pieces + ")");
}

TEST_P(FrameworkSelection, TakesTheFrameworksThemselvesInADeletion) {
    const Case& expected = GetParam();
    EXPECT_EQ(condition(of_kind(expected.kind, expected.chart), true),
              " (" + expected.pieces + deletion_piece + ")");
}

INSTANTIATE_TEST_SUITE_P(EachKind, FrameworkSelection, testing::ValuesIn(cases()),
                         [](const auto& each) { return each.param.name; });

/// How often `text` stands in the condition, and how often account assignments are asked for at all.
std::pair<std::size_t, std::size_t> occurrences(const std::string& condition, const std::string& text) {
    const auto count = [&condition](const std::string& part) {
        std::size_t found = 0;
        for (std::size_t at = condition.find(part); at != std::string::npos;
             at = condition.find(part, at + 1))
            ++found;
        return found;
    };
    return {count(text), count("'FORMEL_POSITION'")};
}

TEST(FrameworkSelectionText, HasTwoBlanksBeforeAndWithoutAChart) {
    const std::string text = condition(of_kind(ChangeKind::assignments), false);
    EXPECT_TRUE(text.starts_with(" ((dcTable = 'FORMEL_POSITION'  AND dlSuchId2 IN ("));
    EXPECT_EQ(occurrences(text, "'FORMEL_POSITION'  AND dlSuchId2 IN ("),
              std::pair(std::size_t{3}, std::size_t{3}));
}

TEST(FrameworkSelectionText, NamesTheChartInEachLine) {
    const std::string text = condition(of_kind(ChangeKind::assignments, 7), false);
    EXPECT_EQ(occurrences(text, "'FORMEL_POSITION'  AND dlSuchId1 = 7 AND dlSuchId2 IN ("),
              std::pair(std::size_t{3}, std::size_t{3}));
}

TEST(FrameworkSelectionText, OfPositionsOpensWithoutOr) {
    EXPECT_EQ(condition(of_kind(ChangeKind::positions), false), std::string(" (") + position_piece + ")");
}

TEST(FrameworkSelectionText, OfADeletionOfLineKindsEndsWithTheFrameworksThemselves) {
    EXPECT_EQ(condition(of_kind(ChangeKind::line_kinds), true),
              std::string(" (") + line_kind_piece + deletion_piece + ")");
}

TEST(FrameworkSelectionText, InsertsTheSubselectAsItStands) {
    const Filter filter = of_kind(ChangeKind::line_kinds);
    EXPECT_EQ(
        msWHERE(filter, framework_ids(filter), false),
        " ((dcTable = 'ZEILENART' AND dlSuchId1 IN ((SELECT Auswertungsrahmen.ARa_Id FROM "
        "Auswertungsrahmen WHERE Auswertungsrahmen.ARa_Art = 20 AND Auswertungsrahmen.ARa_Typ = 1))) OR "
        "(dcTable = 'ZEILENART' AND dlSuchId1 IN ( SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = "
        "'AUSWERTUNGSRAHMEN' AND dlSuchId2 = 20 AND dlSuchId3 = 1)))");
}

TEST(FrameworksInTheLog, AreOneFrameworkWhateverTypeAndKind) {
    EXPECT_EQ(msSQL_ARaArt({.mlAuswertungsrahmen = 5, .mlAuswertungsart = 20, .mbyRahmenTyp = 1}),
              "dlSuchId1 = 5");
    EXPECT_EQ(msSQL_ARaArt({.mlAuswertungsrahmen = -5}), "dlSuchId1 = -5");
}

TEST(FrameworksInTheLog, AreThoseOfAType) {
    EXPECT_EQ(msSQL_ARaArt({.mlAuswertungsart = 20, .mbyRahmenTyp = 1}), "dlSuchId2 = 20 AND dlSuchId3 = 1");
    EXPECT_EQ(msSQL_ARaArt({.mlAuswertungsart = 0}), "dlSuchId2 = 0 AND dlSuchId3 = 0");
}

TEST(FrameworksInTheLog, AreThoseOfAKind) { EXPECT_EQ(msSQL_ARaArt({.mbyRahmenTyp = 1}), "dlSuchId3 = 1"); }

TEST(LiveFrameworks, AreOneFramework) {
    EXPECT_EQ(framework_ids({.mlAuswertungsrahmen = 5, .mlAuswertungsart = 20, .mbyRahmenTyp = 1}),
              "(SELECT Auswertungsrahmen.ARa_Id FROM Auswertungsrahmen WHERE Auswertungsrahmen.ARa_Id = 5)");
}

TEST(LiveFrameworks, AreThoseOfAType) {
    EXPECT_EQ(
        framework_ids({.mlAuswertungsart = 0, .mbyRahmenTyp = 1}),
        "(SELECT Auswertungsrahmen.ARa_Id FROM Auswertungsrahmen WHERE Auswertungsrahmen.ARa_Art = 0 AND "
        "Auswertungsrahmen.ARa_Typ = 1)");
}

TEST(LiveFrameworks, AreThoseOfAKind) {
    EXPECT_EQ(framework_ids({}),
              "(SELECT Auswertungsrahmen.ARa_Id FROM Auswertungsrahmen WHERE Auswertungsrahmen.ARa_Typ = 0)");
}

}  // namespace
}  // namespace prot::report_frameworks
