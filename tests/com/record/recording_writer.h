#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/automation/date.h"
#include "platform/automation/value.h"
#include "platform/row_set.h"

/// The text of a recording, for clients in any language: UTF-16LE with a byte order mark, one record a line
/// (LF), fields separated by tabs. In a field \t, \r, \n and \\ stand for tab, CR, LF and backslash.
namespace prot::recording {

/// A moment as two whole numbers, "days:seconds", which no reader's decimal separator can spoil.
std::string field_of(Date date);

/// One value with its type: N (Null), I12, R1.5, D46022:86399 (see field_of(Date)), Ttext.
std::string cell_of(const Value& value);

class RecordingWriter {
public:
    /// Appends one record.
    void add(std::initializer_list<std::string_view> fields);

    /// A record "query_array", its statement, columns, rows; behind it a record "row" for each row, of cells.
    void add_rows(std::string_view sql, const RowSet& rows);

    /// Writes all records to `path`; std::runtime_error when that fails.
    void save(const std::string& path) const;

private:
    std::string text_;
};

}  // namespace prot::recording
