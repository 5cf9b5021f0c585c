#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/automation/error.h"
#include "platform/environment.h"

/// The error exits. Every procedure that has one ends in a catch-all block whose one line is one of the three
/// exits below, so that the source of an error reads as the chain of procedures that it passed through:
///   000100000000|srvprotqrbcsv|first source
///   ProtQRBCsvBas.gsMainSelect
///   CProtDevCsv.gCSVAusgabe
namespace prot {

/// Raises the error being handled again, its source stamped and extended by a line "owner.procedure". Its
/// number and description stay as they are, but for the failing-command text, which is added to the
/// description once.
[[noreturn]] void leave(std::string_view owner, std::string_view procedure);

/// Stamps and extends the error being handled as leave does, shows it, and ends it.
void show_and_end(Environment& environment, std::string_view owner, std::string_view procedure);

/// Ends the error being handled; the procedure returns what its result held.
void end_quietly() noexcept;

/// Ends the error being handled like end_quietly; the host's notices hear of it.
void end_with_notice(Environment& environment) noexcept;

/// Shows `error` in the platform's problem report, with the standard mouse pointer. When the report itself
/// fails, a plain message box titled "Problembericht" shows both errors.
void ZQ_gErrorHandling(Environment& environment, const AutomationError& error);

/// The source with the component's version stamp in front; a source that bears a stamp stays as it is.
std::string stamped(std::string source);

/// The text that a failing procedure adds to its error; empty unless a component is being created. Each
/// thread of a host has its own, because calls on different threads know nothing of each other.
std::string_view& failing_command() noexcept;

/// Runs `create`, which makes an outside component. When it fails, the problem report shows `command` as
/// well. `command` lives as long as the program.
template <class Create>
auto with_failing_command(std::string_view command, Create create) {
    failing_command() = command;
    auto component = create();
    failing_command() = {};
    return component;
}

}  // namespace prot
