#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "apps/protcsv/sample/sample_log.h"
#include "apps/protcsv/sample/sample_random.h"

/// The records of a sample database and what the log says of their changes. A record is a struct; those that
/// keep when and by whom they were changed have `changed` and `employee`. For each kind there is a function
///   LogRow log_row(const Occasion& occasion, const Record* before, const Record* after);
/// null `before`: created; null `after`: deleted; one of them is given.
namespace prot::sample {

/// A logged column of a record: its name and its value as the log writes it; empty means no value.
template <class Record>
struct Field {
    std::string_view column;
    std::string (*text)(const Record& record);
    bool is_memo = false;  ///< its value is too long for documents: they say _MEMO_, the memo table holds it
};

/// How the changes of a table are logged. A FieldOf has the members of a Field.
template <class Record, class FieldOf = Field<Record>>
struct LoggedTable {
    std::string_view name;  ///< dcTable
    std::span<const FieldOf> fields;
    LogKeys (*keys)(const Record& record);
};

/// Created: every value as NewValue. Deleted: every last value as OldValue. Changed: only what differs, no
/// value written as NULL. The last memo that has a new value goes into the row, too.
template <class Record, class FieldOf>
void write_document(LogRow& row, std::span<const FieldOf> fields, const Record* before, const Record* after) {
    const bool change = before != nullptr && after != nullptr;
    ChangeDocument document;
    for (const FieldOf& field : fields) {
        std::string old_value = before == nullptr ? std::string() : field.text(*before);
        std::string new_value = after == nullptr ? std::string() : field.text(*after);
        if (old_value == new_value) continue;
        if (field.is_memo) {
            if (!old_value.empty()) old_value = "_MEMO_";
            if (!new_value.empty()) row.memo = std::exchange(new_value, "_MEMO_");
        }
        if (change && old_value.empty()) old_value = "NULL";
        if (change && new_value.empty()) new_value = "NULL";
        document.add(field.column, old_value, new_value);
    }
    row.document = document.finish();
}

template <class Record, class FieldOf>
LogRow log_row(const LoggedTable<Record, FieldOf>& table, const Occasion& occasion, const Record* before,
               const Record* after) {
    const Record& record = before == nullptr ? *after : *before;
    LogRow row;
    row.table = table.name;
    row.event = before == nullptr ? Event::created : after == nullptr ? Event::deleted : Event::changed;
    row.occasion = occasion;
    row.keys = table.keys(record);
    write_document(row, table.fields, before, after);
    return row;
}

/// Nobody logged in: the record keeps its employee.
template <class Record>
void stamp(Record& record, const Occasion& occasion) {
    if constexpr (requires { record.changed; }) {
        record.changed = occasion.moment;
        if (occasion.author.employee != 0) record.employee = occasion.author.employee;
    }
}

/// A record that is new.
template <class Record>
LogRow log_creation(Record& record, const Occasion& occasion) {
    stamp(record, occasion);
    constexpr const Record* before = nullptr;
    return log_row(occasion, before, &record);
}

template <class Record>
LogRow log_deletion(const Record& record, const Occasion& occasion) {
    constexpr const Record* after = nullptr;
    return log_row(occasion, &record, after);
}

/// A record changed by `change`.
template <class Record, class Change>
LogRow log_change(Record& record, const Occasion& occasion, Change change) {
    const Record before = record;
    change(record);
    stamp(record, occasion);
    return log_row(occasion, &before, &record);
}

/// Any one of the records, of which there is one. Two drawings: later ones are taken more often than early
/// ones.
template <class Record>
Record& any_of(std::vector<Record>& records, Random& random) {
    const std::int64_t first = random.below(std::ssize(records));
    const std::int64_t second = random.below(std::ssize(records));
    return records[static_cast<std::size_t>(std::max(first, second))];
}

/// Any one is deleted.
template <class Record>
LogRow log_deletion(std::vector<Record>& records, Random& random, const Occasion& occasion) {
    Record& place = any_of(records, random);
    const Record removed = std::exchange(place, records.back());
    records.pop_back();
    return log_deletion(removed, occasion);
}

/// In the order of their keys.
template <class Record>
std::vector<Record> by_key(std::vector<Record> records) {
    std::ranges::sort(records, {}, &Record::id);
    return records;
}

}  // namespace prot::sample
