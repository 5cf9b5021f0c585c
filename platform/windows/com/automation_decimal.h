#pragma once

#include <oaidl.h>
#include <oleauto.h>

#include <optional>

#include "platform/automation/value.h"

/// The exact decimal numbers of OLE Automation.
namespace prot {

/// An integer when there is no fraction and 64 bits hold it; a Double when its text form shows every digit;
/// else the text as CStr writes it: decimal comma, no grouping, no trailing zeros, no exponent.
Value to_value(CY currency);

/// Likewise; nothing when it is no valid Decimal (more than 28 decimal places).
std::optional<Value> to_value(const DECIMAL& decimal);

}  // namespace prot
