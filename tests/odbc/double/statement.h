#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "tests/odbc/double/connection.h"

namespace prot::odbc_double {

/// A statement, and the result that is open on it.
class Statement : public Handle {
public:
    /// connection outlives it. Raises a Failure where the connection is lost.
    explicit Statement(Connection& connection) : connection_(connection) { connection.require(); }
    ~Statement() { close(); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    SQLRETURN execute(std::string_view text);
    SQLRETURN next_result();
    void close();
    void cancel() { patience_.is_cancelled = true; }

    /// -1: unknown.
    std::int64_t changed_rows() const { return result_ ? result_->changed_rows() : -1; }
    std::size_t columns() const { return result_ ? result_->columns().size() : 0; }
    /// The number-th column, from 1. Raises a Failure where there is none.
    const Column& column(SQLUSMALLINT number) const;

    /// Raises a Failure for an attribute or a value that it does not know.
    void set_attribute(SQLINTEGER attribute, SQLPOINTER value);

    /// Where values of a column go. target: null takes it away.
    void bind(SQLUSMALLINT number, SQLSMALLINT c_type, void* target, SQLLEN room, SQLLEN* sizes);
    void unbind() { bound_.clear(); }

    SQLRETURN fetch();
    SQLRETURN get(SQLUSMALLINT number, SQLSMALLINT c_type, void* target, SQLLEN room, SQLLEN* size);

private:
    struct Target {
        SQLSMALLINT c_type;
        char* values;
        std::size_t room;  // bytes of each row
        SQLLEN* sizes;
    };
    /// The column that SQLGetData reads, in pieces.
    struct Piece {
        SQLUSMALLINT column = 0;
        std::string bytes;
        std::size_t at = 0;
        bool is_over = false;
    };

    void require_bindable() const;
    std::optional<Row> next_row(SQLULEN number);
    SQLUSMALLINT deliver(SQLULEN number);
    bool deliver(const Target& target, const Cell& cell, SQLULEN number);
    void require_readable(SQLUSMALLINT number) const;
    SQLRETURN deliver_piece(char* target, std::size_t room, std::size_t ending, SQLLEN* size);

    Connection& connection_;
    Patience patience_;
    std::unique_ptr<Batch> batch_;
    std::unique_ptr<Result> result_;
    std::map<SQLUSMALLINT, Target> bound_;
    SQLULEN block_ = 1;  // rows
    SQLUSMALLINT* states_ = nullptr;
    SQLULEN* fetched_ = nullptr;
    Row row_;                        // the last one that was fetched
    std::optional<Failure> failed_;  // behind rows that were delivered, for the next call
    Piece piece_;
};

}  // namespace prot::odbc_double
