#include "platform/portable/sqlite/sqlite_cells.h"

#include <algorithm>
#include <new>

#include "platform/automation/letter_case.h"
#include "platform/automation/text_parts.h"

namespace prot {

namespace {

constexpr double seconds_per_day = 86400.0;
constexpr std::string_view date_types[] = {"DATETIME", "DATE", "TIMESTAMP"};

// Reads numbers and separators from the front of a text; after the first mismatch it is not good any more.
class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    bool good() const { return good_; }
    bool at_end() const { return text_.empty(); }

    int digits(std::size_t count) {
        if (text_.size() < count) return fail();
        int number = 0;
        for (std::size_t i = 0; i < count; ++i) {
            if (text_[i] < '0' || text_[i] > '9') return fail();
            number = number * 10 + (text_[i] - '0');
        }
        text_.remove_prefix(count);
        return number;
    }

    void separator(std::string_view allowed) {
        if (text_.empty() || allowed.find(text_[0]) == std::string_view::npos) {
            fail();
            return;
        }
        text_.remove_prefix(1);
    }

    // All that is left, as decimals behind a point.
    double decimals() {
        if (text_.empty()) fail();
        double value = 0.0;
        for (double unit = 0.1; good_ && !text_.empty(); unit /= 10) value += unit * digits(1);
        return value;
    }

private:
    int fail() {
        good_ = false;
        return 0;
    }

    std::string_view text_;
    bool good_ = true;
};

std::string_view bytes(const void* data, int size) {
    return {static_cast<const char*>(data), static_cast<std::size_t>(size)};
}

}  // namespace

std::optional<Date> read_iso_date(std::string_view text) {
    Scanner scanner(text);
    CivilTime civil;
    double fraction = 0.0;
    civil.year = scanner.digits(4);
    scanner.separator("-");
    civil.month = scanner.digits(2);
    scanner.separator("-");
    civil.day = scanner.digits(2);
    if (scanner.good() && !scanner.at_end()) {
        scanner.separator(" T");
        civil.hour = scanner.digits(2);
        scanner.separator(":");
        civil.minute = scanner.digits(2);
        scanner.separator(":");
        civil.second = scanner.digits(2);
        if (scanner.good() && !scanner.at_end()) {
            scanner.separator(".");
            fraction = scanner.decimals();
        }
    }
    if (!scanner.good() || !is_valid(civil)) return std::nullopt;
    const Date date = to_date(civil);
    // Before 1899-12-30 the time of day counts away from zero (see Date).
    return Date{date.serial + (date.serial < 0 ? -fraction : fraction) / seconds_per_day};
}

bool is_date_type(const char* declared_type) {
    if (declared_type == nullptr) return false;
    const std::string_view declared = declared_type;
    const std::string_view type = trim_blanks(declared.substr(0, declared.find('(')));
    return std::ranges::any_of(date_types,
                               [type](std::string_view date_type) { return upper_equals(type, date_type); });
}

SqliteCells::SqliteCells(sqlite3_stmt* statement)
    : statement_(statement), is_date_(static_cast<std::size_t>(sqlite3_column_count(statement))) {
    for (std::size_t column = 0; column < is_date_.size(); ++column)
        is_date_[column] = is_date_type(sqlite3_column_decltype(statement, static_cast<int>(column))) ? 1 : 0;
}

// SQLite answers with no place at all when it had no memory to convert or expand a value. That must not pass
// for an empty one: a log table without a name would lose its records and keep their memo rows.
Cell SqliteCells::read(std::size_t column) const {
    // The value is asked once for the column, not once for each property. Reading it so is sound because one
    // thread alone uses the connection.
    sqlite3_value* const value = sqlite3_column_value(statement_, static_cast<int>(column));
    switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER:
            return Cell(std::int64_t{sqlite3_value_int64(value)});
        case SQLITE_FLOAT:
            return Cell(sqlite3_value_double(value));
        case SQLITE_TEXT:
            break;
        case SQLITE_BLOB: {
            const void* const data = sqlite3_value_blob(value);
            const int size = sqlite3_value_bytes(value);
            if (data == nullptr && size > 0) throw std::bad_alloc();
            return Cell(bytes(data, size));
        }
        default:
            return {};
    }
    const void* const data = sqlite3_value_text(value);
    if (data == nullptr) throw std::bad_alloc();
    const std::string_view text = bytes(data, sqlite3_value_bytes(value));
    if (is_date_[column] != 0)
        if (const auto date = read_iso_date(text)) return Cell(*date);
    return Cell(text);
}

}  // namespace prot
