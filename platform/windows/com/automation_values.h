#pragma once

#include <oaidl.h>
#include <oleauto.h>

#include <array>
#include <string>
#include <string_view>

#include "platform/automation/value.h"
#include "platform/row_set.h"
#include "platform/windows/com/variant.h"

/// Automation values of a host, of any type, as the log's own values and back. `member` is the host's member
/// that the value came from, such as "QueryValue"; errors name it.
namespace prot {

/// Null and Empty are Null. Whole numbers of every size, Currency and Decimal without a fraction are integers
/// when they fit into 64 bits. Single keeps its seven digits. A Currency or Decimal that a Double does not
/// hold exactly in 15 digits is its text as CStr would write it. By reference counts as by value. Anything
/// else (an object, an array, an error value): automation error 13 (type mismatch).
Value to_value(const VARIANT& variant, std::string_view member);

/// The text form of the value, for members that answer a text. Null and Empty are no text: automation
/// error 13.
std::string to_text(const VARIANT& variant, std::string_view member);

/// The rows of a two-dimensional array indexed (column, row), of VARIANT or any scalar type, with any lower
/// bounds; the row dimension's lower bound is the row set's. Null, Empty and an array without elements are no
/// rows. True is -1. Anything else, more columns than a server's query can have included (the dimensions are
/// then the wrong way round): automation error 13.
RowSet to_row_set(const VARIANT& variant, std::string_view member);

/// The first ten texts of a one-dimensional array of VARIANT or any scalar type, with any lower bound; Null
/// is the empty text. Anything else, fewer elements included: automation error 13.
std::array<std::string, 10> to_ten_texts(const VARIANT& variant, std::string_view member);

}  // namespace prot
