#include "apps/protcsv/sample/sample_tables.h"

namespace prot::sample {
namespace {

constexpr const char* log_tables = R"(
CREATE TABLE tSysQuvoLogSections (
    IDSysQuvoLogSections INTEGER PRIMARY KEY,
    dcLogTable TEXT COLLATE NOCASE
);
CREATE TABLE tProtokoll (
    idProtokoll INTEGER PRIMARY KEY AUTOINCREMENT,
    dcTable TEXT COLLATE NOCASE,
    dcWorkstation TEXT COLLATE NOCASE,
    dcUser TEXT COLLATE NOCASE,
    ddDatum DATETIME,
    dlEvent INTEGER,
    dmData TEXT COLLATE NOCASE,
    dcSystemUser TEXT COLLATE NOCASE,
    dcApplication TEXT COLLATE NOCASE,
    dlPrimaryKey1 INTEGER,
    dlPrimaryKey2 INTEGER,
    dlSuchId1 INTEGER,
    dlSuchId2 INTEGER,
    dlSuchId3 INTEGER,
    dlSuchId4 INTEGER,
    flSuchId1 INTEGER,
    flSuchId2 INTEGER,
    flSuchId3 INTEGER
);
CREATE TABLE tProtokollMemo (
    idProtokollMemo INTEGER PRIMARY KEY AUTOINCREMENT,
    flProtokoll INTEGER,
    dmData TEXT COLLATE NOCASE
);
CREATE TABLE tSysQuvoTables (
    IDSysQuvoTables INTEGER PRIMARY KEY,
    dcTableName TEXT COLLATE NOCASE
);
CREATE TABLE tSysQuvoColumns (
    IDSysQuvoColumns INTEGER PRIMARY KEY,
    flTable INTEGER,
    dcColumnName TEXT COLLATE NOCASE,
    dmDescription TEXT COLLATE NOCASE
);
)";

constexpr const char* log_indexes = R"(
CREATE INDEX iProtokollSuchId1 ON tProtokoll (dcTable, dlSuchId1, ddDatum);
CREATE INDEX iProtokollSuchId2 ON tProtokoll (dcTable, dlSuchId2, ddDatum);
CREATE INDEX iProtokollPrimaryKey1 ON tProtokoll (dcTable, dlPrimaryKey1, ddDatum);
CREATE INDEX iProtokollDatum ON tProtokoll (ddDatum);
CREATE INDEX iProtokollMemoProtokoll ON tProtokollMemo (flProtokoll);
CREATE UNIQUE INDEX iSysQuvoTablesName ON tSysQuvoTables (dcTableName);
CREATE UNIQUE INDEX iSysQuvoColumnsName ON tSysQuvoColumns (flTable, dcColumnName);
ANALYZE;
)";

// Open items, suppliers, customers, report frameworks and exchange rates, among sections that have no export.
constexpr int log_sections[] = {1, 2, 3, 6, 7, 8, 9, 10, 12, 15, 18};

}  // namespace

void create_log_tables(SqliteFile& file) {
    file.execute(log_tables);
    SqliteInsert insert(file,
                        "INSERT INTO tSysQuvoLogSections (IDSysQuvoLogSections, dcLogTable) VALUES (?, ?)");
    for (const int section : log_sections) insert.row(section, std::string_view("tProtokoll"));
}

void write_captions(SqliteFile& file, std::span<const Caption> captions) {
    SqliteInsert insert_table(file,
                              "INSERT INTO tSysQuvoTables (dcTableName) SELECT ?1"
                              " WHERE NOT EXISTS (SELECT * FROM tSysQuvoTables WHERE dcTableName = ?1)");
    SqliteInsert insert_column(file,
                               "INSERT INTO tSysQuvoColumns (flTable, dcColumnName, dmDescription)"
                               " SELECT IDSysQuvoTables, ?2, ?3 FROM tSysQuvoTables WHERE dcTableName = ?1"
                               " AND NOT EXISTS (SELECT * FROM tSysQuvoColumns"
                               " WHERE flTable = IDSysQuvoTables AND dcColumnName = ?2)");
    for (const Caption& caption : captions) {
        insert_table.row(caption.table);
        insert_column.row(caption.table, caption.column, caption.text);
    }
}

void create_log_indexes(SqliteFile& file) { file.execute(log_indexes); }

}  // namespace prot::sample
