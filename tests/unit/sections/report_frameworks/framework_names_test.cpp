#include "sections/report_frameworks/framework_names.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "tests/unit/support/database_answers.h"
#include "tests/unit/support/fakes.h"
#include "tests/unit/support/statements.h"

namespace prot::report_frameworks {
namespace {

using Statements = std::vector<std::string>;

const Date moment = to_date(CivilTime{2026, 3, 5, 14, 7, 9});
constexpr const char* at_the_moment = "<05.03.2026 14:07:08>";

/// The live table and the log are asked for the same id.
struct Lookup {
    const char* name;
    std::string live;  ///< up to the id
    const char *table, *column, *key_column;
};

std::string first_change_of(const Lookup& lookup, int id) {
    return test::first_change_statement(lookup.table, "dlPrimaryKey1", id, at_the_moment, lookup.column);
}

/// What is sent for an id that neither the live table nor the log knows.
Statements all_statements(const Lookup& lookup, int id) {
    return {"value: " + lookup.live + std::to_string(id), "value: " + first_change_of(lookup, id),
            "array: " + test::live_value_statement(lookup.table, lookup.column, lookup.key_column, id),
            "value: " + test::deletion_statement(lookup.table, id, lookup.column)};
}

class Names : public testing::Test {
protected:
    test::FakeHost host;
    test::FakeDatabase oDBU;
    prot::Run run{host.environment, oDBU};
    FrameworkNames names{run};

    void answer_live(const Lookup& lookup, int id, Value value) {
        oDBU.answers[lookup.live + std::to_string(id)] = {{std::move(value)}};
    }
    /// The first change since the moment tells the old value.
    void log_change(const Lookup& lookup, int id, const std::string& value) {
        oDBU.answers[first_change_of(lookup, id)] = {{std::string("change")}};
        host.documents["change"] = {{"Mit_Id", "9", "8"}, {lookup.column, value, "danach"}};
    }
    void log_deletion(const Lookup& lookup, int id, const std::string& value) {
        oDBU.answers[test::deletion_statement(lookup.table, id, lookup.column)] = {{std::string("deletion")}};
        host.documents["deletion"] = {{lookup.column, value, ""}};
    }
    Statements take_statements() { return std::exchange(oDBU.statements, {}); }
};

struct NameLookup : Lookup {
    std::string (FrameworkNames::*find)(std::int32_t, Date);
};

void PrintTo(const NameLookup& lookup, std::ostream* out) { *out << lookup.name; }

// clang-format off
const NameLookup name_lookups[] = {
    {{"msRahmenBez",    "SELECT ARa_Bezeichnung FROM AuswertungsRahmen WHERE ARa_Id = ", "AUSWERTUNGSRAHMEN",   "ARa_Bezeichnung", "ARa_Id"}, &FrameworkNames::msRahmenBez},
    {{"msDichteBez",    "SELECT Ad_Bezeichnung FROM AuswertungsDichte WHERE Ad_Id = ",   "AUSWERTUNGSDICHTE",   "Ad_Bezeichnung",  "Ad_Id"},  &FrameworkNames::msDichteBez},
    {{"msPosBez",       "SELECT Ap_Bezeichnung FROM AuswertungsPosition WHERE Ap_Id = ", "AUSWERTUNGSPOSITION", "Ap_Bezeichnung",  "Ap_Id"},  &FrameworkNames::msPosBez},
    {{"msSpalteBez",    "SELECT As_Bezeichnung FROM AuswertungsSpalte WHERE As_Id = ",   "AUSWERTUNGSSPALTE",   "As_Bezeichnung",  "As_Id"},  &FrameworkNames::msSpalteBez},
    {{"msZeilenartBez", "SELECT Za_Bezeichnung FROM Zeilenart WHERE Za_Id = ",           "ZEILENART",           "Za_Bezeichnung",  "Za_Id"},  &FrameworkNames::msZeilenartBez},
};
// clang-format on

class FrameworkNameLookup : public Names, public testing::WithParamInterface<NameLookup> {
protected:
    const NameLookup& lookup = GetParam();
    std::string find(int id, Date at = moment) { return (names.*lookup.find)(id, at); }
};

TEST_P(FrameworkNameLookup, AsksTheLiveTableAndThenTheLog) {
    EXPECT_EQ(find(31), "") << "_UNDEFINIERT_ is no name";
    EXPECT_EQ(take_statements(), all_statements(lookup, 31));
}

TEST_P(FrameworkNameLookup, IsTheCurrentNameWhenItHasChangedSince) {
    answer_live(lookup, 31, std::string("heute"));
    log_change(lookup, 31, "damals");
    EXPECT_EQ(find(31), "heute");
    EXPECT_EQ(take_statements(), (Statements{"value: " + lookup.live + "31"})) << "the log is not asked";
}

TEST_P(FrameworkNameLookup, IsTheLoggedNameOfTheMomentWhenTheRecordIsGone) {
    log_change(lookup, 31, "damals");
    EXPECT_EQ(find(31), "damals");
}

TEST_P(FrameworkNameLookup, IsTheNameThatTheDeletionTells) {
    log_deletion(lookup, 31, "zuletzt");
    EXPECT_EQ(find(31), "zuletzt");
}

TEST_P(FrameworkNameLookup, OfAnEmptyLiveNameAsksTheLog) {
    for (const Value& nothing : {Value(), Value(std::string())}) {
        FrameworkNames other{run};
        answer_live(lookup, 31, nothing);
        log_change(lookup, 31, "damals");
        EXPECT_EQ((other.*lookup.find)(31, moment), "damals");
    }
}

TEST_P(FrameworkNameLookup, SendsItsLiveStatementOnceARun) {
    answer_live(lookup, 31, std::string("heute"));
    const Date later = to_date(CivilTime{2026, 4, 1, 8, 0, 0});
    for (const Date at : {moment, later, moment}) EXPECT_EQ(find(31, at), "heute");
    EXPECT_EQ(take_statements().size(), 1U);
    find(32);
    EXPECT_EQ(take_statements().at(0), "value: " + lookup.live + "32") << "each id by its own statement";
    find(32, later);
    for (const std::string& statement : take_statements())
        EXPECT_NE(statement, "value: " + lookup.live + "32") << "also of a record that is gone";
}

TEST_P(FrameworkNameLookup, TreatsTheIdZeroLikeAnyOther) {
    EXPECT_EQ(find(0), "");
    EXPECT_EQ(take_statements(), all_statements(lookup, 0));
    log_deletion(lookup, -5, "negativ");
    EXPECT_EQ(find(-5), "negativ");
}

TEST_P(FrameworkNameLookup, NamesItselfInAnErrorOfTheLiveStatement) {
    oDBU.failures.emplace(lookup.live + "31", test::server_error("kein Zugriff"));
    const AutomationError error = error_of([&] { find(31); });
    EXPECT_EQ(error.source(),
              std::string(PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtAuswCsvClass.") + lookup.name);
    EXPECT_EQ(error.description(), "kein Zugriff");
    EXPECT_EQ(error.number(), test::server_error("").number());
}

TEST_P(FrameworkNameLookup, AnswersAFailedStatementOfTheLogWithNoName) {
    oDBU.failures.emplace(first_change_of(lookup, 31), test::server_error("kein Zugriff"));
    EXPECT_EQ(find(31), "");
    EXPECT_EQ(host.failed_lookups, Statements{"kein Zugriff"});
}

INSTANTIATE_TEST_SUITE_P(Each, FrameworkNameLookup, testing::ValuesIn(name_lookups),
                         [](const auto& each) { return each.param.name; });

struct IdLookup : Lookup {
    std::int32_t (FrameworkNames::*find)(std::int32_t, Date);
};

void PrintTo(const IdLookup& lookup, std::ostream* out) { *out << lookup.name; }

// clang-format off
const IdLookup id_lookups[] = {
    {{"mlARa_Id_Zeilenart",          "SELECT ARa_Id FROM Zeilenart WHERE Za_Id = ",          "ZEILENART",           "ARa_Id", "Za_Id"}, &FrameworkNames::mlARa_Id_Zeilenart},
    {{"mlARa_Id_Auswertungsart",     "SELECT ARa_Id FROM Auswertungsart WHERE Aa_Id = ",     "AUSWERTUNGSART",      "ARa_Id", "Aa_Id"}, &FrameworkNames::mlARa_Id_Auswertungsart},
    {{"mlZa_Id_AuswertungsPosition", "SELECT Za_Id FROM AuswertungsPosition WHERE Ap_Id = ", "AUSWERTUNGSPOSITION", "Za_Id",  "Ap_Id"}, &FrameworkNames::mlZa_Id_AuswertungsPosition},
};
// clang-format on

class FrameworkIdLookup : public Names, public testing::WithParamInterface<IdLookup> {
protected:
    const IdLookup& lookup = GetParam();
    std::int32_t find(int id, Date at = moment) { return (names.*lookup.find)(id, at); }
};

TEST_P(FrameworkIdLookup, AsksTheLiveTableAndThenTheLog) {
    EXPECT_EQ(find(31), 0) << "_UNDEFINIERT_ is no id";
    EXPECT_EQ(take_statements(), all_statements(lookup, 31));
}

TEST_P(FrameworkIdLookup, IsTheLiveIdWhateverTheLogTells) {
    log_change(lookup, 31, "72");
    answer_live(lookup, 31, std::int64_t{71});
    EXPECT_EQ(find(31), 71);
    EXPECT_EQ(take_statements(), (Statements{"value: " + lookup.live + "31"}));
}

TEST_P(FrameworkIdLookup, IsTheLoggedIdOfTheMomentWhenTheRecordIsGone) {
    log_change(lookup, 31, "72");
    EXPECT_EQ(find(31), 72);
}

TEST_P(FrameworkIdLookup, IsTheIdThatTheDeletionTells) {
    log_deletion(lookup, 31, "73");
    EXPECT_EQ(find(31), 73);
}

TEST_P(FrameworkIdLookup, OfALiveZeroAsksTheLog) {
    for (const Value& zero :
         {Value(), Value(std::string()), Value(std::int64_t{0}), Value(std::string("x"))}) {
        FrameworkNames other{run};
        answer_live(lookup, 31, zero);
        log_change(lookup, 31, "72");
        EXPECT_EQ((other.*lookup.find)(31, moment), 72);
    }
}

TEST_P(FrameworkIdLookup, ReadsTheNumberOfAText) {
    answer_live(lookup, 31, std::string("74 alt"));
    EXPECT_EQ(find(31), 74);
    log_change(lookup, 32, "75 alt");
    EXPECT_EQ(find(32), 75);
}

TEST_P(FrameworkIdLookup, SendsItsLiveStatementOnceARun) {
    answer_live(lookup, 31, std::int64_t{71});
    const Date later = to_date(CivilTime{2026, 4, 1, 8, 0, 0});
    for (const Date at : {moment, later, moment}) EXPECT_EQ(find(31, at), 71);
    EXPECT_EQ(take_statements().size(), 1U);
}

TEST_P(FrameworkIdLookup, TreatsTheIdZeroLikeAnyOther) {
    EXPECT_EQ(find(0), 0);
    EXPECT_EQ(take_statements(), all_statements(lookup, 0));
}

TEST_P(FrameworkIdLookup, NamesItselfInAnErrorOfTheLiveStatement) {
    oDBU.failures.emplace(lookup.live + "31", test::server_error("kein Zugriff"));
    EXPECT_EQ(error_of([&] { find(31); }).source(),
              std::string(PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtAuswCsvClass.") + lookup.name);
}

TEST_P(FrameworkIdLookup, AnswersAFailedStatementOfTheLogWithZero) {
    oDBU.failures.emplace(first_change_of(lookup, 31), test::server_error("kein Zugriff"));
    EXPECT_EQ(find(31), 0);
}

INSTANTIATE_TEST_SUITE_P(Each, FrameworkIdLookup, testing::ValuesIn(id_lookups),
                         [](const auto& each) { return each.param.name; });

TEST_F(Names, OfADeletedLineKindLeadToTheFrameworkAsOfTheChange) {
    const Lookup& line_kind = id_lookups[0];
    log_deletion(line_kind, 31, "70");
    EXPECT_EQ(names.mlARa_Id_Zeilenart(31, moment), 70);
    log_change(line_kind, 31, "72");
    const Date earlier = to_date(CivilTime{2026, 3, 5, 14, 7, 8});
    oDBU.answers[test::first_change_statement("ZEILENART", "dlPrimaryKey1", 31, "<05.03.2026 14:07:07>",
                                              "ARa_Id")] = {{std::string("change")}};
    EXPECT_EQ(names.mlARa_Id_Zeilenart(31, earlier), 72) << "the date counts, a second before the change";
}

}  // namespace
}  // namespace prot::report_frameworks
