#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host_database.h"
#include "platform/portable/sqlite/sqlite_file.h"

namespace prot {

/// A table of an archive, and what its rows are found by.
struct ArchivedTable {
    std::string name;
    std::string id{};      ///< column whose values are whole numbers, each once; empty: none is known to be
    std::string search{};  ///< column that is searched; empty: none
};

/// An SQLite file with rows of a database: tables of the same names, columns and values. Each piece is read
/// back by another connection and compared, cell by cell, as soon as it is written.
class ArchiveFile {
public:
    /// path: UTF-8, of a file that does not exist yet.
    explicit ArchiveFile(std::string path);
    ~ArchiveFile();

    /// Appends the rows of SELECT * FROM table WHERE `condition`, read from `source`, in whatever order they
    /// come; the first ones make the table, even where there are none. Returns them.
    StoredRows copy(HostDatabase& source, const ArchivedTable& table, const std::string& condition);

    /// Ends the file: it is whole, and none of the tables has other rows than were copied. Safe from a loss
    /// of power only when the caller has flushed it.
    void close();

private:
    struct Table {
        std::unique_ptr<SqliteInsert> insert;
        std::int64_t rows = 0;
    };

    Table& table_for(const ArchivedTable& table, const std::vector<std::string>& columns);
    void append(Table& table, const RowSet& rows);
    [[noreturn]] void fail() const;

    const std::string path_;
    SqliteFile file_;
    std::unique_ptr<HostDatabase> reader_;
    std::map<std::string, Table> tables_;
};

}  // namespace prot
