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

/// A text that a caller of ODBC hands over: `size` units, or up to a zero where that is SQL_NTS.
std::string text_of(const SQLWCHAR* units, SQLINTEGER size);

/// Copies a text, with a zero behind it, into `room` units; its size in units goes to `size`. Null: it is not
/// asked for. False: it was shortened.
bool put_text(std::string_view text, SQLWCHAR* target, SQLSMALLINT room, SQLSMALLINT* size);

}  // namespace prot::odbc_double
