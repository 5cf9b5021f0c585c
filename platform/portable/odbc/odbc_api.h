#pragma once

// ODBC as the system brings it: its driver manager's header wants that of Windows first.
#ifdef _WIN32
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <string>
#include <string_view>

#include "platform/automation/utf16.h"

namespace prot {

using OdbcText = std::basic_string<SQLWCHAR>;

inline OdbcText to_odbc(std::string_view utf8) { return to_utf16<SQLWCHAR>(utf8); }

/// UTF-8 of `size` units.
inline std::string from_odbc(const SQLWCHAR* units, std::size_t size) {
    std::string text(size * utf8_bytes_of_unit, '\0');
    text.resize(static_cast<std::size_t>(put_utf8(text.data(), units, size) - text.data()));
    return text;
}

/// A pointer-sized attribute that is a number. Source: ODBC, SQLSetStmtAttr.
inline SQLPOINTER as_attribute(std::size_t number) {
    return reinterpret_cast<SQLPOINTER>(
        number);  // NOLINT(performance-no-int-to-ptr): the interface's own way
}

}  // namespace prot
