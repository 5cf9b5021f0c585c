#pragma once

#include <oaidl.h>

#include <string>
#include <string_view>

#include "platform/automation/error.h"

/// Errors as they cross the border: AutomationError here, HRESULT with error information there. Number,
/// source and description cross unchanged in both directions.
namespace prot {

/// Object does not support this property or method.
inline constexpr std::int32_t error_member_unknown = static_cast<std::int32_t>(0x800A01B6);

/// The error of a failed vtable call on `object`: with the thread's error information when the object vouches
/// for interface `iid` through ISupportErrorInfo, else with the system's text for the number. Takes the error
/// information off the thread.
AutomationError error_of_call(HRESULT result, IUnknown* object, REFIID iid);

/// The error of a failed IDispatch::Invoke: of the exception when that is what happened (its deferred text is
/// fetched; wCode counts as 0x800A0000 + wCode), else with the system's text for the number. Frees the texts
/// of `exception`.
AutomationError error_of_invoke(HRESULT result, EXCEPINFO& exception);

/// The system's text for a number, without line end; "Automatisierungsfehler 0x…" when it has none.
std::string system_text(HRESULT result);

/// Leaves `error` as the thread's error information for a caller of interface `iid`; returns its number for
/// the method to return. A number that is no failure becomes E_FAIL. Never fails.
HRESULT publish(const AutomationError& error, REFIID iid) noexcept;

}  // namespace prot
