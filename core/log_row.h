#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/automation/date.h"
#include "platform/automation/value.h"
#include "platform/row_set.h"

namespace prot {

/// The columns of the main log query, in its order.
enum class LogColumn : std::size_t {
    id,
    dcTable,
    dcWorkstation,
    dcUser,
    ddDatum,
    dlEvent,
    dmData,
    dcSystemUser,
    dcApplication,
    dlPrimaryKey1,
    dlSuchId1,
    dlSuchId2,
    dlSuchId3,
    dlSuchId4,
};

inline constexpr std::size_t log_columns = static_cast<std::size_t>(LogColumn::dlSuchId4) + 1;

/// CLng(Val(cell)): the number of a cell whatever its type; Null is 0. Outside 32 bits: automation error 6.
std::int32_t number_of(const Cell& cell);

/// CLng(Val(value)), likewise.
std::int32_t whole_number(const Value& value);

/// CLng(Val(text)); nothing outside 32 bits, where a logged value simply has no translation.
std::optional<std::int32_t> number_in_range(std::string_view text);

/// The text form of a cell, appended to `text`.
void append_text(std::string& text, const Cell& cell);

/// The date of a cell; nothing for Null and the empty text. A text that is no date: automation error 13.
std::optional<Date> date_of(const Cell& cell);

/// The date of a cell; nothing for whatever is no date.
std::optional<Date> date_if_any(const Cell& cell);

/// One record of the log.
class LogRow {
public:
    LogRow(const RowSet& rows, std::size_t row) : rows_(&rows), row_(row) {}

    const Cell& operator[](LogColumn column) const {
        return rows_->at(static_cast<std::size_t>(column), row_);
    }
    std::int32_t number(LogColumn column) const { return number_of((*this)[column]); }

    /// The record's key; 0 when the log table's key is no whole number.
    std::int64_t id() const {
        const Cell& cell = (*this)[LogColumn::id];
        return cell.type() == Cell::Type::integer ? cell.integer() : 0;
    }

    /// The column's text in `scratch`, or where it lies already. Valid until `scratch` changes.
    std::string_view text(LogColumn column, std::string& scratch) const;

    /// Whether ddDatum is Null or the empty text.
    bool without_date() const;

    /// Whether the record has a moment; a text that is no date is none.
    bool has_moment() const { return date_if_any((*this)[LogColumn::ddDatum]).has_value(); }

    /// The moment of the change; nothing for a record without one. A text that is no date: automation
    /// error 13.
    std::optional<Date> moment() const;

private:
    const RowSet* rows_;
    std::size_t row_;
};

}  // namespace prot
