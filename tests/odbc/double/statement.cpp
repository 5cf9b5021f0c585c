#include "tests/odbc/double/statement.h"

#include <utility>

namespace prot::odbc_double {

namespace {

std::size_t number_of(SQLPOINTER value) { return reinterpret_cast<std::size_t>(value); }

/// An attribute that has the value it has: only that one can be set.
struct FixedAttribute {
    SQLINTEGER attribute;
    std::size_t value;
};
constexpr FixedAttribute fixed_attributes[] = {
    {SQL_ATTR_CURSOR_TYPE, SQL_CURSOR_FORWARD_ONLY},
    {SQL_ATTR_CONCURRENCY, SQL_CONCUR_READ_ONLY},
    {SQL_ATTR_ROW_BIND_TYPE, SQL_BIND_BY_COLUMN},
};

void require_fixed(SQLINTEGER attribute, std::size_t value) {
    for (const FixedAttribute& fixed : fixed_attributes)
        if (fixed.attribute == attribute && fixed.value == value) return;
    throw Failure("HY092", 0, "Invalid attribute/option identifier");
}

}  // namespace

SQLRETURN Statement::execute(std::string_view text) {
    connection_.require();
    if (batch_) throw Failure("24000", 0, "Invalid cursor state");
    patience_.is_cancelled = false;
    batch_ = connection_.send(this, text, patience_);
    try {
        const SQLRETURN code = next_result();
        return result_ && (result_->is_nothing() || result_->changed_rows() == 0) ? SQL_NO_DATA : code;
    } catch (...) {
        close();
        throw;
    }
}

SQLRETURN Statement::next_result() {
    connection_.require();
    result_.reset();
    row_.clear();
    piece_ = {};
    failed_.reset();
    if (batch_) result_ = batch_->next_result();
    if (!result_) {
        close();
        return SQL_NO_DATA;
    }
    add(result_->warnings());
    return SQL_SUCCESS;
}

void Statement::close() {
    result_.reset();
    batch_.reset();
    row_.clear();
    failed_.reset();
    connection_.close(this);
}

const Column& Statement::column(SQLUSMALLINT number) const {
    if (number == 0 || number > columns()) throw Failure("07009", 0, "Invalid descriptor index");
    return result_->columns()[number - 1];
}

void Statement::set_attribute(SQLINTEGER attribute, SQLPOINTER value) {
    switch (attribute) {
        case SQL_ATTR_QUERY_TIMEOUT:
            patience_.limit = std::chrono::seconds(number_of(value));
            return;
        case SQL_ATTR_ROW_ARRAY_SIZE:
            block_ = number_of(value);
            return connection_.tell_block(block_);
        case SQL_ATTR_ROW_STATUS_PTR:
            states_ = static_cast<SQLUSMALLINT*>(value);
            return;
        case SQL_ATTR_ROWS_FETCHED_PTR:
            fetched_ = static_cast<SQLULEN*>(value);
            return;
        default:
            return require_fixed(attribute, number_of(value));
    }
}

void Statement::bind(SQLUSMALLINT number, SQLSMALLINT c_type, void* target, SQLLEN room, SQLLEN* sizes) {
    if (target == nullptr) {
        bound_.erase(number);
        return;
    }
    bound_[number] = {c_type, static_cast<char*>(target), static_cast<std::size_t>(room), sizes};
}

}  // namespace prot::odbc_double
