#include "platform/portable/odbc/odbc_drivers.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

using enum OdbcEncryption;
using enum OdbcCertificate;

struct Completed {
    OdbcEncryption encryption;
    std::string text;
    friend bool operator==(const Completed&, const Completed&) = default;
};

Completed completed(const std::string& text, OdbcCertificate certificate = checked) {
    ConnectionString connection(text);
    const OdbcEncryption encryption = complete(connection, driver_of(connection), certificate);
    return {encryption, connection.text()};
}

TEST(OdbcDrivers, AreAskedForEncryptionWhereTheirKeywordIsKnown) {
    EXPECT_EQ(completed("Driver=ODBC Driver 17 for SQL Server;Server=a"),
              (Completed{asked_for, "Driver=ODBC Driver 17 for SQL Server;Server=a;Encrypt=yes;"}));
    EXPECT_EQ(completed("Driver=libmsodbcsql-18.so;Server=a").encryption, asked_for);
    EXPECT_EQ(completed("Driver=FreeTDS;Server=a"),
              (Completed{asked_for, "Driver=FreeTDS;Server=a;Encryption=require;"}));
    EXPECT_EQ(completed("Driver=libtdsodbc.so;Server=a").text,
              "Driver=libtdsodbc.so;Server=a;Encryption=require;");
    EXPECT_EQ(completed("Driver=Unbekannt;Server=a"),
              (Completed{not_asked_for, "Driver=Unbekannt;Server=a;"}));
}

TEST(OdbcDrivers, KeepWhatTheConnectionStringSaysOfEncryption) {
    EXPECT_EQ(completed("Driver=SQL Server;encrypt=strict"),
              (Completed{asked_for, "Driver=SQL Server;encrypt=strict;"}));
    for (const char* const no : {"no", "No", "0", "off", "false", "disabled"})
        EXPECT_EQ(completed(std::string("Driver=SQL Server;Encrypt=") + no).encryption, turned_off) << no;
    EXPECT_EQ(completed("Driver=FreeTDS;Encryption=off").encryption, turned_off);
}

TEST(OdbcDrivers, TrustACertificateOnlyWhenToldTo) {
    EXPECT_EQ(completed("Driver=SQL Server", trusted).text,
              "Driver=SQL Server;Encrypt=yes;TrustServerCertificate=yes;");
    EXPECT_EQ(completed("Driver=FreeTDS", trusted).text, "Driver=FreeTDS;Encryption=require;");
    EXPECT_EQ(completed("Driver=SQL Server;TrustServerCertificate=no", trusted).text,
              "Driver=SQL Server;TrustServerCertificate=no;Encrypt=yes;")
        << "what the connection string says counts";
}

TEST(OdbcDrivers, MakeNoSqliteFile) {
    EXPECT_EQ(completed("Driver=SQLite3;Database=x.db"),
              (Completed{unnecessary, "Driver=SQLite3;Database=x.db;NoCreat=1;"}));
    EXPECT_EQ(completed("Driver=libsqlite3odbc.so;NoCreat=0;Database=x.db").text,
              "Driver=libsqlite3odbc.so;Database=x.db;NoCreat=1;")
        << "whatever the connection string says";
}

TEST(OdbcDrivers, AreUnknownForASourceThatNobodyHasSetUp) {
    EXPECT_EQ(driver_of(ConnectionString("DSN=gibt es hier nicht")), "");
    EXPECT_EQ(driver_of(ConnectionString("Server=a")), "");
    EXPECT_EQ(driver_of(ConnectionString("DSN=x;Driver=FreeTDS")), "FreeTDS");
    EXPECT_TRUE(is_sqlite_driver("SQLite3 ODBC Driver"));
    EXPECT_FALSE(is_sqlite_driver("SQL Server"));
}

}  // namespace
}  // namespace prot
