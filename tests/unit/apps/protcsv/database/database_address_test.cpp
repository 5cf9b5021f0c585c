#include "apps/protcsv/database/database_address.h"

#include <gtest/gtest.h>

#include "platform/portable/files/private_folder.h"
#include "tests/unit/apps/protcsv/options/refusal_of.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

constexpr std::string_view password_refused =
    "ein Kennwort auf der Befehlszeile können andere lesen; es gehört in eine Datei (--db @DATEI) oder in "
    "die "
    "Umgebungsvariable PROTCSV_DB";

std::string refused_on_command_line(const std::string& text) {
    return refusal_of([&] { database_on_command_line(text); });
}

class DatabaseAddressFile : public testing::Test {
protected:
    std::string file(const std::string& content) {
        write_file(text_path(path), content);
        make_private(text_path(path));
        return '@' + path;
    }

    const TemporaryFolder folder;
    const std::string path = folder.text("ziel");
};

TEST(DatabaseAddress, IsAPathOrAConnectionString) {
    EXPECT_EQ(database_on_command_line("firma.db").file, "firma.db");
    EXPECT_EQ(database_on_command_line("firma.db").shown(), "firma.db");
    const DatabaseAddress odbc = database_on_command_line("odbc:DSN=Firma;Trusted_Connection=Yes");
    EXPECT_EQ(odbc.file, "");
    EXPECT_FALSE(odbc.empty());
    EXPECT_EQ(odbc.odbc->text(), "DSN=Firma;Trusted_Connection=Yes;");
    EXPECT_EQ(odbc.shown(), "odbc:DSN=Firma;Trusted_Connection=Yes");
    EXPECT_TRUE(DatabaseAddress().empty());
}

TEST(DatabaseAddress, HoldsNoPasswordOnTheCommandLine) {
    EXPECT_EQ(refused_on_command_line("odbc:DSN=Firma;UID=u;PWD=geheim"), password_refused);
    EXPECT_EQ(refused_on_command_line("odbc:DSN=Firma;UID=u;PWD="), "") << "an empty one is none";
    EXPECT_EQ(database_of_environment("odbc:DSN=F;PWD=geheim").shown(), "odbc:DSN=F;PWD=***");
}

TEST(DatabaseAddress, IsRefusedWithoutRepeatingIt) {
    EXPECT_EQ(refused_on_command_line(""), "der Wert darf nicht leer sein");
    EXPECT_EQ(refused_on_command_line("odbc:"), "Die Verbindungszeichenfolge ist leer.");
    EXPECT_EQ(refused_on_command_line("odbc:PWD={geheim"),
              "In der Verbindungszeichenfolge fehlt eine schließende Klammer }.");
    EXPECT_EQ(refused_on_command_line("odbc:DSN=\xFF"), "der Wert ist kein gültiges UTF-8");
    EXPECT_EQ(refusal_of([] { database_of_environment("odbc:"); }),
              "PROTCSV_DB: Die Verbindungszeichenfolge ist leer.");
}

TEST(DatabaseAddress, KnowsTheFileOfASqliteDriver) {
    EXPECT_EQ(database_on_command_line("firma.db").own_file(), "firma.db");
    EXPECT_EQ(database_on_command_line("odbc:Driver=SQLite3;Database=x.db").own_file(), "x.db");
    EXPECT_EQ(database_on_command_line("odbc:Driver=SQL Server;Database=Firma").own_file(), "");
}

TEST_F(DatabaseAddressFile, IsReadFromItsFirstLine) {
    EXPECT_EQ(database_on_command_line(file("odbc:DSN=Firma;PWD=geheim\nmehr\n")).odbc->text(),
              "DSN=Firma;PWD=geheim;");
    EXPECT_EQ(database_on_command_line(file("\xEF\xBB\xBF  firma.db \r\n")).file, "firma.db");
    EXPECT_EQ(database_on_command_line(file("firma.db")).file, "firma.db");
    EXPECT_EQ(database_of_environment(file("firma.db")).file, "firma.db");
}

TEST_F(DatabaseAddressFile, IsRefusedWhenItSaysNothing) {
    EXPECT_EQ(refused_on_command_line(file("")), "die Datei „" + path + "“ ist leer");
    EXPECT_EQ(refused_on_command_line(file("\nfirma.db\n")), "die Datei „" + path + "“ ist leer");
    EXPECT_EQ(refused_on_command_line("@" + folder.text("fehlt")),
              "die Datei „" + folder.text("fehlt") + "“ lässt sich nicht lesen");
}

}  // namespace
}  // namespace prot
