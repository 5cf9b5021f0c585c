#pragma once

#include <exception>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/portable/odbc/odbc_api.h"

/// A driver of the tests' own that plays a SQL Server: what it knows lies in an SQLite file, what SQLite
/// cannot play stands in a script (script.h). It is as strict as the strictest driver.
namespace prot::odbc_double {

/// One diagnostic record, the state of five characters.
struct Record {
    std::string state;
    SQLINTEGER native = 0;
    std::string message;
};

/// A call that fails, with its records: one at least.
class Failure : public std::exception {
public:
    Failure(std::string state, SQLINTEGER native, std::string message)
        : records_{{std::move(state), native, std::move(message)}} {}
    explicit Failure(std::vector<Record> records) : records_(std::move(records)) {}

    const std::vector<Record>& records() const { return records_; }
    const char* what() const noexcept override { return records_.front().message.c_str(); }

private:
    std::vector<Record> records_;
};

/// What every handle of ODBC has: the records of the last call on it.
class Handle {
public:
    /// Makes a call of ODBC out of `call`, which may answer with a code, or raises a Failure. Success becomes
    /// SQL_SUCCESS_WITH_INFO where it left records.
    template <class Call>
    SQLRETURN answer(Call call) noexcept {
        records_.clear();
        try {
            SQLRETURN code = SQL_SUCCESS;
            if constexpr (std::is_void_v<decltype(call())>)
                call();
            else
                code = call();
            return code == SQL_SUCCESS && !records_.empty() ? SQL_SUCCESS_WITH_INFO : code;
        } catch (const Failure& failure) {
            records_ = failure.records();
        } catch (const std::exception& error) {
            records_ = {{"HY000", 0, error.what()}};
        }
        return SQL_ERROR;
    }

    void add(Record record) { records_.push_back(std::move(record)); }
    void add(const std::vector<Record>& records) {
        records_.insert(records_.end(), records.begin(), records.end());
    }
    const std::vector<Record>& records() const { return records_; }

private:
    std::vector<Record> records_;
};

}  // namespace prot::odbc_double
