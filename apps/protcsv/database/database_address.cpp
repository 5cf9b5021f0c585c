#include "apps/protcsv/database/database_address.h"

#include <fstream>
#include <stdexcept>

#include "apps/protcsv/options/usage_error.h"
#include "platform/automation/text_parts.h"
#include "platform/automation/utf8.h"
#include "platform/portable/files/paths.h"
#include "platform/portable/files/private_folder.h"
#include "platform/portable/odbc/odbc_drivers.h"

namespace prot {

namespace {

constexpr std::string_view odbc_prefix = "odbc:";

DatabaseAddress address_of(std::string_view text) {
    if (text.empty()) throw UsageError("der Wert darf nicht leer sein");
    DatabaseAddress address;
    if (!text.starts_with(odbc_prefix)) {
        address.file = text;
        return address;
    }
    if (!is_valid_utf8(text)) throw UsageError("der Wert ist kein gültiges UTF-8");
    try {
        address.odbc.emplace(text.substr(odbc_prefix.size()));
    } catch (const std::invalid_argument& error) {
        throw UsageError(error.what());
    }
    return address;
}

/// Its first line, without what editors put around it.
std::string first_line_of(const std::string& name) {
    const std::filesystem::path path = text_path(name);
    std::ifstream file(path, std::ios::binary);
    std::string line;
    std::getline(file, line);
    if (file.bad() || (line.empty() && !file.is_open()))
        throw UsageError("die Datei „" + name + "“ lässt sich nicht lesen");
    if (!is_private(path))
        throw UsageError("die Datei „" + name +
                         "“ dürfen auch andere lesen; chmod 600 nimmt ihnen das Recht");
    std::string_view text = line;
    if (text.starts_with(utf8_byte_order_mark)) text.remove_prefix(utf8_byte_order_mark.size());
    if (text.ends_with('\r')) text.remove_suffix(1);
    text = trim_blanks(text);
    if (text.empty()) throw UsageError("die Datei „" + name + "“ ist leer");
    return std::string(text);
}

}  // namespace

std::string DatabaseAddress::shown() const {
    return odbc ? std::string(odbc_prefix) + odbc->without_secrets() : file;
}

std::string DatabaseAddress::own_file() const {
    if (!odbc) return file;
    const std::string* const database = odbc->find("Database");
    return database != nullptr && is_sqlite_driver(driver_of(*odbc)) ? *database : std::string();
}

DatabaseAddress database_on_command_line(const std::string& text) {
    if (text.starts_with('@')) return address_of(first_line_of(text.substr(1)));
    DatabaseAddress address = address_of(text);
    if (address.odbc && !address.odbc->secrets().empty())
        throw UsageError(
            "ein Kennwort auf der Befehlszeile können andere lesen; es gehört in eine Datei (--db @DATEI) "
            "oder in die "
            "Umgebungsvariable PROTCSV_DB");
    return address;
}

DatabaseAddress database_of_environment(const std::string& text) {
    try {
        return text.starts_with('@') ? address_of(first_line_of(text.substr(1))) : address_of(text);
    } catch (const UsageError& error) {
        throw UsageError(std::string(database_variable) + ": " + error.what());
    }
}

}  // namespace prot
