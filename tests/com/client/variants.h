#pragma once

#include <oaidl.h>

#include <string_view>
#include <vector>

#include "platform/automation/value.h"
#include "platform/windows/com/bstr.h"
#include "platform/windows/com/variant.h"

namespace prot::test {

/// Variants that own nothing, for arguments.
VARIANT empty();
VARIANT null();
VARIANT missing();  ///< an optional argument left out in place
VARIANT number(long value);
VARIANT short_number(short value);
VARIANT real(double value);
VARIANT date(double serial);
VARIANT boolean(bool value);
VARIANT object(IDispatch* value);
VARIANT text(const Bstr& value);
VARIANT reference(VARIANT& value);

using Table = std::vector<std::vector<Value>>;  ///< row by row

/// Numbers of the first column and the first row.
struct FirstIndices {
    long column = 0, row = 0;
};

/// The rows as hosts hand them over: an array of VARIANT indexed (column, row). An empty table is Empty.
Variant array_of(const Table& rows, FirstIndices first = {});

/// A value as a host hands it over.
Variant variant_of(const Value& value);

}  // namespace prot::test
