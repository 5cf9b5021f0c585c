-- The tables and a few master records on which the cases with an input.sql stand.
CREATE TABLE tSysQuvoLogSections (IDSysQuvoLogSections INTEGER PRIMARY KEY, dcLogTable TEXT COLLATE NOCASE);
CREATE TABLE tProtokoll (
    idProtokoll INTEGER PRIMARY KEY, dcTable TEXT COLLATE NOCASE, dcWorkstation TEXT COLLATE NOCASE,
    dcUser TEXT COLLATE NOCASE, ddDatum DATETIME, dlEvent INTEGER, dmData TEXT COLLATE NOCASE,
    dcSystemUser TEXT COLLATE NOCASE, dcApplication TEXT COLLATE NOCASE,
    dlPrimaryKey1 INTEGER, dlPrimaryKey2 INTEGER,
    dlSuchId1 INTEGER, dlSuchId2 INTEGER, dlSuchId3 INTEGER, dlSuchId4 INTEGER,
    flSuchId1 INTEGER, flSuchId2 INTEGER, flSuchId3 INTEGER);
CREATE TABLE tProtokollMemo (idProtokollMemo INTEGER PRIMARY KEY, flProtokoll INTEGER, dmData TEXT COLLATE NOCASE);
CREATE TABLE tSysQuvoTables (IDSysQuvoTables INTEGER PRIMARY KEY, dcTableName TEXT COLLATE NOCASE);
CREATE TABLE tSysQuvoColumns (flTable INTEGER, dcColumnName TEXT COLLATE NOCASE, dmDescription TEXT COLLATE NOCASE);
CREATE TABLE tDevisenWaehr (
    idDevisenWaehr INTEGER PRIMARY KEY, dcISOKennz TEXT COLLATE NOCASE, dcBezeichnung TEXT COLLATE NOCASE);
CREATE TABLE TDEVISENKURS (
    idDevisenKurs INTEGER PRIMARY KEY, flDevisenWaehr INTEGER, ddGueltigAb DATETIME, dzKursEURGeld REAL,
    dzKursFremdGeld REAL, dzKursEURBrief REAL, dzKursFremdBrief REAL, ddDatumAend DATETIME, flMitarbeiter INTEGER);

INSERT INTO tSysQuvoLogSections VALUES (15, 'tProtokoll');
INSERT INTO tSysQuvoTables VALUES (1, 'TDEVISENKURS');
INSERT INTO tSysQuvoColumns VALUES
    (1, 'dzKursEURGeld', 'Kurs EUR (Geld)'),
    (1, 'dzKursFremdGeld', 'Kurs Fremdwährung; Geld'),
    (1, 'DDDATUMAEND', 'Änderungsdatum'),
    (1, 'dcLeer', ''),
    (1, 'dcNull', NULL);
INSERT INTO tDevisenWaehr VALUES (1, 'CHF', 'Schweizer Franken'), (2, 'USD', 'US-"Dollar"'), (3, 'XXX', NULL);
INSERT INTO TDEVISENKURS (idDevisenKurs, flDevisenWaehr, ddGueltigAb) VALUES
    (10, 1, '2025-01-01 00:00:00'), (11, 2, '2025-02-01 08:30:00'), (12, 3, NULL);
