#include "sections/report_frameworks/framework_lists.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/unit/support/database_answers.h"
#include "tests/unit/support/fakes.h"

namespace prot::report_frameworks {
namespace {

const Date january = to_date(CivilTime{2020, 1, 1});
const Date december = to_date(CivilTime{2024, 12, 31, 23, 59, 59});

TEST(FrameworkValidity, IsToldByTheMonthsThatAreKnown) {
    const struct {
        Date from, to;
        const char* text;
    } rows[] = {
        {january, december, " (01/2020-12/2024)"},
        {january, {}, " (Gültig ab 01/2020)"},
        {{}, december, " (Gültig bis 12/2024)"},
        {{}, {}, ""},
        {january, january, " (01/2020-01/2020)"},
        {to_date(CivilTime{999, 3, 5}), {}, " (Gültig ab 03/0999)"},
    };
    for (const auto& row : rows) EXPECT_EQ(msGueltigKeit(row.from, row.to), row.text);
}

class FrameworkLists : public testing::Test {
protected:
    test::FakeHost host;
    test::FakeDatabase oDBU;
    const Filter chosen = {.mlAuswertungsart = 20, .mbyRahmenTyp = 1};
    const std::string live_statement =
        "SELECT ARa_Id,        ARa_Bezeichnung,        ddGueltigVon,        ddGueltigBis   FROM "
        "Auswertungsrahmen   WHERE ARa_Art = 20 AND        ARa_Typ = 1 Order by  dcGUID,  ARa_Bezeichnung,  "
        "ddGueltigVon";
    const std::string deleted_statement =
        "SELECT dmData FROM tProtokoll WHERE dcTable = 'AuswertungsRahmen' AND dlEvent = 2 AND dlSuchId2 = "
        "20 AND dlSuchId3 = 1 ORDER BY ddDatum ASC";
    const std::string charts_statement =
        "SELECT KR_Id, KR_Bezeichnung FROM Kontenrahmen ORDER BY KR_Bezeichnung";

    static std::string text_of(const ListedFramework& framework) {
        return std::to_string(framework.ARa_Id) + " " + framework.name +
               msGueltigKeit(framework.ddGueltigVon, framework.ddGueltigBis);
    }
    static std::vector<std::string> texts_of(const std::vector<ListedFramework>& frameworks) {
        std::vector<std::string> texts;
        for (const ListedFramework& framework : frameworks) texts.push_back(text_of(framework));
        return texts;
    }
    std::vector<std::string> deleted() {
        return texts_of(deleted_frameworks(chosen, oDBU, host.environment));
    }
    std::vector<std::string> live() { return texts_of(live_frameworks(chosen, oDBU)); }
};

TEST_F(FrameworkLists, HoldTheLiveFrameworksInTheServersOrder) {
    oDBU.answers[live_statement] = {
        {std::int64_t{7}, std::string("BWA Zeta"), january, Value()},
        {std::int64_t{5}, std::string("BWA Alpha"), january, december},
        {std::int64_t{6}, std::string("BWA Mitte"), Date(), Date()},
    };
    EXPECT_EQ(live(), (std::vector<std::string>{"7 BWA Zeta (Gültig ab 01/2020)",
                                                "5 BWA Alpha (01/2020-12/2024)", "6 BWA Mitte"}));
    EXPECT_EQ(oDBU.statements, std::vector<std::string>{"array: " + live_statement});
}

TEST_F(FrameworkLists, TakeAValidityThatIsNoDateForOpen) {
    for (const Value& none : {Value(), Value(std::string()), Value(std::string("unbegrenzt")),
                              Value(std::string("31.02.2020"))}) {
        oDBU.answers[live_statement] = {{std::int64_t{7}, std::string("BWA"), none, december}};
        EXPECT_EQ(live(), std::vector<std::string>{"7 BWA (Gültig bis 12/2024)"});
        oDBU.answers[live_statement] = {{std::int64_t{7}, std::string("BWA"), january, none}};
        EXPECT_EQ(live(), std::vector<std::string>{"7 BWA (Gültig ab 01/2020)"});
    }
    oDBU.answers[live_statement] = {
        {std::int64_t{7}, std::string("BWA"), std::string("01.01.2020"), std::string("31.12.2024")}};
    EXPECT_EQ(live(), std::vector<std::string>{"7 BWA (01/2020-12/2024)"}) << "a text may be a date";
}

TEST_F(FrameworkLists, HoldADeletedFrameworkOnceForEachOfItsDeletions) {
    oDBU.answers[deleted_statement] = {
        {std::string("first")}, {std::string("other")}, {std::string("second")}};
    host.documents["first"] = {{"ARa_Id", "8", ""}, {"ARa_Bezeichnung", "BWA alt", ""}};
    host.documents["other"] = {
        {"ARa_Bezeichnung", "BWA anders", "x"}, {"ARa_Art", "20", ""}, {"ARa_Id", "9", "1"}};
    host.documents["second"] = {{"ARa_Bezeichnung", "BWA alt", ""}, {"ARa_Id", "8", ""}};
    EXPECT_EQ(deleted(), (std::vector<std::string>{"8 BWA alt", "9 BWA anders", "8 BWA alt"}));
    EXPECT_EQ(oDBU.statements, std::vector<std::string>{"array: " + deleted_statement});
}

TEST_F(FrameworkLists, HoldNoneForADeletionWhoseDocumentDoesNotLoad) {
    oDBU.answers[deleted_statement] = {
        {std::string("broken")}, {Value()}, {std::string("first")}, {std::string("broken")}};
    host.documents["first"] = {{"ARa_Id", "8", ""}, {"ARa_Bezeichnung", "BWA alt", ""}};
    EXPECT_EQ(deleted(), std::vector<std::string>{"8 BWA alt"});
}

TEST_F(FrameworkLists, NeedNoReaderWithoutADeletion) {
    host.reader_failure = test::server_error("kein Leser");
    EXPECT_TRUE(deleted().empty());
    oDBU.answers[deleted_statement] = {{std::string("first")}};
    const AutomationError error = error_of([&] { deleted(); });
    EXPECT_EQ(error.description(), "kein Leser");
}

TEST_F(FrameworkLists, HoldTheChartsOfAccountsInTheServersOrder) {
    oDBU.answers[charts_statement] = {{std::int64_t{62}, std::string("SKR 04")},
                                      {std::int64_t{61}, std::string("SKR 03")}};
    std::vector<std::string> charts;
    for (const Entry& entry : charts_of_accounts(oDBU))
        charts.push_back(std::to_string(entry.key) + " " + entry.text);
    EXPECT_EQ(charts, (std::vector<std::string>{"62 SKR 04", "61 SKR 03"}));
    EXPECT_EQ(oDBU.statements, std::vector<std::string>{"array: " + charts_statement});
}

TEST_F(FrameworkLists, RefuseRowsThatLackAColumn) {
    oDBU.answers[live_statement] = {{std::int64_t{7}, std::string("BWA"), january}};
    oDBU.answers[charts_statement] = {{std::int64_t{61}}};
    const auto index_out_of_range = static_cast<std::int32_t>(ErrorNumber::index_out_of_range);
    EXPECT_EQ(error_of([&] { live(); }).number(), index_out_of_range);
    EXPECT_EQ(error_of([&] { charts_of_accounts(oDBU); }).number(), index_out_of_range);
}

}  // namespace
}  // namespace prot::report_frameworks
