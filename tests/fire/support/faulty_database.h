#pragma once

#include <string>
#include <string_view>

#include "platform/automation/error.h"
#include "platform/database.h"
#include "tests/fire/support/fire.h"

namespace prot::fire {

/// A database object of which calls fail as `fire` says, before anything is sent.
class FaultyDatabase : public Database {
public:
    FaultyDatabase(Database& database, Fire& fire) : database_(database), fire_(fire) {}

    Value query_value(std::string_view sql) override {
        pass(sql);
        return database_.query_value(sql);
    }
    RowSet query_array(std::string_view sql) override {
        pass(sql);
        return database_.query_array(sql);
    }
    void execute(std::string_view sql) override {
        pass(sql);
        database_.execute(sql);
    }
    std::string date_literal(Date date) override {
        pass("date literal");
        return database_.date_literal(date);
    }
    std::string like_wildcard() override {
        pass("wildcard");
        return database_.like_wildcard();
    }
    void begin_lookups() override {
        pass("begin of the look-ups");
        database_.begin_lookups();
    }
    void end_lookups() noexcept override { database_.end_lookups(); }
    void require_connection() override {
        if (lost_) raise("connection");
        database_.require_connection();
    }

private:
    void pass(std::string_view call) {
        if (!fire_.statements.fails() && !lost_) return;
        lost_ = fire_.connection_fails;
        fire_.failed_statements.emplace_back(call);
        raise(call);
    }
    [[noreturn]] static void raise(std::string_view call) {
        throw AutomationError(-2147217871, "Testserver",
                              "Zeitüberschreitung. Anweisung: " + std::string(call));
    }

    Database& database_;
    Fire& fire_;
    bool lost_ = false;
};

}  // namespace prot::fire
