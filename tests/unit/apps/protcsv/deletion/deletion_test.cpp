#include "apps/protcsv/deletion/deletion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "tests/unit/platform/portable/sqlite/sqlite_fixture.h"

namespace prot {
namespace {

using testing::ElementsAre;

const std::string count_records = "SELECT COUNT(*) FROM tProtokoll WHERE dcUser = 'x'";
const std::string delete_memos =
    "DELETE tProtokollMemo WHERE flProtokoll in (SELECT idProtokoll FROM tProtokoll WHERE dcUser = 'x')";
const std::string delete_records = "DELETE tProtokoll WHERE dcUser = 'x'";

/// Hands all on; what it does instead can be said.
class HostInBetween : public HostDatabase {
public:
    explicit HostInBetween(HostDatabase& behind) : behind_(behind) {}

    Value query_value(std::string_view sql) override { return behind_.query_value(sql); }
    RowSet query_array(std::string_view sql) override { return behind_.query_array(sql); }
    std::unique_ptr<RowStream> query_rows(std::string_view sql) override { return behind_.query_rows(sql); }
    void execute(std::string_view sql) override {
        calls.push_back(sql.starts_with("DELETE tProtokollMemo") ? "Memotexte" : "Sätze");
        behind_.execute(sql);
        if (after_execute) after_execute(sql);
    }
    std::string date_literal(Date date) override { return behind_.date_literal(date); }
    std::string like_wildcard() override { return behind_.like_wildcard(); }
    std::string server_name() override { return behind_.server_name(); }
    StoredRows query_stored(std::string_view sql) override { return behind_.query_stored(sql); }
    std::int64_t deleted_rows() override { return behind_.deleted_rows(); }
    void begin_transaction() override {
        calls.emplace_back("begin");
        behind_.begin_transaction();
    }
    void commit() override {
        calls.emplace_back("commit");
        if (instead_of_commit) {
            behind_.rollback();
            instead_of_commit();
        }
        behind_.commit();
    }
    void rollback() noexcept override {
        calls.emplace_back("rollback");
        behind_.rollback();
    }

    std::vector<std::string> calls;
    std::function<void(std::string_view)> after_execute;
    std::function<void()> instead_of_commit;

private:
    HostDatabase& behind_;
};

class Archive : public DeletionArchive {
public:
    explicit Archive(std::vector<std::string>& calls) : calls_(calls) {}

    void keep(const SelectedRecords& records) override {
        calls_.push_back("keep " + records.table());
        if (while_keeping) while_keeping();
    }
    const std::vector<std::int64_t>& ids() const override { return kept_ids; }
    std::int64_t memos() const override { return kept_memos; }
    void records_went(const Deleted& deleted) noexcept override {
        calls_.push_back("went " + std::to_string(deleted.records) + " " + std::to_string(deleted.memos));
    }
    void nothing_went() noexcept override { calls_.emplace_back("nothing went"); }
    void outcome_is_unknown() noexcept override { calls_.emplace_back("unknown"); }

    std::vector<std::int64_t> kept_ids = {1, 3};
    std::int64_t kept_memos = 1;
    std::function<void()> while_keeping;

private:
    std::vector<std::string>& calls_;
};

class DeletionTest : public SqliteFixture {
protected:
    DeletionTest() {
        write(
            "CREATE TABLE tProtokoll (idProtokoll INTEGER PRIMARY KEY, dcUser);"
            "INSERT INTO tProtokoll VALUES (3, 'x'), (1, 'x'), (2, 'y');"
            "CREATE TABLE tProtokollMemo (idProtokollMemo INTEGER PRIMARY KEY, flProtokoll, dmData);"
            "INSERT INTO tProtokollMemo VALUES (1, 3, 'a'), (2, 2, 'b')");
        database_ = open(SqliteAccess::read_write);
        host_ = std::make_unique<HostInBetween>(*database_);
        archive_ = std::make_unique<Archive>(host_->calls);
    }

    std::vector<std::string> ids() const {
        return lines(open()->query_array("SELECT idProtokoll FROM tProtokoll ORDER BY idProtokoll"));
    }
    std::vector<std::string> memos() const {
        return lines(open()->query_array("SELECT idProtokollMemo FROM tProtokollMemo"));
    }

    /// Deletes with an archive, as the exporter does. The error's description, if there was one.
    std::string delete_archived() {
        Deletion deletion(*host_, *host_, archive_.get());
        std::string error;
        try {
            deletion.execute(delete_memos);
            deletion.execute(delete_records);
        } catch (const AutomationError& raised) {
            error = raised.description();
        }
        deleted_ = deletion.deleted();
        return error;
    }

    void expect_nothing_went() const {
        EXPECT_THAT(ids(), ElementsAre("1", "2", "3"));
        EXPECT_THAT(memos(), ElementsAre("1", "2"));
        EXPECT_FALSE(deleted_);
    }

    std::unique_ptr<HostDatabase> database_;
    std::unique_ptr<HostInBetween> host_;
    std::unique_ptr<Archive> archive_;
    std::optional<Deleted> deleted_;
};

TEST_F(DeletionTest, CountsWhatGoesWithoutAnArchiveAndWithoutATransaction) {
    Deletion deletion(*host_, *host_, nullptr);
    EXPECT_EQ(deletion.found().memos, 0) << "nothing is counted yet";
    EXPECT_EQ(deletion.query_value(count_records), Value(std::int64_t{2}));
    EXPECT_EQ(deletion.found().records, 2);
    EXPECT_EQ(deletion.found().memos, 1);
    EXPECT_FALSE(deletion.deleted());
    deletion.execute(delete_memos);
    ASSERT_TRUE(deletion.deleted());
    EXPECT_EQ(deletion.deleted()->memos, 1);
    EXPECT_EQ(deletion.deleted()->records, 0);
    EXPECT_THAT(memos(), ElementsAre("2")) << "gone for good";
    deletion.execute(delete_records);
    EXPECT_EQ(deletion.deleted()->memos, 1);
    EXPECT_EQ(deletion.deleted()->records, 2);
    EXPECT_THAT(host_->calls, ElementsAre("Memotexte", "Sätze"));
}

TEST_F(DeletionTest, HandsOtherStatementsOn) {
    Deletion deletion(*host_, *host_, archive_.get());
    deletion.execute("DROP TABLE IF EXISTS #T");
    EXPECT_THAT(host_->calls, ElementsAre("Sätze"));
    EXPECT_FALSE(deletion.deleted());
}

TEST_F(DeletionTest, KeepsTheRecordsBeforeATransactionInWhichTheyGo) {
    EXPECT_EQ(delete_archived(), "");
    EXPECT_THAT(host_->calls,
                ElementsAre("keep tProtokoll", "begin", "Memotexte", "Sätze", "commit", "went 2 1"));
    EXPECT_THAT(ids(), ElementsAre("2"));
    EXPECT_THAT(memos(), ElementsAre("2"));
    ASSERT_TRUE(deleted_);
    EXPECT_EQ(deleted_->records, 2);
    EXPECT_EQ(deleted_->memos, 1);
}

TEST_F(DeletionTest, SendsNothingWhenTheArchiveFails) {
    archive_->while_keeping = [] { throw AutomationError(ErrorNumber::file, "Datenträger voll"); };
    EXPECT_EQ(delete_archived(), "Datenträger voll");
    EXPECT_THAT(host_->calls, ElementsAre("keep tProtokoll", "nothing went"));
    expect_nothing_went();
}

TEST_F(DeletionTest, UndoesAllWhenOtherRecordsAreSelectedThanWereKept) {
    archive_->while_keeping = [this] { write("INSERT INTO tProtokoll VALUES (4, 'x')"); };
    EXPECT_EQ(
        delete_archived(),
        "Es wurde nichts gelöscht: Seit das Archiv geschrieben wurde, haben sich die ausgewählten Sätze "
        "geändert. Bitte noch einmal löschen, wenn sonst niemand das Protokoll ändert.");
    EXPECT_THAT(host_->calls, ElementsAre("keep tProtokoll", "begin", "rollback", "nothing went"));
    EXPECT_THAT(ids(), ElementsAre("1", "2", "3", "4"));
    EXPECT_THAT(memos(), ElementsAre("1", "2"));
}

TEST_F(DeletionTest, UndoesAllWhenAnotherNumberOfMemoTextsGoesThanWasKept) {
    archive_->kept_memos = 2;
    EXPECT_EQ(delete_archived().find("Es wurde nichts gelöscht: Gelöscht würden andere Sätze"), 0U);
    expect_nothing_went();
    EXPECT_EQ(host_->calls.back(), "nothing went");
}

TEST_F(DeletionTest, UndoesAllWhenAnotherNumberOfRecordsGoesThanWasKept) {
    host_->after_execute = [this](std::string_view sql) {
        if (sql == delete_memos) database_->execute("DELETE tProtokoll WHERE idProtokoll = 1");
    };
    EXPECT_EQ(delete_archived().find("Es wurde nichts gelöscht: Gelöscht würden andere Sätze"), 0U);
    expect_nothing_went();
}

TEST_F(DeletionTest, UndoesAllWhenAStatementFails) {
    for (const std::string& failing : {delete_memos, delete_records}) {
        host_->calls.clear();
        host_->after_execute = [&](std::string_view sql) {
            if (sql == failing) throw AutomationError(ErrorNumber::internal, "kaputt");
        };
        EXPECT_EQ(delete_archived(), "kaputt");
        EXPECT_EQ(host_->calls.back(), "nothing went");
        expect_nothing_went();
    }
}

TEST_F(DeletionTest, UndoesAllWhenTheRecordsAreNeverDeleted) {
    {
        Deletion deletion(*host_, *host_, archive_.get());
        deletion.execute(delete_memos);
        EXPECT_FALSE(deletion.deleted());
    }
    EXPECT_THAT(host_->calls,
                ElementsAre("keep tProtokoll", "begin", "Memotexte", "rollback", "nothing went"));
    expect_nothing_went();
}

TEST_F(DeletionTest, LetsTheArchiveGoWhenTheCommitFails) {
    host_->instead_of_commit = [] { throw AutomationError(ErrorNumber::internal, "gesperrt"); };
    EXPECT_EQ(delete_archived(), "gesperrt");
    EXPECT_THAT(host_->calls,
                ElementsAre("keep tProtokoll", "begin", "Memotexte", "Sätze", "commit", "nothing went"));
    expect_nothing_went();
}

TEST_F(DeletionTest, KeepsTheArchiveWhenNobodyKnowsWhatBecameOfTheCommit) {
    host_->instead_of_commit = [] { throw UnknownOutcome(-1, "", "Verbindung verloren"); };
    EXPECT_EQ(delete_archived(), "Verbindung verloren");
    EXPECT_EQ(host_->calls.back(), "unknown");
    EXPECT_FALSE(deleted_) << "nothing is claimed";
}

}  // namespace
}  // namespace prot
