#pragma once

#include <string>
#include <string_view>

#include "platform/portable/odbc/odbc_api.h"

namespace prot::odbc_double {

/// A column of a result as SQLDescribeCol tells it.
struct Column {
    std::string name;
    SQLSMALLINT type = SQL_WVARCHAR;
    SQLULEN size = 0;  ///< characters, bytes or digits
    SQLSMALLINT digits = 0;
    bool is_long = false;  ///< only SQLGetData reads it
};

/// A column of the type that `declared` names, "nvarchar(max)" or "decimal(10,2)", in any letter case and
/// with anything behind it. Raises std::invalid_argument for a type that SQL Server does not have.
Column column_of(std::string name, std::string_view declared);

}  // namespace prot::odbc_double
