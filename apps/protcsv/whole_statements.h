#pragma once

#include "apps/protcsv/console/interruption.h"
#include "platform/database.h"

namespace prot {

/// A database object whose changing statements run to their end when the program is to be stopped: a deletion
/// that is cut off leaves a journal that has to be rolled back before anyone can read the database.
class WholeStatements : public Database {
public:
    explicit WholeStatements(Database& database) : database_(database) {}

    Value query_value(std::string_view sql) override { return database_.query_value(sql); }
    RowSet query_array(std::string_view sql) override { return database_.query_array(sql); }
    void execute(std::string_view sql) override {
        const InterruptionsWait wait;
        database_.execute(sql);
    }
    std::string date_literal(Date date) override { return database_.date_literal(date); }
    std::string like_wildcard() override { return database_.like_wildcard(); }
    void begin_lookups() override { database_.begin_lookups(); }
    void end_lookups() noexcept override { database_.end_lookups(); }
    void require_connection() override { database_.require_connection(); }

private:
    Database& database_;
};

}  // namespace prot
