#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/ProtQRBCsvBas.h"
#include "sections/report_frameworks/framework_records.h"
#include "tests/unit/support/database_answers.h"
#include "tests/unit/support/fakes.h"
#include "tests/unit/support/statements.h"

namespace prot::report_frameworks {
namespace {

using Statements = std::vector<std::string>;

const Date moment = to_date(CivilTime{2026, 3, 5, 14, 7, 9});
constexpr const char* at_the_moment = "<05.03.2026 14:07:08>";

/// The search of a density by the id of its position.
std::string density_of_position(int id, const std::string& log_column = "dlSuchId1",
                                const std::string& from = at_the_moment) {
    return test::first_change_statement("AUSWERTUNGSZELLE", log_column, id, from, "Ad_Id");
}

/// The lookup of a density, as an example.
class LoggedValue : public testing::Test {
protected:
    test::FakeHost host;
    test::FakeDatabase oDBU;
    prot::Run run{host.environment, oDBU};
    FrameworkRecords records{run};
    const std::string change = density_of_position(31);
    const std::string live = test::live_value_statement("AUSWERTUNGSZELLE", "Ad_Id", "Ap_Id", 31);

    std::string find(Date at = moment) { return find("31", at); }
    std::string find(std::string_view position, Date at = moment) {
        return records.PROT_gsGetValueByDate({"AUSWERTUNGSZELLE", "Ad_Id", "Ap_Id", position, "dlSuchId1"},
                                             at);
    }
    void log(const std::string& statement, const std::string& old_value) {
        const std::string document = "document of " + statement;
        oDBU.answers[statement] = {{document}};
        host.documents[document] = {{"Mit_Id", "9", "8"}, {"Ad_Id", old_value, "99"}};
    }
    void answer_live(Value value) { oDBU.answers[live] = {{std::move(value)}}; }
    Statements take_statements() {
        Statements texts;
        for (const std::string& statement : std::exchange(oDBU.statements, {}))
            texts.push_back(statement.substr(statement.find(": ") + 2));
        return texts;
    }
};

TEST_F(LoggedValue, IsTheOldOneOfTheFirstChangeSinceTheMoment) {
    log(change, "51");
    answer_live(std::int64_t{52});
    EXPECT_EQ(find(), "51");
    EXPECT_EQ(take_statements(), Statements{change});
}

TEST_F(LoggedValue, IsTheLiveOneWhenItHasNotChangedSince) {
    answer_live(std::int64_t{52});
    EXPECT_EQ(find(), "52");
    EXPECT_EQ(take_statements(), (Statements{change, live}));
}

TEST_F(LoggedValue, IsTheLiveOneWhenTheDocumentDoesNotLoad) {
    oDBU.answers[change] = {{std::string("broken")}};
    answer_live(std::int64_t{52});
    EXPECT_EQ(find(), "52");
}

TEST_F(LoggedValue, IsTheLiveOneWhenTheOldOneIsEmpty) {
    log(change, "");
    answer_live(std::int64_t{52});
    EXPECT_EQ(find(), "52");
}

TEST_F(LoggedValue, KeepsTheTextNull) {
    log(change, "NULL");
    answer_live(std::int64_t{52});
    EXPECT_EQ(find(), "NULL");
}

TEST_F(LoggedValue, IsEmptyWhenNeitherHasOne) {
    EXPECT_EQ(find(), "");
    EXPECT_EQ(take_statements(), (Statements{change, live})) << "a deletion is not asked for";
    log(density_of_position(32), "");
    EXPECT_EQ(find("32"), "");
}

TEST_F(LoggedValue, OfTheIdZeroIsAskedForLikeAnyOther) {
    const std::string zero_change = density_of_position(0);
    log(zero_change, "51");
    EXPECT_EQ(find("0"), "51");
    EXPECT_EQ(take_statements(), Statements{zero_change});
}

TEST_F(LoggedValue, DependsOnTheMoment) {
    log(change, "51");
    EXPECT_EQ(find(), "51");
    log(density_of_position(31, "dlSuchId1", "<05.03.2026 14:07:09>"), "53");
    EXPECT_EQ(find(to_date(CivilTime{2026, 3, 5, 14, 7, 10})), "53");
}

TEST_F(LoggedValue, IsNotThatOfTheSharedLookup) {
    log(density_of_position(31, "dlPrimaryKey1"), "61");
    log(change, "51");
    EXPECT_EQ(PROT_gsGetValueByDate("AUSWERTUNGSZELLE", "Ad_Id", "Ap_Id", "31", moment, run), "61");
    EXPECT_EQ(find(), "51") << "found by another column of the log";
}

TEST_F(LoggedValue, NamesItsProcedureInAnErrorOfEitherStatement) {
    for (const std::string& statement : {change, live}) {
        oDBU.failures.clear();
        oDBU.failures.emplace(statement, test::server_error("kein Zugriff"));
        EXPECT_EQ(error_of([&] { find(); }).source(),
                  PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtAuswCsvClass.PROT_gsGetValueByDate")
            << statement;
    }
}

}  // namespace
}  // namespace prot::report_frameworks
