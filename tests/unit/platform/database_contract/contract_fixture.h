#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/unit/platform/database_contract/implementations.h"
#include "tests/unit/support/database_answers.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {

/// What every database object promises, whatever lies behind it (platform/database.h).
class DatabaseContract : public testing::TestWithParam<DatabaseImplementation> {
protected:
    using Columns = std::vector<std::pair<std::string, ColumnKind>>;
    using Rows = std::vector<std::vector<Value>>;

    void SetUp() override {
        if (!server_) GTEST_SKIP() << "no server of this kind here";
        make_table("T",
                   {{"id", ColumnKind::integer},
                    {"name", ColumnKind::text},
                    {"amount", ColumnKind::real},
                    {"made", ColumnKind::date}},
                   {
                       {std::int64_t{2}, "Zwei", 2.5, Date{46024.5}},
                       {std::int64_t{1}, "Müller", Value(), Date{46023.25}},
                       {std::int64_t{3}, "Drei", -0.75, Value()},
                   });
        database_ = server_->connect();
    }

    ContractServer& server() { return *server_; }
    Database& database() { return *database_; }
    void set_up(const std::string& statement) { EXPECT_TRUE(server_->run(statement)) << statement; }

    void make_table(const std::string& name, const Columns& columns, const Rows& rows) {
        std::string declarations;
        for (const auto& [column, kind] : columns)
            declarations += (declarations.empty() ? "" : ", ") + column + " " + server_->type_of(kind);
        set_up("CREATE TABLE " + name + " (" + declarations + ")");
        for (const std::vector<Value>& row : rows) {
            std::string values;
            for (const Value& value : row) values += (values.empty() ? "" : ", ") + server_->literal(value);
            set_up("INSERT INTO " + name + " VALUES (" + values + ")");
        }
    }

    std::vector<std::string> rows(std::string_view sql) { return lines(database_->query_array(sql)); }

private:
    const TemporaryFolder folder_;
    const std::unique_ptr<ContractServer> server_ = GetParam().start(folder_.path());
    std::unique_ptr<Database> database_;
};

inline std::string implementation_name(const testing::TestParamInfo<DatabaseImplementation>& info) {
    return info.param.name;
}

}  // namespace prot
