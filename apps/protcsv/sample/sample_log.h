#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "apps/protcsv/sample/sample_people.h"
#include "apps/protcsv/sample/sample_sqlite.h"

/// The change log of a sample database: its documents, its rows and how they are written.
namespace prot::sample {

enum class Event { created = 0, changed = 1, deleted = 2 };

/// When and by whom something is changed.
struct Occasion {
    Moment moment;
    Author author;
};

/// A logged column of a record: its name and its value as the log writes it; empty means no value.
template <class Record>
struct Field {
    std::string_view column;
    std::string (*text)(const Record& record);
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

/// The document of a change from `before` to `after`. Null `before`: created, every value as NewValue. Null
/// `after`: deleted, every last value as OldValue. Both: only what differs, no value written as NULL.
template <class Record>
std::string change_document(std::span<const Field<Record>> fields, const Record* before,
                            const Record* after) {
    const bool change = before != nullptr && after != nullptr;
    ChangeDocument document;
    for (const Field<Record>& field : fields) {
        std::string old_value = before == nullptr ? std::string() : field.text(*before);
        std::string new_value = after == nullptr ? std::string() : field.text(*after);
        if (old_value == new_value) continue;
        if (change && old_value.empty()) old_value = "NULL";
        if (change && new_value.empty()) new_value = "NULL";
        document.add(field.column, old_value, new_value);
    }
    return document.finish();
}

/// A whole number of 10^-decimals, as text with a decimal comma: decimal_text(-125, 2) is -1,25.
std::string decimal_text(std::int64_t number, int decimals);

/// What a change from `before` to `after` is. Null `before`: created; null `after`: deleted.
Event event_of(const void* before, const void* after);

/// One row of the log. Empty optionals are NULL.
struct LogRow {
    std::string_view table;  ///< of static storage
    Event event;
    Occasion occasion;
    std::int32_t primary_key1;
    std::optional<std::int32_t> primary_key2;
    std::array<std::optional<std::int32_t>, 4> search_ids;
    std::array<std::optional<std::int32_t>, 3> related_ids;
    std::optional<std::string> document;
    std::string memo;  ///< full text of a value that the document calls _MEMO_; empty: none
};

/// The row as it is after a fault: its document NULL; empty; or cut off in the middle, as after a transfer
/// that broke off, so that it does not load.
LogRow without_document(LogRow row);
LogRow with_empty_document(LogRow row);
LogRow with_broken_document(LogRow row);

/// Writes log rows. They come in the order of their moments; now and then two neighbours change places, as
/// when one client commits later than another, so that the ids do not always follow the moments.
class LogWriter {
public:
    explicit LogWriter(SampleFile& file);
    void add(LogRow row);
    void finish();  ///< after the last row

private:
    void write(const LogRow& row);

    SampleFile& file_;
    Insert insert_;
    Insert insert_memo_;
    std::optional<LogRow> late_;
    std::int64_t added_ = 0;
};

}  // namespace prot::sample
