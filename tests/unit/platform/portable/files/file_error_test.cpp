#include <gtest/gtest.h>

#include "platform/portable/files/atomic_file.h"

namespace prot {
namespace {

struct Reason {
    std::errc code;
    const char* text;
};
const Reason reasons[] = {
    {std::errc::no_space_on_device, "kein Platz mehr auf dem Datenträger"},
    {std::errc::file_too_large, "die Datei würde zu groß"},
    {std::errc::permission_denied, "keine Berechtigung"},
    {std::errc::operation_not_permitted, "keine Berechtigung"},
    {std::errc::read_only_file_system, "der Datenträger ist schreibgeschützt"},
    {std::errc::no_such_file_or_directory, "der Ordner ist nicht vorhanden"},
    {std::errc::not_a_directory, "ein Teil des Pfades ist kein Ordner"},
    {std::errc::is_a_directory, "der Pfad ist ein Ordner"},
    {std::errc::file_exists, "der Name ist schon vergeben"},
    {std::errc::io_error, "Ein-/Ausgabefehler des Datenträgers"},
    {std::errc::no_such_device_or_address, "das Gerät ist nicht vorhanden"},
    {std::errc::no_such_device, "das Gerät ist nicht vorhanden"},
    {std::errc::filename_too_long, "der Name ist zu lang"},
    {std::errc::invalid_argument, "der Name ist nicht zulässig"},
    {std::errc::too_many_symbolic_link_levels, "die symbolischen Verknüpfungen führen im Kreis"},
    {std::errc::too_many_files_open, "zu viele geöffnete Dateien"},
    {std::errc::too_many_files_open_in_system, "zu viele geöffnete Dateien im System"},
    {std::errc::text_file_busy, "die Datei wird gerade verwendet"},
    {std::errc::device_or_resource_busy, "die Datei wird gerade verwendet"},
    {std::errc::broken_pipe, "der Empfänger hat die Verbindung beendet"},
    {std::errc::not_enough_memory, "zu wenig Arbeitsspeicher"},
};

TEST(FileError, SaysWhyInWordsThatHelp) {
    for (const auto& [code, text] : reasons) {
        const std::error_code reason = std::make_error_code(code);
        EXPECT_EQ(file_error("a.csv", reason).description(),
                  std::string("Die Datei „a.csv“ kann nicht geschrieben werden: ") + text + ".");
        EXPECT_EQ(closed_folder_error("a", reason).description(),
                  std::string("In den Ordner „a“ kann nicht geschrieben werden: ") + text + ".");
        EXPECT_EQ(folder_error("a", reason).description(),
                  std::string("Der Ordner „a“ kann nicht angelegt werden: ") + text + ".");
    }
}

TEST(FileError, HasItsNumberAndNoSource) {
    for (const AutomationError& error :
         {file_error("a", "so"), folder_error("a", std::make_error_code(std::errc::io_error))}) {
        EXPECT_EQ(static_cast<std::uint32_t>(error.number()), 0x800A0039U);
        EXPECT_EQ(error.source(), "");
    }
}

TEST(FileError, ShowsThePathInOneLineAndItsShortestForm) {
    const struct {
        const char* path;
        const char* shown;
        const char* why;
    } cases[] = {
        {"./x/../a.csv", "a.csv", "the shortest form"},
        {"a\tb\x1F\x01.csv", "a?b??.csv", "control characters"},
        {"a b\x7F.csv", "a b\x7F.csv", "a blank and what lies behind ASCII's letters"},
        {"Ä \xC2\x85.csv", "Ä \xC2\x85.csv", "bytes of other characters"},
    };
    for (const auto& [path, shown, why] : cases)
        EXPECT_EQ(file_error(text_path(path), "so").description(),
                  std::string("Die Datei „") + shown + "“ kann nicht geschrieben werden: so.")
            << why;
}

}  // namespace
}  // namespace prot
