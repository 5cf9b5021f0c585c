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
CREATE TABLE OFFENER_POSTEN (
    OP_ID INTEGER PRIMARY KEY, WJ_ID INTEGER, OP_SKNR INTEGER, OP_BELEG2 TEXT COLLATE NOCASE, OP_DATUM_BELEG DATETIME);
CREATE TABLE Person_v4 (Ps_Id INTEGER PRIMARY KEY, Ps_Nr INTEGER, Ps_KurzName TEXT COLLATE NOCASE);
CREATE TABLE Personalie (Pl_Id INTEGER PRIMARY KEY, Ps_Id INTEGER);
CREATE TABLE Mandant_Zeit (MaZt_Id INTEGER PRIMARY KEY, Pl_Id INTEGER, MaZt_Kanzlei INTEGER);
CREATE TABLE Akten (Akt_Id INTEGER PRIMARY KEY, Ps_Id INTEGER, Akt_Papierkorb INTEGER);
CREATE TABLE Zeitraum (Zt_Id INTEGER PRIMARY KEY, Zt_Von DATETIME, Zt_Bis DATETIME);
CREATE TABLE Person_Wirtschaftsjahr (
    WJ_Id INTEGER PRIMARY KEY, Ps_Id INTEGER, Zt_Id INTEGER, dlWJTyp INTEGER, WJ_Bezeichnung TEXT COLLATE NOCASE);

INSERT INTO tSysQuvoLogSections VALUES (6, 'tProtokoll'), (15, 'tProtokoll');
INSERT INTO tSysQuvoTables VALUES (1, 'TDEVISENKURS'), (2, 'OFFENER_POSTEN'), (3, 'Person_v4');
INSERT INTO tSysQuvoColumns VALUES
    (1, 'dzKursEURGeld', 'Kurs EUR (Geld)'),
    (1, 'dzKursFremdGeld', 'Kurs Fremdwährung; Geld'),
    (1, 'DDDATUMAEND', 'Änderungsdatum'),
    (1, 'dcLeer', ''),
    (1, 'dcNull', NULL),
    (2, 'OP_ID', 'Schlüssel'), (2, 'WJ_ID', 'Wirtschaftsjahr'), (2, 'BU_ID', 'Buchung'), (2, 'BUS_ID', 'Stapel'),
    (2, 'OP_DATUM', 'Änderungsdatum'), (2, 'OP_MITARBEITER', 'Geändert von'), (2, 'OP_AUSGLEICH_NR', 'Ausgleich'),
    (2, 'OP_ART', 'Art des Postens'), (2, 'OP_SPERR_KZ', 'Mahnsperre'), (2, 'OP_TEXT', 'Text; Buchung'),
    (2, 'OP_BETRAG', 'Betrag'), (2, 'OP_DATUM_BELEG', 'Belegdatum'), (2, 'OP_LEER', ''), (2, 'OP_NULL', NULL),
    (3, 'Ps_KurzName', 'Kurzname');
INSERT INTO tDevisenWaehr VALUES (1, 'CHF', 'Schweizer Franken'), (2, 'USD', 'US-"Dollar"'), (3, 'XXX', NULL);
INSERT INTO TDEVISENKURS (idDevisenKurs, flDevisenWaehr, ddGueltigAb) VALUES
    (10, 1, '2025-01-01 00:00:00'), (11, 2, '2025-02-01 08:30:00'), (12, 3, NULL);
INSERT INTO Person_v4 VALUES (71, 123, 'Bäckerei; Öz'), (72, 7, 'Zöllner'), (73, 7, 'Büro Süd'), (74, 901, 'Neu');
INSERT INTO Personalie VALUES (81, 71), (82, 72), (83, 73), (84, 74);
INSERT INTO Mandant_Zeit VALUES (1, 81, 0), (2, 82, 0), (3, 83, -1), (4, 84, 0), (5, 81, 0);
INSERT INTO Akten VALUES (91, 71, 0), (92, 72, 0), (93, 73, 0), (94, 74, 0);
INSERT INTO Zeitraum VALUES
    (1, '2024-01-01 00:00:00', '2024-12-31 00:00:00'), (2, '2025-01-01 00:00:00', '2025-12-31 00:00:00'),
    (3, '2026-01-01 00:00:00', '2026-12-31 00:00:00');
INSERT INTO Person_Wirtschaftsjahr VALUES
    (41, 71, 1, 1, NULL), (42, 71, 2, 1, NULL), (43, 71, 3, 2, 'Neubau'), (44, 71, 3, 2, NULL), (45, 71, 2, 4, NULL),
    (46, 72, 1, 1, NULL), (47, 73, 2, 1, NULL), (48, 73, 3, 2, '');
INSERT INTO OFFENER_POSTEN VALUES
    (20, 41, 10000, 'RE-1', '2024-03-01 00:00:00'), (21, 42, 10001, 'RE-"2"', '2025-03-01 08:30:00'),
    (22, 46, 10000, NULL, NULL), (23, 47, 70001, 'ZE;3', '2025-04-01 00:00:00'), (24, 42, 10002, '', '2025-05-01 00:00:00');
