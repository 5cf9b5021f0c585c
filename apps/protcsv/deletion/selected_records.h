#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"

namespace prot {

/// The log records that a deletion selects, known by the statements that it sends. Of any other statement an
/// AutomationError.
class SelectedRecords {
public:
    static bool is_counting(std::string_view sql);  ///< SELECT COUNT(*) FROM table WHERE condition
    static SelectedRecords counted_by(std::string_view sql);

    /// DELETE tableMemo WHERE flProtokoll in (SELECT …), the first statement where there are memo texts, or
    /// DELETE table WHERE condition.
    static bool is_deleting(std::string_view sql);
    static SelectedRecords deleted_by(std::string_view sql);

    const std::string& table() const { return table_; }
    std::string id_column() const;
    bool have_memos() const;  ///< only those of tProtokoll

    std::vector<std::int64_t> ids(Database& database) const;  ///< in ascending order
    std::int64_t memos(Database& database) const;             ///< how many memo texts they have

    /// Whether `sql` deletes these records themselves, and no others.
    bool are_deleted_by(std::string_view sql) const;

private:
    SelectedRecords(std::string_view table, std::string_view condition)
        : table_(table), condition_(condition) {}

    std::string ids_statement() const;

    std::string table_;
    std::string condition_;
};

}  // namespace prot
