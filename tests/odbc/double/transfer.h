#pragma once

#include <string>
#include <string_view>

#include "tests/odbc/double/diagnostics.h"

namespace prot::odbc_double {

/// `text`, a value as the server prints it, as the bytes of that type of C. Raises a Failure where it is none
/// of that type, or the type is not one that this driver knows.
std::string bytes_of(std::string_view text, SQLSMALLINT c_type);

/// How many bytes end a value of that type behind its length: the zero of texts.
std::size_t ending_of(SQLSMALLINT c_type);

}  // namespace prot::odbc_double
