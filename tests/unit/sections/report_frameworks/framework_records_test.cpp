#include "sections/report_frameworks/framework_records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
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

const Date moment = to_date(CivilTime{2026, 3, 5, 14, 7, 9});
constexpr const char* at_the_moment = "<05.03.2026 14:07:08>";

// The ids of a log row are 11 (dlPrimaryKey1) to 15 (dlSuchId4); those that are found are all others.
constexpr int line_kind = 21, framework = 31, position = 41, density = 51;

std::string change_of(const std::string& table, const std::string& log_column, int key,
                      const std::string& column) {
    return test::first_change_statement(table, log_column, key, at_the_moment, column);
}
std::string with_id(const char* statement, int id) { return statement + std::to_string(id); }

std::string framework_of_line_kind(int id) {
    return with_id("SELECT ARa_Id FROM Zeilenart WHERE Za_Id = ", id);
}
std::string framework_of_report_kind(int id) {
    return with_id("SELECT ARa_Id FROM Auswertungsart WHERE Aa_Id = ", id);
}
std::string line_kind_of_position(int id) {
    return with_id("SELECT Za_Id FROM AuswertungsPosition WHERE Ap_Id = ", id);
}
std::string framework_name(int id) {
    return with_id("SELECT ARa_Bezeichnung FROM AuswertungsRahmen WHERE ARa_Id = ", id);
}
std::string density_name(int id) {
    return with_id("SELECT Ad_Bezeichnung FROM AuswertungsDichte WHERE Ad_Id = ", id);
}
std::string position_name(int id) {
    return with_id("SELECT Ap_Bezeichnung FROM AuswertungsPosition WHERE Ap_Id = ", id);
}
std::string column_name(int id) {
    return with_id("SELECT As_Bezeichnung FROM AuswertungsSpalte WHERE As_Id = ", id);
}
std::string line_kind_name(int id) {
    return with_id("SELECT Za_Bezeichnung FROM Zeilenart WHERE Za_Id = ", id);
}
std::string density_of_position(int id) { return change_of("AUSWERTUNGSZELLE", "dlSuchId1", id, "Ad_Id"); }
std::string live_density_of_position(int id) {
    return test::live_value_statement("AUSWERTUNGSZELLE", "Ad_Id", "Ap_Id", id);
}
std::string density_of_framework(int id) { return change_of("AUSWERTUNGSDICHTE", "dlSuchId1", id, "Ad_Id"); }
std::string live_density_of_framework(int id) {
    return test::live_value_statement("AUSWERTUNGSDICHTE", "Ad_Id", "ARa_Id", id);
}
std::string position_of_line_kind(int id) {
    return change_of("AUSWERTUNGSPOSITION", "dlSuchId1", id, "Ap_Id");
}
std::string live_position_of_line_kind(int id) {
    return test::live_value_statement("AUSWERTUNGSPOSITION", "Ap_Id", "Za_Id", id);
}

class Records : public testing::Test {
protected:
    test::FakeHost host;
    test::FakeDatabase oDBU;
    prot::Run run{host.environment, oDBU};
    FrameworkRecords records{run};

    RecordInfo describe(const std::string& table) {
        const test::LogRecord record({.table = table, .date = moment});
        return records.mGetAuswInfos(table, record.row(), moment);
    }
    void answer(const std::string& statement, std::int64_t id) { oDBU.answers[statement] = {{id}}; }
    void answer(const std::string& statement, const char* text) {
        oDBU.answers[statement] = {{std::string(text)}};
    }
    void log(const std::string& statement, const std::string& column, const std::string& old_value) {
        const std::string document = "document of " + statement;
        oDBU.answers[statement] = {{document}};
        host.documents[document] = {{"Mit_Id", "9", "8"}, {column, old_value, "99"}};
    }
    /// The statements without the way in which they are sent.
    Statements take_statements() {
        Statements texts;
        for (const std::string& statement : std::exchange(oDBU.statements, {}))
            texts.push_back(statement.substr(statement.find(": ") + 2));
        return texts;
    }
};

/// How the record of a log row leads to its framework and density, all found by the live tables.
struct Kind {
    const char *table, *procedure;
    Statements way;    ///< in the order in which they are sent
    std::string text;  ///< the last statement, which names the record
};

void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.table; }

const Kind kinds[] = {
    {"AUSWERTUNGSPOSITION",
     "mGetInfoAuswertungsPosition",
     {framework_of_line_kind(12), density_of_position(11), live_density_of_position(11)},
     position_name(11)},
    {"FORMEL_POSITION",
     "mGetInfoFormelPosition",
     {line_kind_of_position(13), framework_of_line_kind(line_kind), density_of_position(13),
      live_density_of_position(13)},
     position_name(13)},
    {"AUSWERTUNGSZELLE",
     "mGetInfoAuswertungsZelle",
     {line_kind_of_position(12), framework_of_line_kind(line_kind), density_of_position(12),
      live_density_of_position(12)},
     position_name(12)},
    {"ZEILENART",
     "mGetInfoZeilenart",
     {density_of_framework(12), live_density_of_framework(12)},
     line_kind_name(11)},
    {"AUSWERTUNGSSPALTE",
     "mGetInfoAuswertungsSpalte",
     {framework_of_report_kind(12), density_of_framework(framework), live_density_of_framework(framework)},
     column_name(11)},
    {"SPALTENFORMATE",
     "mGetInfoSpaltenFormate",
     {framework_of_line_kind(13), position_of_line_kind(13), live_position_of_line_kind(13),
      density_of_position(position), live_density_of_position(position)},
     column_name(12)},
};

class FrameworkRecord : public Records, public testing::WithParamInterface<Kind> {
protected:
    const Kind& kind = GetParam();
    /// A line kind's row knows its framework itself.
    const int framework_id = kind.table == std::string("ZEILENART") ? 12 : framework;

    /// What the statements of the way find.
    void answer_all() {
        for (const int id : {12, 13}) answer(line_kind_of_position(id), line_kind);
        for (const int id : {12, 13, line_kind}) answer(framework_of_line_kind(id), framework);
        answer(framework_of_report_kind(12), framework);
        answer(live_position_of_line_kind(13), position);
        for (const int id : {11, 12, 13, position}) answer(live_density_of_position(id), density);
        for (const int id : {12, framework}) answer(live_density_of_framework(id), density);
        answer(density_name(density), "Dichte");
        answer(framework_name(framework_id), "Rahmen");
        answer(kind.text, "Text");
    }
    Statements whole_way() const {
        Statements all = kind.way;
        all.insert(all.end(), {density_name(density), framework_name(framework_id), kind.text});
        return all;
    }
};

TEST_P(FrameworkRecord, ClimbsToItsFrameworkDensityAndName) {
    answer_all();
    const RecordInfo info = describe(kind.table);
    EXPECT_EQ(info.framework, "Rahmen");
    EXPECT_EQ(info.density, "Dichte");
    EXPECT_EQ(info.text, "Text");
    EXPECT_EQ(take_statements(), whole_way());
}

TEST_P(FrameworkRecord, NamesItselfInTheErrorOfEachOfItsStatements) {
    answer_all();
    for (const std::string& statement : whole_way()) {
        oDBU.failures.clear();
        oDBU.failures.emplace(statement, test::server_error("kein Zugriff"));
        prot::Run fresh{host.environment, oDBU};
        FrameworkRecords failing(fresh);
        const test::LogRecord record({.table = kind.table, .date = moment});
        const AutomationError error =
            error_of([&] { failing.mGetAuswInfos(kind.table, record.row(), moment); });
        EXPECT_EQ(error.description(), "kein Zugriff") << statement;
        EXPECT_TRUE(error.source().starts_with(PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtAuswCsvClass."))
            << error.source();
        EXPECT_TRUE(error.source().ends_with(std::string("\r\nProtAuswCsvClass.") + kind.procedure +
                                             "\r\nProtAuswCsvClass.mGetAuswInfos"))
            << error.source();
    }
}

TEST_P(FrameworkRecord, WithoutAnyTraceIsEmpty) {
    const RecordInfo info = describe(kind.table);
    EXPECT_EQ(info.framework, "");
    EXPECT_EQ(info.density, "");
    EXPECT_EQ(info.text, "");
}

INSTANTIATE_TEST_SUITE_P(Each, FrameworkRecord, testing::ValuesIn(kinds),
                         [](const auto& each) { return each.param.table; });

TEST_F(Records, OfAPositionThatIsGoneAreKnownByTheLog) {
    answer(framework_of_line_kind(12), framework);
    log(density_of_position(11), "Ad_Id", "51");
    answer(density_name(density), "Dichte");
    answer(framework_name(framework), "Rahmen");
    log(change_of("AUSWERTUNGSPOSITION", "dlPrimaryKey1", 11, "Ap_Bezeichnung"), "Ap_Bezeichnung",
        "Forderungen");
    const RecordInfo info = describe("AUSWERTUNGSPOSITION");
    EXPECT_EQ(info.framework, "Rahmen");
    EXPECT_EQ(info.density, "Dichte");
    EXPECT_EQ(info.text, "Forderungen");
    const Statements sent = take_statements();
    EXPECT_EQ(std::ranges::count(sent, live_density_of_position(11)), 0) << "the log told the density";
}

TEST_F(Records, WhoseLineKindIsGoneTooAreKnownByTheLog) {
    log(change_of("AUSWERTUNGSPOSITION", "dlPrimaryKey1", 13, "Za_Id"), "Za_Id", "21");
    log(test::deletion_statement("ZEILENART", line_kind, "ARa_Id"), "ARa_Id", "31");
    answer(framework_name(framework), "Rahmen");
    EXPECT_EQ(describe("FORMEL_POSITION").framework, "Rahmen");
}

TEST_F(Records, WhoseWholeChainIsGoneAreKnownByTheLog) {
    log(test::deletion_statement("AUSWERTUNGSPOSITION", 12, "Za_Id"), "Za_Id", "21");
    log(test::deletion_statement("ZEILENART", line_kind, "ARa_Id"), "ARa_Id", "31");
    log(test::deletion_statement("AUSWERTUNGSRAHMEN", framework, "ARa_Bezeichnung"), "ARa_Bezeichnung",
        "Bilanz alt");
    log(density_of_position(12), "Ad_Id", "51");
    log(test::deletion_statement("AUSWERTUNGSDICHTE", density, "Ad_Bezeichnung"), "Ad_Bezeichnung", "fein");
    log(test::deletion_statement("AUSWERTUNGSPOSITION", 12, "Ap_Bezeichnung"), "Ap_Bezeichnung", "Kasse");
    const RecordInfo info = describe("AUSWERTUNGSZELLE");
    EXPECT_EQ(info.framework, "Bilanz alt");
    EXPECT_EQ(info.density, "fein");
    EXPECT_EQ(info.text, "Kasse");
}

TEST_F(Records, OfAColumnFormatTakeTheFirstPositionOfItsLineKindFromTheLog) {
    log(position_of_line_kind(13), "Ap_Id", "41");
    log(density_of_position(position), "Ad_Id", "51");
    answer(density_name(density), "Dichte");
    EXPECT_EQ(describe("SPALTENFORMATE").density, "Dichte");
}

TEST_F(Records, OfOtherTablesAreEmptyAndAskNothing) {
    for (const char* table :
         {"AUSWERTUNGSRAHMEN", "AUSWERTUNGSDICHTE", "AUSWERTUNGSART", "KONTENRAHMEN", "ZEILENARTEN", ""}) {
        const RecordInfo info = describe(table);
        EXPECT_EQ(info.framework + info.density + info.text, "") << table;
    }
    EXPECT_TRUE(oDBU.statements.empty());
}

TEST_F(Records, AreKnownInWhateverLetterCaseTheirTableIsLogged) {
    answer(line_kind_name(11), "Aktiva");
    EXPECT_EQ(describe("Zeilenart").text, "Aktiva");
}

TEST_F(Records, CarryTheNamesOfAllProceduresInAnError) {
    oDBU.failures.emplace(density_of_position(11), test::server_error("kein Zugriff"));
    EXPECT_EQ(error_of([&] { describe("AUSWERTUNGSPOSITION"); }).source(), PROT_STAMP
              "|srvprotqrbcsv|Testserver\r\nProtAuswCsvClass.PROT_gsGetValueByDate\r\n"
              "ProtAuswCsvClass.mGetInfoAuswertungsPosition\r\nProtAuswCsvClass.mGetAuswInfos");
    oDBU.failures.emplace(density_name(0), test::server_error("kein Zugriff"));
    EXPECT_EQ(error_of([&] { describe("ZEILENART"); }).source(), PROT_STAMP
              "|srvprotqrbcsv|Testserver\r\nProtAuswCsvClass.msDichteBez\r\n"
              "ProtAuswCsvClass.mGetInfoZeilenart\r\nProtAuswCsvClass.mGetAuswInfos");
}

}  // namespace
}  // namespace prot::report_frameworks
