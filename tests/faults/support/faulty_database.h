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
