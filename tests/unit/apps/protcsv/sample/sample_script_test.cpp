#include "apps/protcsv/sample/sample_script.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <fstream>

#include "platform/automation/error.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

using testing::HasSubstr;

class SampleScript : public testing::Test {
protected:
    std::string script_of(const std::string& statements) {
        sqlite3* file = nullptr;
        EXPECT_EQ(sqlite3_open(database.c_str(), &file), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(file, statements.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(file);
        write_sample_script(database, script);
        return content_of(text_path(script));
    }

    const TemporaryFolder folder;
    const std::string database = folder.text("x.db");
    const std::string script = folder.text("x.sql");
};

TEST_F(SampleScript, HoldsTablesRowsAndIndexesInTheServersWords) {
    EXPECT_EQ(script_of("CREATE TABLE T (id INTEGER PRIMARY KEY AUTOINCREMENT, dcName TEXT COLLATE NOCASE,"
                        " dmText TEXT, dWert REAL, ddTag DATETIME, lGross INTEGER);"
                        "CREATE TABLE Leer (a TEXT);"
                        "CREATE UNIQUE INDEX iT ON T (dcName);"
                        "INSERT INTO T VALUES (2, 'O''Brien', 'Zeile 1' || char(13, 10) || 'Ä', -0.5,"
                        " '2026-01-02 03:04:05', 3000000000);"
                        "INSERT INTO T VALUES (1, NULL, '', 2, '2026-01-02', -1)"),
              "\xEF\xBB\xBF-- Beispieldatenbank von protcsv\n"
              "-- In eine leere Datenbank laden: sqlcmd -S SERVER -d DATENBANK -E -f 65001 -i DATEI\n"
              "SET NOCOUNT ON;\nGO\n"
              "CREATE TABLE [T] (\n"
              "    [id] INT NOT NULL PRIMARY KEY,\n"
              "    [dcName] NVARCHAR(255) NULL,\n"
              "    [dmText] NVARCHAR(MAX) NULL,\n"
              "    [dWert] FLOAT NULL,\n"
              "    [ddTag] DATETIME NULL,\n"
              "    [lGross] BIGINT NULL\n"
              ");\nGO\n"
              "INSERT INTO [T] VALUES\n"
              "(1, NULL, N'', 2, N'2026-01-02', -1),\n"
              "(2, N'O''Brien', N'Zeile 1\r\nÄ', -0.5, N'2026-01-02T03:04:05', 3000000000);\nGO\n"
              "CREATE TABLE [Leer] (\n"
              "    [a] NVARCHAR(255) NULL\n"
              ");\nGO\n"
              "CREATE UNIQUE INDEX iT ON T (dcName);\n"
              "GO\n");
}

TEST_F(SampleScript, GivesALongTextRoom) {
    EXPECT_THAT(script_of("CREATE TABLE T (a TEXT, b TEXT); INSERT INTO T VALUES (printf('%256s', ''), "
                          "printf('%255s', ''))"),
                HasSubstr("[a] NVARCHAR(MAX) NULL,\n    [b] NVARCHAR(255) NULL"));
}

TEST_F(SampleScript, InsertsAHundredRowsAtATimeAndSendsTwentyOfThoseTogether) {
    const std::string text = script_of(
        "CREATE TABLE T (a INTEGER);"
        "WITH n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2001) INSERT INTO T SELECT i FROM n");
    EXPECT_THAT(text, HasSubstr("(100);\nINSERT INTO [T] VALUES\n(101),\n"));
    EXPECT_THAT(text, HasSubstr("(2000);\nGO\nINSERT INTO [T] VALUES\n(2001);\nGO\n"));
    EXPECT_EQ(text.find("(1900);\nGO"), std::string::npos);
}

TEST_F(SampleScript, IsKnownByItsFirstLine) {
    script_of("CREATE TABLE T (a INTEGER)");
    EXPECT_TRUE(is_sample_script(script));
    EXPECT_FALSE(is_sample_script(database));
    EXPECT_FALSE(is_sample_script(folder.text("fehlt")));
}

TEST_F(SampleScript, SaysWhyItCannotBeMade) {
    const auto refusal = [](const std::string& from, const std::string& to) -> std::string {
        try {
            write_sample_script(from, to);
        } catch (const AutomationError& error) {
            return error.description();
        }
        return "geschrieben";
    };
    EXPECT_THAT(refusal(folder.text("fehlt.db"), script),
                HasSubstr("Die Beispieldatenbank lässt sich nicht lesen: "));
    script_of("CREATE TABLE T (a INTEGER)");
    const std::string nowhere = folder.text("fehlt/x.sql");
    EXPECT_EQ(refusal(database, nowhere), "Die Datei „" + nowhere + "“ lässt sich nicht schreiben.");
}

}  // namespace
}  // namespace prot
