#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/changed_field.h"
#include "platform/row_set.h"

namespace prot::test {

/// What one record of the log holds; every id another, so that a mixed-up column shows.
struct LogValues {
    std::int64_t id = 900;
    std::string table = "TABELLE";
    std::optional<Date> date{};
    std::int64_t event = 1;
    std::string document{};
    std::int64_t keys[5] = {11, 12, 13, 14, 15};  // dlPrimaryKey1, dlSuchId1 to dlSuchId4
};

/// Appends a record to rows of the log's columns.
inline void add_record(RowSet& rows, const LogValues& values) {
    rows.add_row();
    const auto set = [&rows](LogColumn column, const auto& value) {
        rows.set(static_cast<std::size_t>(column), value);
    };
    set(LogColumn::id, values.id);
    set(LogColumn::dcTable, std::string_view(values.table));
    set(LogColumn::dcWorkstation, std::string_view("PC-7"));
    set(LogColumn::dcUser, std::string_view("Anna"));
    if (values.date) set(LogColumn::ddDatum, *values.date);
    set(LogColumn::dlEvent, values.event);
    set(LogColumn::dmData, std::string_view(values.document));
    set(LogColumn::dcSystemUser, std::string_view("dbo"));
    set(LogColumn::dcApplication, std::string_view("Fibu"));
    for (std::size_t i = 0; i < 5; ++i)
        rows.set(static_cast<std::size_t>(LogColumn::dlPrimaryKey1) + i, values.keys[i]);
}

/// One record of its own.
class LogRecord {
public:
    explicit LogRecord(const LogValues& values = {}) : table_(values.table) { add_record(rows_, values); }
    LogRecord(const LogRecord&) = delete;
    LogRecord& operator=(const LogRecord&) = delete;

    const LogRow& row() const { return row_; }
    ChangedField field(std::string_view name) const { return {name, table_, row_}; }

private:
    std::string table_;
    RowSet rows_{log_columns};
    LogRow row_{rows_, 0};
};

}  // namespace prot::test
