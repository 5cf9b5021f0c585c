#include "platform/forwarding_database.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace prot {
namespace {

/// Remembers the last call and answers each operation in its own way.
class CalledDatabase : public Database {
public:
    std::string call;

    Value query_value(std::string_view sql) override {
        call = "value " + std::string(sql);
        return std::string("answer");
    }
    RowSet query_array(std::string_view sql) override {
        call = "array " + std::string(sql);
        RowSet rows(1);
        rows.add_row();
        return rows;
    }
    std::unique_ptr<RowStream> query_rows(std::string_view sql) override {
        call = "rows " + std::string(sql);
        return nullptr;
    }
    void execute(std::string_view sql) override { call = "execute " + std::string(sql); }
    std::string date_literal(Date date) override {
        call = "date " + std::to_string(date.serial);
        return "literal";
    }
    std::string like_wildcard() override {
        call = "wildcard";
        return "*";
    }
    void begin_lookups() override { call = "begin"; }
    void end_lookups() noexcept override { call = "end"; }
    void require_connection() override { call = "connection"; }
};

TEST(ForwardingDatabase, HandsEveryOperationOnWithItsAnswer) {
    struct Row {
        std::function<void(Database&)> operation;
        std::string call;
    };
    const std::vector<Row> rows = {
        {[](Database& database) { EXPECT_EQ(database.query_value("v"), Value("answer")); }, "value v"},
        {[](Database& database) { EXPECT_EQ(database.query_array("a").rows(), 1U); }, "array a"},
        {[](Database& database) { EXPECT_EQ(database.query_rows("r"), nullptr); }, "rows r"},
        {[](Database& database) { database.execute("x"); }, "execute x"},
        {[](Database& database) { EXPECT_EQ(database.date_literal(Date{2.5}), "literal"); }, "date 2.500000"},
        {[](Database& database) { EXPECT_EQ(database.like_wildcard(), "*"); }, "wildcard"},
        {[](Database& database) { database.begin_lookups(); }, "begin"},
        {[](Database& database) { database.end_lookups(); }, "end"},
        {[](Database& database) { database.require_connection(); }, "connection"},
    };
    for (const Row& row : rows) {
        CalledDatabase behind;
        ForwardingDatabase database(behind);
        row.operation(database);
        EXPECT_EQ(behind.call, row.call);
    }
}

}  // namespace
}  // namespace prot
