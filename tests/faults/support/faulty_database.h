#pragma once

#include <string>
#include <string_view>

#include "platform/automation/error.h"
#include "platform/forwarding_database.h"
#include "tests/faults/support/faulty_sections.h"

namespace prot::faults {

/// A database object of which calls fail as `faults` says, before anything is sent.
class FaultyDatabase : public ForwardingDatabase {
public:
    FaultyDatabase(Database& database, Faults& faults) : ForwardingDatabase(database), faults_(faults) {}

    Value query_value(std::string_view sql) override {
        pass(sql);
        return ForwardingDatabase::query_value(sql);
    }
    RowSet query_array(std::string_view sql) override {
        pass(sql);
        return ForwardingDatabase::query_array(sql);
    }
    std::unique_ptr<RowStream> query_rows(std::string_view sql) override {
        pass(sql);
        return std::make_unique<FaultyRows>(*this, sql, ForwardingDatabase::query_rows(sql));
    }
    void execute(std::string_view sql) override {
        pass(sql);
        ForwardingDatabase::execute(sql);
    }
    std::string date_literal(Date date) override {
        pass("date literal");
        return ForwardingDatabase::date_literal(date);
    }
    std::string like_wildcard() override {
        pass("wildcard");
        return ForwardingDatabase::like_wildcard();
    }
    void begin_lookups() override {
        pass("begin of the look-ups");
        ForwardingDatabase::begin_lookups();
    }
    void require_connection() override {
        if (lost_) raise("connection");
        ForwardingDatabase::require_connection();
    }

private:
    class FaultyRows : public RowStream {
    public:
        FaultyRows(FaultyDatabase& database, std::string_view sql, std::unique_ptr<RowStream> behind)
            : database_(database), sql_(sql), behind_(std::move(behind)) {}
        const RowSet& next_batch() override {
            database_.pass("rows of " + sql_);
            return behind_->next_batch();
        }
        void release() override { behind_->release(); }
        std::int64_t expected_rows() override { return behind_->expected_rows(); }

    private:
        FaultyDatabase& database_;
        const std::string sql_;
        const std::unique_ptr<RowStream> behind_;
    };

    void pass(std::string_view call) {
        if (!faults_.statements.fails() && !lost_) return;
        lost_ = faults_.connection_fails;
        faults_.failed_statements.emplace_back(call);
        raise(call);
    }
    [[noreturn]] static void raise(std::string_view call) {
        throw AutomationError(-2147217871, "Testserver",
                              "Zeitüberschreitung. Anweisung: " + std::string(call));
    }

    Faults& faults_;
    bool lost_ = false;
};

}  // namespace prot::faults
