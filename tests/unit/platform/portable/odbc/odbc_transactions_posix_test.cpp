#include "tests/unit/platform/portable/odbc/double_fixture.h"

namespace prot {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class OdbcTransactions : public OdbcOnDouble {
protected:
    void SetUp() override {
        OdbcOnDouble::SetUp();
        database_ = connect();
    }

    HostDatabase& database() { return *database_; }
    void delete_in_transaction() {
        database_->begin_transaction();
        database_->execute("DELETE T WHERE id <= 200");
    }

    Value rows_left() { return connect()->query_value("SELECT COUNT(*) FROM T"); }
    static Value rows(int count) { return std::int64_t{count}; }

private:
    std::unique_ptr<HostDatabase> database_;
};

TEST_F(OdbcTransactions, ShowNobodyWhatTheyDoBeforeTheyAreCommitted) {
    delete_in_transaction();
    EXPECT_EQ(database().deleted_rows(), 200);
    EXPECT_EQ(rows_left(), rows(rows_of_table));
    database().commit();
    EXPECT_EQ(rows_left(), rows(rows_of_table - 200));
}

TEST_F(OdbcTransactions, AreSerializableUntilTheyEnd) {
    delete_in_transaction();
    database().commit();
    EXPECT_THAT(sent(), ElementsAre("1: [isolation 8]", "1: [autocommit off]", "1: DELETE T WHERE id <= 200",
                                    "1: [commit]", "1: [autocommit on]", "1: [isolation 2]"));
    forget_journal();
    delete_in_transaction();
    database().rollback();
    EXPECT_THAT(sent(), ElementsAre("1: [isolation 8]", "1: [autocommit off]", "1: DELETE T WHERE id <= 200",
                                    "1: [rollback]", "1: [autocommit on]", "1: [isolation 2]"));
}

TEST_F(OdbcTransactions, AreUndoneByARollback) {
    delete_in_transaction();
    database().rollback();
    EXPECT_EQ(rows_left(), rows(rows_of_table));
    database().execute("DELETE T WHERE id = 1");
    EXPECT_EQ(rows_left(), rows(rows_of_table - 1)) << "what follows is in none any more";
}

TEST_F(OdbcTransactions, AreUndoneWhenTheServerRefusesTheCommit) {
    delete_in_transaction();
    script("when\t[commit]\nfail\t40001\t1205\tdeadlocked\n");
    try {
        database().commit();
        FAIL() << "it was refused";
    } catch (const UnknownOutcome& outcome) {
        FAIL() << "the server has answered: " << outcome.description();
    } catch (const AutomationError& error) {
        EXPECT_THAT(error.description(), HasSubstr("40001, 1205"));
    }
    EXPECT_EQ(rows_left(), rows(rows_of_table));
    EXPECT_NO_THROW(database().require_connection());
}

TEST_F(OdbcTransactions, HaveAnUnknownOutcomeWhenNoAnswerToTheCommitArrives) {
    delete_in_transaction();
    script("when\t[commit]\nown\nlost\n");
    EXPECT_THROW(database().commit(), UnknownOutcome);
    script("");
    EXPECT_EQ(rows_left(), rows(rows_of_table - 200)) << "this time it had been done";
    EXPECT_LT(error_of([&] { database().require_connection(); }).number(), 0);
}

TEST_F(OdbcTransactions, HaveAnUnknownOutcomeWhenTheCommitTakesTooLong) {
    delete_in_transaction();
    script("when\t[commit]\nfail\tHYT00\t0\tTimeout expired\n");
    EXPECT_THROW(database().commit(), UnknownOutcome);
}

TEST_F(OdbcTransactions, ThatCannotBeginAreRefused) {
    script("when\tWHERE id = 1\nlost\n");
    const AutomationError lost = error_of([&] { database().query_value("SELECT id FROM T WHERE id = 1"); });
    EXPECT_EQ(error_of([&] { database().begin_transaction(); }).description(), lost.description());
}

TEST_F(OdbcTransactions, CountWhatTheirDeletionDeleted) {
    database().execute("DELETE T WHERE id = 0");
    EXPECT_EQ(database().deleted_rows(), 0);
    database().execute("DELETE T WHERE id <= 3");
    EXPECT_EQ(database().deleted_rows(), 3);
    database().execute("SELECT id INTO #t FROM T WHERE id <= 10 DELETE T WHERE id IN (SELECT id FROM #t)");
    EXPECT_EQ(database().deleted_rows(), 7);
}

}  // namespace
}  // namespace prot
