#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "apps/protcsv/sample/sample_people.h"
#include "platform/portable/sqlite/sqlite_file.h"

/// The change log of a sample database: its documents, its rows and how they are written.
namespace prot::sample {

enum class Event { created = 0, changed = 1, deleted = 2 };

/// When and by whom something is changed.
struct Occasion {
    Moment moment;
    Author author;
};

/// Builds a change document: <Cols><Col Name="X"><OldValue>…</OldValue><NewValue>…</NewValue></Col>…</Cols>,
/// without any white space, since lookups search for the run Name="X"><OldValue> in it.
class ChangeDocument {
public:
    void add(std::string_view column, std::string_view old_value, std::string_view new_value);
    std::string finish();

private:
    std::string text_ = "<Cols>";
};

/// A whole number of 10^-decimals, as text with a decimal comma: decimal_text(-125, 2) is -1,25.
std::string decimal_text(std::int64_t number, int decimals);

/// The keys in a log row. Empty optionals are NULL.
struct LogKeys {
    std::int32_t primary_key1 = 0;
    std::optional<std::int32_t> primary_key2 = {};
    std::array<std::optional<std::int32_t>, 4> search_ids = {};
    std::array<std::optional<std::int32_t>, 3> related_ids = {};
};

/// One row of the log.
struct LogRow {
    std::string_view table;  ///< of static storage
    Event event = Event::changed;
    Occasion occasion;
    LogKeys keys;
    std::optional<std::string> document;  ///< nothing: NULL
    std::string memo;      ///< full text of a value that the document calls _MEMO_; empty: none
    bool has_date = true;  ///< false: ddDatum is NULL
};

/// The row as it is after a fault: its document NULL; empty; or cut off in the middle, as after a transfer
/// that broke off, so that it does not load.
LogRow without_document(LogRow row);
LogRow with_empty_document(LogRow row);
LogRow with_broken_document(LogRow row);

/// The row without what belongs to it: its memo; its ddDatum.
LogRow without_memo(LogRow row);
LogRow without_date(LogRow row);

/// The row with one column in its document that its record does not have so: of another program, or an older
/// one.
LogRow logged_as(LogRow row, std::string_view column, std::string_view old_value, std::string_view new_value);

/// Writes log rows. They come in the order of their moments; now and then two neighbours change places, as
/// when one client commits later than another, so that the ids do not always follow the moments.
class LogWriter {
public:
    explicit LogWriter(SqliteFile& file);
    void add(LogRow row);
    void finish();  ///< after the last row

private:
    void write(const LogRow& row);

    SqliteFile& file_;
    SqliteInsert insert_;
    SqliteInsert insert_memo_;
    std::optional<LogRow> late_;
    std::int64_t added_ = 0;
};

}  // namespace prot::sample
