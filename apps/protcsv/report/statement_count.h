#pragma once

#include <cstdint>

#include "platform/forwarding_database.h"

namespace prot {

/// A database object that counts the statements sent. `count` outlives it.
class StatementCount : public ForwardingDatabase {
public:
    StatementCount(Database& behind, std::int64_t& count) : ForwardingDatabase(behind), count_(count) {}

    Value query_value(std::string_view sql) override {
        ++count_;
        return ForwardingDatabase::query_value(sql);
    }
    RowSet query_array(std::string_view sql) override {
        ++count_;
        return ForwardingDatabase::query_array(sql);
    }
    std::unique_ptr<RowStream> query_rows(std::string_view sql) override {
        ++count_;
        return ForwardingDatabase::query_rows(sql);
    }
    void execute(std::string_view sql) override {
        ++count_;
        ForwardingDatabase::execute(sql);
    }

private:
    std::int64_t& count_;
};

}  // namespace prot
