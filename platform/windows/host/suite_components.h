#pragma once

#include <oaidl.h>

#include <memory>
#include <string_view>

#include "platform/error_display.h"
#include "platform/help_display.h"
#include "platform/value_translator.h"
#include "platform/windows/com/com_ptr.h"

/// The suite's own components, created by their programmatic identifiers. One that cannot be created:
/// automation error 429, which names it and says why.
namespace prot {

/// Whether the system knows a class of that name.
bool is_registered(std::string_view program_id);

/// The problem report, srvZQ.ZQErrorClass.
std::unique_ptr<ErrorDisplay> suite_error_display();

inline constexpr std::string_view help_class = "srvZQ.ZQHelpClass";

/// The help viewer, srvZQ.ZQHelpClass. Its show-help operation is the first own member that its type
/// information tells of, when that takes the three arguments help map, help id and result; else the member
/// gShowHelp.
std::unique_ptr<HelpDisplay> suite_help_display();

/// A translation object, such as srvKWAusw.KWAuswFormelLstClass, which is handed `database` with each value;
/// null when it cannot be created. Its operation is the first own member that its type information tells of,
/// when that takes four arguments and answers a text; else the member gsTranslate.
std::unique_ptr<ValueTranslator> suite_value_translator(std::string_view program_id,
                                                        ComPtr<IDispatch> database);

}  // namespace prot
