#include "core/log_row.h"

#include <limits>

#include "platform/automation/error.h"
#include "platform/automation/text_forms.h"

namespace prot {

std::int32_t number_of(const Cell& cell) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (cell.is_null()) return 0;
    if (cell.type() == Cell::Type::integer && cell.integer() >= Limits::min() &&
        cell.integer() <= Limits::max())
        return static_cast<std::int32_t>(cell.integer());
    return whole_number(cell.value());
}

std::int32_t whole_number(const Value& value) { return to_long(val(to_text(value))); }

std::optional<std::int32_t> number_in_range(std::string_view text) {
    const double number = val(text);
    if (number < -2147483648.0 || number > 2147483647.0) return std::nullopt;
    return to_long(number);
}

void append_text(std::string& text, const Cell& cell) {
    switch (cell.type()) {
        case Cell::Type::null:
            return;
        case Cell::Type::text:
            text += cell.text();
            return;
        case Cell::Type::date:
            append_text(text, cell.date());
            return;
        default:
            text += to_text(cell.value());
    }
}

std::optional<Date> date_of(const Cell& cell) {
    if (cell.type() == Cell::Type::date) return cell.date();
    std::string text;
    append_text(text, cell);
    if (text.empty()) return std::nullopt;
    return to_date(std::string_view(text));
}

std::optional<Date> date_if_any(const Cell& cell) {
    try {
        return date_of(cell);
    } catch (const AutomationError& error) {
        if (error.number() != static_cast<std::int32_t>(ErrorNumber::type_mismatch)) throw;
        return std::nullopt;
    }
}

std::string_view LogRow::text(LogColumn column, std::string& scratch) const {
    const Cell& cell = (*this)[column];
    if (cell.type() == Cell::Type::text) return cell.text();
    scratch.clear();
    append_text(scratch, cell);
    return scratch;
}

bool LogRow::without_date() const {
    const Cell& cell = (*this)[LogColumn::ddDatum];
    return cell.is_null() || (cell.type() == Cell::Type::text && cell.text().empty());
}

std::optional<Date> LogRow::moment() const { return date_of((*this)[LogColumn::ddDatum]); }

}  // namespace prot
