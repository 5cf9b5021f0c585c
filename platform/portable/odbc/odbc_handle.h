#pragma once

#include <new>
#include <utility>

#include "platform/portable/odbc/odbc_api.h"

namespace prot {

/// Owns a handle of that type (SQL_HANDLE_ENV, …); empty: none.
template <SQLSMALLINT type>
class OdbcHandle {
public:
    OdbcHandle() = default;

    /// A handle below `parent` (of an environment: null). Fails with std::bad_alloc; of a statement also
    /// where the connection has gone, see allocate.
    explicit OdbcHandle(SQLHANDLE parent) {
        if (!SQL_SUCCEEDED(allocate(parent))) throw std::bad_alloc();
    }
    ~OdbcHandle() { reset(); }
    OdbcHandle(OdbcHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    OdbcHandle& operator=(OdbcHandle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    OdbcHandle(const OdbcHandle&) = delete;
    OdbcHandle& operator=(const OdbcHandle&) = delete;

    /// A handle in place of the present one; what ODBC answers, of which the diagnostics are the parent's.
    SQLRETURN allocate(SQLHANDLE parent) {
        reset();
        const SQLRETURN answer = SQLAllocHandle(type, parent, &handle_);
        if (!SQL_SUCCEEDED(answer)) handle_ = nullptr;
        return answer;
    }

    void reset() {
        if (handle_ != nullptr) SQLFreeHandle(type, std::exchange(handle_, nullptr));
    }

    SQLHANDLE get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }

private:
    SQLHANDLE handle_ = nullptr;
};

}  // namespace prot
