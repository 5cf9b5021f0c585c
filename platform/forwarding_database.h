#pragma once

#include "platform/database.h"

namespace prot {

/// A database object that hands every operation on to the one behind it, which outlives it. What stands
/// before a database derives from it and overrides the operations that it is about.
class ForwardingDatabase : public Database {
public:
    explicit ForwardingDatabase(Database& behind) : behind_(behind) {}

    Value query_value(std::string_view sql) override { return behind_.query_value(sql); }
    RowSet query_array(std::string_view sql) override { return behind_.query_array(sql); }
    std::unique_ptr<RowStream> query_rows(std::string_view sql) override { return behind_.query_rows(sql); }
    void execute(std::string_view sql) override { behind_.execute(sql); }
    std::string date_literal(Date date) override { return behind_.date_literal(date); }
    std::string like_wildcard() override { return behind_.like_wildcard(); }
    void begin_lookups() override { behind_.begin_lookups(); }
    void end_lookups() noexcept override { behind_.end_lookups(); }
    void require_connection() override { behind_.require_connection(); }

private:
    Database& behind_;
};

}  // namespace prot
