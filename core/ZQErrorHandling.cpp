#include "core/ZQErrorHandling.h"

#include <cstdio>
#include <exception>
#include <new>

namespace prot {

namespace {

constexpr std::string_view component_name = "srvProtQRBCsv";
constexpr std::string_view component_file = "srvprotqrbcsv";

/// A stamp is twelve digits, so its first "|" stands at this index.
constexpr std::size_t stamp_bar = 12;

constexpr std::string_view create_error_display_command =
    "\r\n\r\nFolgender Befehl hat diesen Fehler ausgelöst:\r\n"
    "Set oZQError = CreateObject(\"srvZQ.ZQErrorClass\")";

/// The error being handled as an automation error, with the failing-command text taken into its description.
AutomationError current_error() {
    AutomationError error = [] {
        try {
            throw;
        } catch (const AutomationError& automation_error) {
            return automation_error;
        } catch (const std::bad_alloc&) {
            return AutomationError(ErrorNumber::out_of_memory, std::string(out_of_memory_text));
        } catch (const std::exception& other) {
            return AutomationError(ErrorNumber::internal, std::string("Interner Fehler: ") + other.what());
        } catch (...) {
            return AutomationError(ErrorNumber::internal, "Interner Fehler");
        }
    }();
    error.append_to_description(failing_command());
    failing_command() = {};
    return error;
}

AutomationError current_error_from(std::string_view owner, std::string_view procedure) {
    AutomationError error = current_error();
    error.set_source(stamped(error.source()));
    error.append_to_source(line_break);
    error.append_to_source(owner);
    error.append_to_source(".");
    error.append_to_source(procedure);
    return error;
}

std::string fallback_text(const AutomationError& display_error, const AutomationError& first_error) {
    const auto part = [](const AutomationError& error) {
        return std::string("Fehler-Nr: ")
            .append(std::to_string(error.number()))
            .append(line_break)
            .append("Fehlerquelle: ")
            .append(error.source())
            .append(line_break)
            .append(error.description());
    };
    return std::string("*** Fehler beim Laden des Problemberichts ***")
        .append(line_break)
        .append(part(display_error))
        .append(line_break)
        .append(line_break)
        .append("*** Problembericht ***")
        .append(line_break)
        .append(part(first_error));
}

void show_in_message_box(Environment& environment, const AutomationError& first_error) {
    AutomationError display_error = current_error();
    display_error.append_to_source(line_break);
    display_error.append_to_source("ZQErrorHandling.ZQ_gErrorHandling");
    environment.message_boxes.show(fallback_text(display_error, first_error), BoxStyle::plain,
                                   "Problembericht");
}

}  // namespace

void leave(std::string_view owner, std::string_view procedure) { throw current_error_from(owner, procedure); }

void show_and_end(Environment& environment, std::string_view owner, std::string_view procedure) {
    ZQ_gErrorHandling(environment, current_error_from(owner, procedure));
}

void end_quietly() noexcept { failing_command() = {}; }

void end_with_notice(Environment& environment) noexcept {
    try {
        environment.notices.lookup_failed(current_error().description());
    } catch (...) {
        // A host without memory for a notice gets none.
    }
    end_quietly();
}

void ZQ_gErrorHandling(Environment& environment, const AutomationError& error) {
    environment.screen_pointer.set(Pointer::standard);
    try {
        const auto display = with_failing_command(create_error_display_command, [&environment] {
            return environment.components.create_error_display();
        });
        display->ZQ_gShowError(error.number(), error.source(), error.description());
    } catch (...) {
        show_in_message_box(environment, error);
    }
}

std::string stamped(std::string source) {
    if (source.find('|') == stamp_bar) return source;
    char version[16];
    std::snprintf(version, sizeof version, "%04d%04d%04d", PROT_VERSION_MAJOR, PROT_VERSION_MINOR,
                  PROT_VERSION_REVISION);
    return std::string(version)
        .append("|")
        .append(component_file)
        .append("|")
        .append(source.empty() ? component_name : source);
}

std::string_view& failing_command() noexcept {
    thread_local std::string_view text;
    return text;
}

}  // namespace prot
