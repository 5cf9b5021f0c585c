#include "sections/report_frameworks/framework_memos.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tests/unit/support/database_answers.h"
#include "tests/unit/support/fakes.h"
#include "tests/unit/support/log_record.h"
#include "tests/unit/support/statements.h"

namespace prot::report_frameworks {
namespace {

using Statements = std::vector<std::string>;
using test::Row;

const Date moment = to_date(CivilTime{2026, 3, 5, 14, 7, 9});
constexpr const char* at_the_moment = "<05.03.2026 14:07:08>";

// A log row has the id 900; that of an account assignment the chart 12 (dlSuchId1) and the position 13
// (dlSuchId2).
constexpr int line_kind = 21, framework = 31;

std::string memo_of(int id) {
    return "SELECT dmData FROM tProtokollMemo WHERE flProtokoll = " + std::to_string(id);
}

std::string rows_of_the_record(const std::string& table) {
    return "SELECT idProtokoll FROM tProtokoll WHERE  dcTable = '" + table +
           "' AND dlPrimaryKey1 = 11 AND dlSuchId1 = 12 AND dlSuchId2 = 13 AND idProtokoll <> 900 ORDER BY "
           "ddDatum";
}

const std::string chart_mark = "SELECT KR_Kennzeichen FROM Kontenrahmen WHERE KR_Id = 12";
const std::string live_position =
    "Select AuswertungsPosition.Ap_Bezeichnung, Auswertungsrahmen.ARa_Art, Auswertungsrahmen.ARa_typ, "
    "Auswertungsrahmen.ARa_Kennzeichen FROM AuswertungsPosition, Zeilenart, Auswertungsrahmen WHERE "
    "AuswertungsPosition.AP_ID = 13 AND AuswertungsPosition.ZA_ID = Zeilenart.ZA_ID AND Zeilenart.ARA_ID = "
    "Auswertungsrahmen.ARA_ID";

std::string standard_formula(const std::string& name, const std::string& type, const std::string& mark,
                             const std::string& of_chart) {
    return "Select Formel_Position.Fo_Formel FROM KONTENRAHMEN, FORMEL_POSITION, AUSWERTUNGSPOSITION, "
           "ZEILENART, AUSWERTUNGSRAHMEN WHERE FORMEL_POSITION.AP_ID = AUSWERTUNGSPOSITION.AP_ID AND "
           "AUSWERTUNGSPOSITION.ZA_ID = ZEILENART.ZA_ID AND ZEILENART.ARA_ID = AUSWERTUNGSRAHMEN.ARA_ID AND "
           "FORMEL_POSITION.KR_ID = KONTENRAHMEN.KR_ID AND AUSWERTUNGSPOSITION.AP_BEZEICHNUNG = '" +
           name + "' AND AUSWERTUNGSRAHMEN.ARA_ART = " + type +
           " AND AUSWERTUNGSRAHMEN.ARA_KENNZEICHEN = " + mark +
           " AND AUSWERTUNGSRAHMEN.ARA_TYP =  0 AND KONTENRAHMEN.KR_Kennzeichen = " + of_chart;
}

/// The first change of a value that the shared lookup asks for.
std::string change_of(const std::string& table, int key, const std::string& column) {
    return test::first_change_statement(table, "dlPrimaryKey1", key, at_the_moment, column);
}

class Memos : public testing::Test {
protected:
    test::FakeHost host;
    test::FakeDatabase oDBU;
    prot::Run run{host.environment, oDBU};
    FrameworkMemos memos{run};

    std::string old_memo(const std::string& table = "FORMEL_POSITION") {
        return memos.msMemoWertAlt(test::LogRecord({.table = table, .date = moment}).row());
    }
    /// Of an account assignment, with nothing remembered.
    std::string old_memo_of_a_new_run() {
        prot::Run fresh{host.environment, oDBU};
        return FrameworkMemos(fresh).msMemoWertAlt(
            test::LogRecord({.table = "FORMEL_POSITION", .date = moment}).row());
    }
    void answer(const std::string& statement, std::vector<Row> rows) {
        oDBU.answers[statement] = std::move(rows);
    }
    void answer_text(const std::string& statement, const std::string& text) { answer(statement, {{text}}); }
    void log(const std::string& statement, const std::string& column, const std::string& old_value) {
        const std::string document = "document of " + statement;
        answer_text(statement, document);
        host.documents[document] = {{column, old_value, "99"}};
    }
    /// A position of an office framework (kind 1) of type 20 and mark 7, for a chart of mark 4.
    void answer_live_position() {
        answer(chart_mark, {{std::int64_t{4}}});
        answer(live_position, {{std::string("Kasse"), std::int64_t{20}, std::int64_t{1}, std::int64_t{7}}});
    }
    /// The same position, known by the log alone.
    void log_position() {
        answer(chart_mark, {{std::int64_t{4}}});
        log(change_of("AUSWERTUNGSPOSITION", 13, "Ap_Bezeichnung"), "Ap_Bezeichnung", "Kasse");
        log(change_of("AUSWERTUNGSPOSITION", 13, "Za_Id"), "Za_Id", "21");
        log(change_of("ZEILENART", line_kind, "ARa_Id"), "ARa_Id", "31");
        log(change_of("AUSWERTUNGSRAHMEN", framework, "ARa_Kennzeichen"), "ARa_Kennzeichen", "7");
        log(change_of("AUSWERTUNGSRAHMEN", framework, "ARa_Art"), "ARa_Art", "20");
    }
    /// The statements without the way in which they are sent.
    Statements take_statements() {
        Statements texts;
        for (const std::string& statement : std::exchange(oDBU.statements, {}))
            texts.push_back(statement.substr(statement.find(": ") + 2));
        return texts;
    }
    bool asked_for_a_formula() {
        const Statements sent = take_statements();
        return std::ranges::any_of(
            sent, [](const std::string& each) { return each.starts_with("Select Formel_Position"); });
    }
};

TEST_F(Memos, OfARowAreWhatItWasWrittenWith) {
    answer_text(memo_of(900), "K 1000 + K 1010");
    EXPECT_EQ(memos.msMemoWertNeu(900), "K 1000 + K 1010");
    EXPECT_EQ(memos.msMemoWertNeu(901), "") << "no memo row";
    answer(memo_of(902), {{Value()}});
    EXPECT_EQ(memos.msMemoWertNeu(902), "");
    EXPECT_EQ(take_statements(), (Statements{memo_of(900), memo_of(901), memo_of(902)}));
}

TEST_F(Memos, BeforeAChangeAreThoseOfTheLastReturnedRowWithASmallerId) {
    const struct {
        std::vector<Row> ids;
        int found;
        const char* why;
    } rows[] = {
        {{{std::int64_t{880}}}, 880, "the only one"},
        {{{std::int64_t{870}}, {std::int64_t{880}}}, 880, "the last one"},
        {{{std::int64_t{880}}, {std::int64_t{870}}}, 870, "in the order returned, not by its id"},
        {{{std::int64_t{870}}, {std::int64_t{899}}, {std::int64_t{901}}, {std::int64_t{950}}},
         899,
         "later rows do not count"},
        {{{std::int64_t{870}}, {std::int64_t{950}}, {std::int64_t{860}}, {std::int64_t{901}}},
         860,
         "nor do they when they stand between"},
    };
    for (const auto& row : rows) {
        answer(rows_of_the_record("FORMEL_POSITION"), row.ids);
        answer_text(memo_of(row.found), "davor");
        EXPECT_EQ(old_memo(), "davor") << row.why;
        EXPECT_EQ(take_statements(), (Statements{rows_of_the_record("FORMEL_POSITION"), memo_of(row.found)}))
            << row.why;
    }
}

TEST_F(Memos, BeforeAChangeAreEmptyWhenThePreviousRowHasAnEmptyOne) {
    answer_live_position();
    answer(rows_of_the_record("FORMEL_POSITION"), {{std::int64_t{880}}});
    for (const Value& nothing : {Value(), Value(std::string())}) {
        answer(memo_of(880), {{nothing}});
        EXPECT_EQ(old_memo(), "");
        EXPECT_FALSE(asked_for_a_formula());
    }
}

TEST_F(Memos, BeforeTheFirstChangeAreTheFormulaOfTheStandardFramework) {
    answer_live_position();
    answer_text(standard_formula("Kasse", "20", "7", "4"), "K 1600");
    EXPECT_EQ(old_memo(), "K 1600");
    EXPECT_EQ(take_statements(), (Statements{rows_of_the_record("FORMEL_POSITION"), chart_mark, live_position,
                                             standard_formula("Kasse", "20", "7", "4")}));
}

TEST_F(Memos, BehindLaterRowsOnlyAreTheFormulaOfTheStandardFramework) {
    answer_live_position();
    answer(rows_of_the_record("FORMEL_POSITION"), {{std::int64_t{901}}, {std::int64_t{950}}});
    answer_text(memo_of(901), "danach");
    answer_text(standard_formula("Kasse", "20", "7", "4"), "K 1600");
    EXPECT_EQ(old_memo(), "K 1600");
}

TEST_F(Memos, BehindARowWithoutMemoAreTheFormulaOfTheStandardFramework) {
    answer_live_position();
    answer(rows_of_the_record("FORMEL_POSITION"), {{std::int64_t{870}}, {std::int64_t{880}}});
    answer_text(memo_of(870), "zu alt");
    answer_text(standard_formula("Kasse", "20", "7", "4"), "K 1600");
    EXPECT_EQ(old_memo(), "K 1600");
    EXPECT_EQ(take_statements().at(1), memo_of(880)) << "the rows before it are not asked";
}

TEST_F(Memos, OfBothKindsOfFrameworkComeFromTheStandardOne) {
    answer_live_position();
    answer_text(standard_formula("Kasse", "0", "7", "4"), "K 1600");
    for (const std::int64_t kind : {0, 1}) {
        answer(live_position, {{std::string("Kasse"), std::int64_t{0}, kind, std::int64_t{7}}});
        EXPECT_EQ(old_memo(), "K 1600") << kind;
    }
}

TEST_F(Memos, OfOtherTablesHaveNoStandardFormula) {
    answer_live_position();
    answer_text(standard_formula("Kasse", "20", "7", "4"), "K 1600");
    for (const char* table : {"AUSWERTUNGSPOSITION", "ZEILENART", "AUSWERTUNGSZELLE", "FORMEL"}) {
        EXPECT_EQ(old_memo(table), "") << table;
        EXPECT_EQ(take_statements(), Statements{rows_of_the_record(table)});
    }
}

TEST_F(Memos, OfOtherTablesAreThoseOfThePreviousRow) {
    answer(rows_of_the_record("AUSWERTUNGSZELLE"), {{std::int64_t{880}}});
    answer_text(memo_of(880), "davor");
    EXPECT_EQ(old_memo("AUSWERTUNGSZELLE"), "davor");
}

TEST_F(Memos, AreEmptyWhenTheStandardFrameworkHasNoSuchPosition) {
    answer_live_position();
    EXPECT_EQ(old_memo(), "");
    EXPECT_TRUE(asked_for_a_formula());
}

TEST_F(Memos, OfAChartWhoseMarkIsNotKnownAskForNothingFurther) {
    const std::vector<Row> unknown[] = {{}, {{Value()}}, {{std::string()}}, {{std::string("_UNDEFINIERT_")}}};
    for (const std::vector<Row>& rows : unknown) {
        answer_live_position();
        answer(chart_mark, rows);
        EXPECT_EQ(old_memo_of_a_new_run(), "");
        EXPECT_EQ(take_statements(), (Statements{rows_of_the_record("FORMEL_POSITION"), chart_mark}));
    }
}

TEST_F(Memos, OfAPositionWhoseNameTypeOrMarkIsNotKnownAskForNothingFurther) {
    const Value name = std::string("Kasse"), number = std::int64_t{7}, kind = std::int64_t{1};
    const Value undefined_text = std::string("_UNDEFINIERT_"), empty = std::string();
    const struct {
        Row row;
        const char* why;
    } rows[] = {
        {{Value(), number, kind, number}, "name Null"},
        {{undefined_text, number, kind, number}, "name undefined"},
        {{name, Value(), kind, number}, "type Null"},
        {{name, empty, kind, number}, "type empty"},
        {{name, undefined_text, kind, number}, "type undefined"},
        {{name, number, kind, Value()}, "mark Null"},
        {{name, number, kind, empty}, "mark empty"},
        {{name, number, kind, undefined_text}, "mark undefined"},
    };
    answer_live_position();
    for (const auto& row : rows) {
        answer(live_position, {row.row});
        EXPECT_EQ(old_memo_of_a_new_run(), "");
        EXPECT_EQ(take_statements(),
                  (Statements{rows_of_the_record("FORMEL_POSITION"), chart_mark, live_position}))
            << row.why;
    }
}

TEST_F(Memos, OfAPositionThatIsGoneGoByTheSharedLookupInItsOrder) {
    log_position();
    answer_text(standard_formula("Kasse", "20", "7", "4"), "K 1600");
    EXPECT_EQ(old_memo(), "K 1600");
    EXPECT_EQ(take_statements(), (Statements{rows_of_the_record("FORMEL_POSITION"), chart_mark, live_position,
                                             change_of("AUSWERTUNGSPOSITION", 13, "Ap_Bezeichnung"),
                                             change_of("AUSWERTUNGSPOSITION", 13, "Za_Id"),
                                             change_of("ZEILENART", line_kind, "ARa_Id"),
                                             change_of("AUSWERTUNGSRAHMEN", framework, "ARa_Kennzeichen"),
                                             change_of("AUSWERTUNGSRAHMEN", framework, "ARa_Art"),
                                             standard_formula("Kasse", "20", "7", "4")}));
}

TEST_F(Memos, OfAPositionThatIsGoneTakeWhatItsDeletionTells) {
    log_position();
    oDBU.answers.erase(change_of("AUSWERTUNGSPOSITION", 13, "Ap_Bezeichnung"));
    log(test::deletion_statement("AUSWERTUNGSPOSITION", 13, "Ap_Bezeichnung"), "Ap_Bezeichnung", "Bank");
    answer_text(standard_formula("Bank", "20", "7", "4"), "K 1800");
    EXPECT_EQ(old_memo(), "K 1800");
    const Statements sent = take_statements();
    EXPECT_EQ(sent.at(4), test::live_value_statement("AUSWERTUNGSPOSITION", "Ap_Bezeichnung", "Ap_Id", 13));
}

TEST_F(Memos, OfAPositionThatIsGoneAndOfWhichTheLogDoesNotTellAskForNothingFurther) {
    const struct {
        const char* table;
        int key;
        const char *column, *key_column;
    } steps[] = {
        {"AUSWERTUNGSPOSITION", 13, "Ap_Bezeichnung", "Ap_Id"},
        {"AUSWERTUNGSPOSITION", 13, "Za_Id", "Ap_Id"},
        {"ZEILENART", line_kind, "ARa_Id", "Za_Id"},
        {"AUSWERTUNGSRAHMEN", framework, "ARa_Kennzeichen", "ARa_Id"},
        {"AUSWERTUNGSRAHMEN", framework, "ARa_Art", "ARa_Id"},
    };
    for (const auto& step : steps) {
        log_position();
        oDBU.answers.erase(change_of(step.table, step.key, step.column));
        EXPECT_EQ(old_memo_of_a_new_run(), "");
        const Statements sent = take_statements();
        EXPECT_EQ(std::ranges::count(
                      sent, test::live_value_statement(step.table, step.column, step.key_column, step.key)),
                  1)
            << step.column;
        EXPECT_EQ(sent.back(), test::deletion_statement(step.table, step.key, step.column))
            << "nothing is asked behind the step that fails";
    }
}

TEST_F(Memos, OfAPositionThatIsGoneAndWhoseTypeOrMarkIsEmptyAskForNoFormula) {
    for (const char* column : {"ARa_Kennzeichen", "ARa_Art"}) {
        log_position();
        log(change_of("AUSWERTUNGSRAHMEN", framework, column), column, "");
        EXPECT_EQ(old_memo_of_a_new_run(), "");
        EXPECT_FALSE(asked_for_a_formula()) << column;
    }
}

TEST_F(Memos, OfAPositionThatIsGoneAndWhoseParentHasNoIdAskForNothingFurther) {
    const struct {
        const char* table;
        int key;
        const char* column;
    } steps[] = {{"AUSWERTUNGSPOSITION", 13, "Za_Id"}, {"ZEILENART", line_kind, "ARa_Id"}};
    for (const auto& step : steps) {
        log_position();
        log(change_of(step.table, step.key, step.column), step.column, "");
        EXPECT_EQ(old_memo_of_a_new_run(), "");
        EXPECT_EQ(take_statements().back(), change_of(step.table, step.key, step.column));
    }
}

TEST_F(Memos, AskForTheMarkOfAChartOnceARun) {
    answer_live_position();
    old_memo();
    old_memo();
    const Statements sent = take_statements();
    EXPECT_EQ(std::ranges::count(sent, chart_mark), 1);
}

TEST_F(Memos, OfAPositionWithAnApostropheBreakTheStatement) {
    answer(chart_mark, {{std::int64_t{4}}});
    answer(live_position, {{std::string("Café d'Or"), std::int64_t{20}, std::int64_t{1}, std::int64_t{7}}});
    oDBU.failures.emplace(standard_formula("Café d'Or", "20", "7", "4"), test::server_error("Syntaxfehler"));
    const AutomationError error = error_of([&] { old_memo(); });
    EXPECT_EQ(error.source(), PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtAuswCsvClass.msMemoWertAlt");
    EXPECT_EQ(error.description(), "Syntaxfehler");
}

TEST_F(Memos, NameTheirProcedureInTheErrorOfEachStatement) {
    oDBU.failures.emplace(memo_of(900), test::server_error("kein Zugriff"));
    EXPECT_EQ(error_of([&] { memos.msMemoWertNeu(900); }).source(),
              PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtAuswCsvClass.msMemoWertNeu");
    for (const std::string& statement : {rows_of_the_record("FORMEL_POSITION"), chart_mark, live_position}) {
        answer_live_position();
        oDBU.failures.clear();
        oDBU.failures.emplace(statement, test::server_error("kein Zugriff"));
        EXPECT_EQ(error_of([&] { old_memo_of_a_new_run(); }).source(),
                  PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtAuswCsvClass.msMemoWertAlt")
            << statement;
    }
}

TEST_F(Memos, NameTheirProcedureInTheErrorOfThePreviousRowsMemo) {
    answer(rows_of_the_record("ZEILENART"), {{std::int64_t{880}}});
    oDBU.failures.emplace(memo_of(880), test::server_error("kein Zugriff"));
    EXPECT_TRUE(
        error_of([&] { old_memo("ZEILENART"); }).source().ends_with("ProtAuswCsvClass.msMemoWertAlt"));
}

}  // namespace
}  // namespace prot::report_frameworks
