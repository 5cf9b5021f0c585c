#include "platform/portable/odbc/odbc_drivers.h"

#include <algorithm>

#include "platform/automation/letter_case.h"
#include "platform/portable/odbc/odbc_handle.h"

namespace prot {

namespace {

/// How a driver is asked for encryption, by a part of its name in capitals. Sources: the documentation of
/// Microsoft's drivers for SQL Server and of FreeTDS. FreeTDS checks a certificate only against the file that
/// its configuration names ("ca file").
struct DriverRow {
    std::string_view name;
    std::string_view keyword, value;
    std::string_view trust;  ///< keyword that turns the check of the certificate off; empty: it has none
};
constexpr DriverRow driver_rows[] = {
    {"FREETDS", "Encryption", "require", ""},
    {"TDSODBC", "Encryption", "require", ""},
    {"SQL SERVER", "Encrypt", "yes", "TrustServerCertificate"},
    {"MSODBCSQL", "Encrypt", "yes", "TrustServerCertificate"},
};

/// The driver manager's sources of data, by name.
std::string driver_of_source(std::string_view name) {
    const OdbcHandle<SQL_HANDLE_ENV> environment(nullptr);
    SQLSetEnvAttr(environment.get(), SQL_ATTR_ODBC_VERSION, as_attribute(SQL_OV_ODBC3), 0);
    const std::string wanted = to_upper(name);
    SQLWCHAR source[256];
    SQLWCHAR driver[512];
    SQLSMALLINT source_size = 0;
    SQLSMALLINT driver_size = 0;
    const auto text_of = [](const SQLWCHAR* units, SQLSMALLINT size, std::size_t room) {
        return from_odbc(units, std::clamp<std::size_t>(static_cast<std::size_t>(size), 0, room - 1));
    };
    for (SQLUSMALLINT step = SQL_FETCH_FIRST;; step = SQL_FETCH_NEXT) {
        const SQLRETURN answer =
            SQLDataSourcesW(environment.get(), step, source, static_cast<SQLSMALLINT>(std::size(source)),
                            &source_size, driver, static_cast<SQLSMALLINT>(std::size(driver)), &driver_size);
        if (!SQL_SUCCEEDED(answer)) return {};
        if (upper_equals(text_of(source, source_size, std::size(source)), wanted))
            return text_of(driver, driver_size, std::size(driver));
    }
}

/// What the drivers take for no.
bool is_no(std::string_view value) {
    return std::ranges::any_of(std::initializer_list<std::string_view>{"NO", "0", "OFF", "FALSE", "DISABLED"},
                               [value](std::string_view no) { return upper_equals(value, no); });
}

bool holds(std::string_view text, std::string_view capitals) {
    return to_upper(text).find(capitals) != std::string::npos;
}

}  // namespace

bool is_sqlite_driver(std::string_view driver) { return holds(driver, "SQLITE"); }

std::string driver_of(const ConnectionString& connection) {
    if (const std::string* const driver = connection.find("Driver")) return *driver;
    const std::string* const source = connection.find("DSN");
    return source != nullptr ? driver_of_source(*source) : std::string();
}

OdbcEncryption complete(ConnectionString& connection, std::string_view driver, OdbcCertificate certificate) {
    if (is_sqlite_driver(driver)) {
        connection.remove("NoCreat");
        connection.add("NoCreat", "1");
        return OdbcEncryption::unnecessary;
    }
    const auto* const row = std::ranges::find_if(
        driver_rows, [driver](const DriverRow& candidate) { return holds(driver, candidate.name); });
    if (row == std::end(driver_rows)) return OdbcEncryption::not_asked_for;
    const std::string* const said = connection.find(row->keyword);
    if (said != nullptr && is_no(*said)) return OdbcEncryption::turned_off;
    connection.add(row->keyword, row->value);
    if (certificate == OdbcCertificate::trusted && !row->trust.empty()) connection.add(row->trust, "yes");
    return OdbcEncryption::asked_for;
}

}  // namespace prot
