#include "tests/faults/support/log_database.h"

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <utility>

namespace prot::faults {

namespace {

struct Closer {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Connection = std::unique_ptr<sqlite3, Closer>;
using Statement = std::unique_ptr<sqlite3_stmt, Closer>;

[[noreturn]] void fail(const Connection& connection) {
    throw std::runtime_error(sqlite3_errmsg(connection.get()));
}

Connection open(const std::filesystem::path& file) {
    sqlite3* handle = nullptr;
    const int code =
        sqlite3_open_v2(file.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, "unix");
    Connection connection(handle);
    if (code != SQLITE_OK) fail(connection);
    sqlite3_exec(handle, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
    return connection;
}

Statement prepared(const Connection& connection, const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(connection.get(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
        fail(connection);
    return Statement(statement);
}

constexpr const char* tables = R"(
CREATE TABLE tSysQuvoLogSections (IDSysQuvoLogSections INTEGER PRIMARY KEY, dcLogTable TEXT COLLATE NOCASE);
CREATE TABLE tProtokoll (
    idProtokoll INTEGER PRIMARY KEY, dcTable TEXT COLLATE NOCASE, dcWorkstation TEXT COLLATE NOCASE,
    dcUser TEXT COLLATE NOCASE, ddDatum DATETIME, dlEvent INTEGER, dmData TEXT COLLATE NOCASE,
    dcSystemUser TEXT COLLATE NOCASE, dcApplication TEXT COLLATE NOCASE, dlPrimaryKey1 INTEGER,
    dlSuchId1 INTEGER, dlSuchId2 INTEGER, dlSuchId3 INTEGER, dlSuchId4 INTEGER);
CREATE TABLE tProtokollMemo (idProtokollMemo INTEGER PRIMARY KEY, flProtokoll INTEGER, dmData TEXT);
CREATE TABLE tSysQuvoTables (IDSysQuvoTables INTEGER PRIMARY KEY, dcTableName TEXT COLLATE NOCASE);
CREATE TABLE tSysQuvoColumns (flTable INTEGER, dcColumnName TEXT COLLATE NOCASE, dmDescription TEXT);
CREATE TABLE tDevisenWaehr (idDevisenWaehr INTEGER PRIMARY KEY, dcISOKennz TEXT COLLATE NOCASE, dcBezeichnung TEXT);
CREATE TABLE TDEVISENKURS (idDevisenKurs INTEGER PRIMARY KEY, ddGueltigAb DATETIME);
INSERT INTO tSysQuvoLogSections VALUES (15, 'tProtokoll');
INSERT INTO tSysQuvoTables VALUES (1, 'TDEVISENKURS');
INSERT INTO tSysQuvoColumns VALUES (1, 'dzKursEURGeld', 'Kurs EUR (Geld)'), (1, 'dzKursFremdGeld', 'Kurs fremd');
INSERT INTO tDevisenWaehr VALUES (1, 'CHF', 'Schweizer Franken'), (2, 'USD', 'US-Dollar');
INSERT INTO TDEVISENKURS VALUES (10, '2025-01-01 00:00:00'), (11, '2025-02-01 08:30:00');
)";

std::string clock_time(std::int64_t id) {
    char text[32];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", static_cast<int>(id / 3600),
                  static_cast<int>(id / 60 % 60), static_cast<int>(id % 60));
    return text;
}

}  // namespace

LogDatabase::LogDatabase(std::filesystem::path file, const std::string& encoding) : file_(std::move(file)) {
    run("PRAGMA encoding = '" + encoding + "';" + tables);
}

void LogDatabase::put(std::int64_t id, std::string_view document) {
    const Connection connection = open(file_);
    const Statement insert =
        prepared(connection,
                 "INSERT OR REPLACE INTO tProtokoll VALUES (?1, 'TDEVISENKURS', 'WS-01', 'Müller', "
                 "'2026-01-01 ' || ?2, 1, ?3, 'sa', 'Kurse', 7010, 10, 1, 7003, 7004)");
    const std::string time = clock_time(id);
    sqlite3_bind_int64(insert.get(), 1, id);
    sqlite3_bind_text(insert.get(), 2, time.c_str(), -1, SQLITE_STATIC);
    sqlite3_bind_text64(insert.get(), 3, document.data(), document.size(), SQLITE_STATIC, SQLITE_UTF8);
    if (sqlite3_step(insert.get()) != SQLITE_DONE) fail(connection);
}

void LogDatabase::run(const std::string& sql) {
    const Connection connection = open(file_);
    if (sqlite3_exec(connection.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) fail(connection);
}

std::int64_t LogDatabase::number(const std::string& sql) { return std::stoll(text(sql)); }

std::string LogDatabase::text(const std::string& sql) {
    const Connection connection = open(file_);
    const Statement query = prepared(connection, sql);
    if (sqlite3_step(query.get()) != SQLITE_ROW) fail(connection);
    return reinterpret_cast<const char*>(sqlite3_column_text(query.get(), 0));
}

std::string document_of(std::string_view column, std::string_view old_value, std::string_view new_value) {
    return std::string("<Cols><Col Name=\"")
        .append(column)
        .append("\"><OldValue>")
        .append(old_value)
        .append("</OldValue><NewValue>")
        .append(new_value)
        .append("</NewValue></Col></Cols>");
}

std::string line_of(std::int64_t id, std::string_view caption, std::string_view old_value,
                    std::string_view new_value) {
    return std::string("CHF;Schweizer Franken;01.01.2025;01.01.2026 ")
        .append(clock_time(id))
        .append(";Müller;")
        .append(caption)
        .append(";geändert;")
        .append(old_value)
        .append(";")
        .append(new_value)
        .append(";WS-01;Kurse;Standardbenutzer");
}

std::string file_head() {
    return "\xEF\xBB\xBF"
           "Von ISO Währungscode: CHF bis ISO Währungscode: USD;;;;;;;;;;;\r\n"
           "ISO Währungscode;Bezeichnung;Gültig ab;Datum der Änderung;Mitarbeiter;Feld der Änderung;Aktion;"
           "alter Wert;neuer Wert;Arbeitsstation;Applikation;Datenbankbenutzer\r\n";
}

void fill_with_story(LogDatabase& log) {
    log.put(1, document_of("dzKursEURGeld", "0,93", "0,94"));
    log.put(2, "<Cols><Col");
    log.put(3,
            "<Cols><Col Name=\"dzKursEURGeld\"><OldValue>1</OldValue><NewValue>2</NewValue></Col>"
            "<Col Name=\"dzOhne\"><OldValue>1</OldValue><NewValue>2</NewValue></Col>"
            "<Col Name=\"dzKursFremdGeld\"><OldValue>3</OldValue><NewValue>4</NewValue></Col></Cols>");
    log.put(4, document_of("dzKursFremdGeld", "5", "6"));
    log.run(
        "UPDATE tProtokoll SET dlSuchId1 = 11, dlSuchId2 = 2, dcUser = '_UNBEKANNT_' WHERE idProtokoll = 4;"
        "INSERT INTO tProtokollMemo VALUES (1, 1, 'a'), (2, 3, 'b'), (3, 3, 'c')");
}

void fill_with_long_story(LogDatabase& log) {
    fill_with_story(log);
    log.run(
        "WITH RECURSIVE n(i) AS (SELECT 5 UNION ALL SELECT i + 1 FROM n WHERE i < 1500)"
        "INSERT INTO tProtokoll SELECT i, dcTable, dcWorkstation, dcUser, "
        "datetime('2026-01-01', i || ' seconds'), dlEvent, dmData, dcSystemUser, dcApplication, "
        "dlPrimaryKey1, dlSuchId1, dlSuchId2, dlSuchId3, dlSuchId4 FROM n, tProtokoll"
        " WHERE idProtokoll = 1 + 2 * (i % 2)");
}

}  // namespace prot::faults
