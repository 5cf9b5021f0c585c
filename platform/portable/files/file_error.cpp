#include <algorithm>
#include <cerrno>
#include <iterator>

#include "platform/portable/files/atomic_file.h"

namespace prot {

namespace {

struct Reason {
    std::errc code;
    std::string_view text;
};

// clang-format off
constexpr Reason reasons[] = {
    {std::errc::no_space_on_device,            "kein Platz mehr auf dem Datenträger"},
    {std::errc::file_too_large,                "die Datei würde zu groß"},
    {std::errc::permission_denied,             "keine Berechtigung"},
    {std::errc::operation_not_permitted,       "keine Berechtigung"},
    {std::errc::read_only_file_system,         "der Datenträger ist schreibgeschützt"},
    {std::errc::no_such_file_or_directory,     "der Ordner ist nicht vorhanden"},
    {std::errc::not_a_directory,               "ein Teil des Pfades ist kein Ordner"},
    {std::errc::is_a_directory,                "der Pfad ist ein Ordner"},
    {std::errc::file_exists,                   "der Name ist schon vergeben"},
    {std::errc::io_error,                      "Ein-/Ausgabefehler des Datenträgers"},
    {std::errc::no_such_device_or_address,     "das Gerät ist nicht vorhanden"},
    {std::errc::no_such_device,                "das Gerät ist nicht vorhanden"},
    {std::errc::filename_too_long,             "der Name ist zu lang"},
    {std::errc::invalid_argument,              "der Name ist nicht zulässig"},
    {std::errc::too_many_symbolic_link_levels, "die symbolischen Verknüpfungen führen im Kreis"},
    {std::errc::too_many_files_open,           "zu viele geöffnete Dateien"},
    {std::errc::too_many_files_open_in_system, "zu viele geöffnete Dateien im System"},
    {std::errc::text_file_busy,                "die Datei wird gerade verwendet"},
    {std::errc::device_or_resource_busy,       "die Datei wird gerade verwendet"},
    {std::errc::broken_pipe,                   "der Empfänger hat die Verbindung beendet"},
    {std::errc::not_enough_memory,             "zu wenig Arbeitsspeicher"},
};
// clang-format on

// Standard C++ has no name for it.
#ifdef _WIN32
constexpr int quota_exhausted = 1295;  // ERROR_DISK_QUOTA_EXCEEDED
#else
constexpr int quota_exhausted = EDQUOT;
#endif

std::string reason_text(std::error_code reason) {
    const auto* const found = std::find_if(std::begin(reasons), std::end(reasons),
                                           [&](const Reason& row) { return reason == row.code; });
    if (found != std::end(reasons)) return std::string(found->text);
    if (reason.value() == quota_exhausted) return "das Speicherkontingent ist erschöpft";
    return "Systemfehler " + std::to_string(reason.value());
}

// One line, whatever the path holds.
std::string shown(const std::filesystem::path& path) {
    std::string text = path_text(shortest_path(path));
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, '?');
    return text;
}

}  // namespace

AutomationError file_error(const std::filesystem::path& path, std::string_view reason) {
    return {ErrorNumber::file,
            "Die Datei „" + shown(path) + "“ kann nicht geschrieben werden: " + std::string(reason) + "."};
}

AutomationError file_error(const std::filesystem::path& path, std::error_code reason) {
    return file_error(path, reason_text(reason));
}

AutomationError closed_folder_error(const std::filesystem::path& path, std::error_code reason) {
    return {ErrorNumber::file, "In den Ordner „" + shown(path) +
                                   "“ kann nicht geschrieben werden: " + reason_text(reason) + "."};
}

AutomationError folder_error(const std::filesystem::path& path, std::error_code reason) {
    return {ErrorNumber::file,
            "Der Ordner „" + shown(path) + "“ kann nicht angelegt werden: " + reason_text(reason) + "."};
}

}  // namespace prot
