#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <string>

#include "tests/unit/platform/database_contract/implementations.h"

namespace prot {

/// A database file in the test's folder, to which `connect` connects.
class SqliteServer : public ContractServer {
public:
    using Connect = std::unique_ptr<Database> (*)(const std::filesystem::path& database);

    SqliteServer(const std::filesystem::path& folder, Connect how);
    ~SqliteServer() override;
    SqliteServer(const SqliteServer&) = delete;
    SqliteServer& operator=(const SqliteServer&) = delete;

    std::unique_ptr<Database> connect() override { return connect_(path_); }
    bool run(const std::string& statement) override;
    std::string type_of(ColumnKind kind) override;
    std::string literal(const Value& value) override;
    /// Damages the file.
    void break_connections() override;

protected:
    const std::filesystem::path& path() const { return path_; }

private:
    const std::filesystem::path path_;
    const Connect connect_;
    sqlite3* handle_ = nullptr;
};

}  // namespace prot
