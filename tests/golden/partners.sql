-- Customers and suppliers of client 123 (person 71), client 7 (72) and office 7 (73) with all that belongs to them, some of
-- it deleted since. Keys of different kinds lie apart, but where two rules mix them up, deliberately: see the rows of log.
ALTER TABLE Personalie ADD COLUMN Pl_Bezeichnung TEXT COLLATE NOCASE;
CREATE TABLE KUNDEN_V4 (
    KUN_ID INTEGER PRIMARY KEY, KUN_NR INTEGER, Ps_Id_Kunde INTEGER, Ps_Id_Mandant INTEGER, KLKD_ID INTEGER,
    MB_ID INTEGER, MTH_ID INTEGER);
CREATE TABLE LIEFERANTEN_V4 (
    LIEF_ID INTEGER PRIMARY KEY, LIEF_NR INTEGER, Ps_Id_Lieferant INTEGER, Ps_Id_Mandant INTEGER, KLKD_ID INTEGER,
    MB_ID INTEGER, MTH_ID INTEGER);
CREATE TABLE ADRESSE (ADR_ID INTEGER PRIMARY KEY, ADR_ORT TEXT COLLATE NOCASE);
CREATE TABLE PERSON_ADRESSE (ADR_ID INTEGER, PS_ID INTEGER, ADR_TYP INTEGER);
CREATE TABLE BANKKONTO (BK_ID INTEGER PRIMARY KEY, BA_ID INTEGER, BK_IBAN TEXT COLLATE NOCASE);
CREATE TABLE PERSON_BANKKONTO (BK_ID INTEGER, PS_ID INTEGER);
CREATE TABLE STM_BKTOZUSATZ (BKZ_Id INTEGER PRIMARY KEY, BKZ_Bk_Id INTEGER);
CREATE TABLE TKULIEFKOND (IDKLK INTEGER PRIMARY KEY, dcBezeichnung TEXT COLLATE NOCASE);
CREATE TABLE TKUNDVWZ (FLKD INTEGER, FLVWZ INTEGER);
CREATE TABLE TLIEFVWZ (FLLI INTEGER, FLVWZ INTEGER);
CREATE TABLE TVERWENDZWECK (IDVWZ INTEGER PRIMARY KEY, dcBezeichnung TEXT COLLATE NOCASE);
CREATE TABLE TTEXTHAUPTGRUPPE (IDTH INTEGER PRIMARY KEY, dcBezeichnung TEXT COLLATE NOCASE);
CREATE TABLE MAHNBEDINGUNGEN_V4 (MB_ID INTEGER PRIMARY KEY, Mb_Bezeichnung TEXT COLLATE NOCASE);
CREATE TABLE TBANK (idBank INTEGER PRIMARY KEY, dcBLZ TEXT COLLATE NOCASE, dcBezeichnung TEXT COLLATE NOCASE);

INSERT INTO tSysQuvoLogSections VALUES (8, 'tProtokoll'), (9, 'tProtokoll');
INSERT INTO Person_v4 VALUES
    (501, 10000, 'Becker'), (502, 10001, 'Dörfler'), (503, 10002, 'Eckert'), (504, 10000, 'Fuchs'), (505, 10000, 'Göbel'),
    (507, 70000, 'Voß'), (508, 70001, 'Wolf'), (509, 70000, 'Zorn');
INSERT INTO Personalie VALUES
    (601, 501, 'Becker GmbH'), (602, 502, 'Dörfler; "Wein"'), (603, 503, 'Eckert KG'), (604, 504, 'Fuchs'),
    (605, 505, 'Göbel'), (607, 507, 'Holzhandel Voß'), (608, 508, 'Wolf Logistik'), (609, 509, 'Zorn');
INSERT INTO KUNDEN_V4 VALUES
    (301, 10000, 501, 71, 21, 41, 51), (302, 10001, 502, 71, 22, 41, 0), (303, 10002, 503, 71, 24, 41, 51),
    (304, 10000, 504, 72, 21, 41, 51), (305, 10000, 505, 73, 22, 41, 51);
INSERT INTO LIEFERANTEN_V4 VALUES
    (401, 70000, 507, 71, 21, 0, 51), (402, 70001, 508, 71, 23, 0, 51), (403, 70000, 509, 72, 23, 0, 51);
INSERT INTO ADRESSE VALUES (701, 'Köln'), (702, 'Bonn'), (703, 'Ulm');
INSERT INTO PERSON_ADRESSE VALUES (701, 501, 1), (703, 507, 1);
INSERT INTO BANKKONTO VALUES (801, 11, 'DE01'), (802, 11, 'DE02'), (803, 12, 'DE03');
INSERT INTO PERSON_BANKKONTO VALUES (801, 501), (803, 507);
INSERT INTO STM_BKTOZUSATZ VALUES (901, 801), (903, 803);
INSERT INTO TKULIEFKOND VALUES (21, '14 Tage 2 %'), (22, 'sofort'), (23, '30 Tage'), (24, '60 Tage');
INSERT INTO TVERWENDZWECK VALUES (31, 'Miete'), (32, 'Warenlieferung');
INSERT INTO TKUNDVWZ VALUES (301, 31), (304, 31);
INSERT INTO TLIEFVWZ VALUES (401, 32);
INSERT INTO TTEXTHAUPTGRUPPE VALUES (51, 'Standardtexte');
INSERT INTO MAHNBEDINGUNGEN_V4 VALUES (41, 'Mahnung neu');
INSERT INTO TBANK VALUES (11, '37050198', 'Sparkasse'), (12, NULL, 'Hausbank');
INSERT INTO tSysQuvoTables VALUES
    (11, 'KUNDEN_V4'), (12, 'LIEFERANTEN_V4'), (13, 'PERSONALIE'), (14, 'ADRESSE'), (15, 'PERSON_ADRESSE'), (16, 'BANKKONTO'), (17, 'PERSON_BANKKONTO'), (18, 'STM_BKTOZUSATZ'), (19, 'TKULIEFKOND');
INSERT INTO tSysQuvoColumns VALUES
    (3, 'PS_NR', 'Person PS_NR'), (3, 'PS_USTIDFK', 'Person PS_USTIDFK'), (3, 'PS_ZUHAENDEN', 'Person PS_ZUHAENDEN'),
    (11, 'KUN_ID', 'Feld KUN_ID'), (11, 'KUN_NR', 'Feld KUN_NR'), (11, 'Ps_Id_Kunde', 'Feld Ps_Id_Kunde'),
    (11, 'PS_ID_MANDANT', 'Feld PS_ID_MANDANT'), (11, 'KLKD_ID', 'Feld KLKD_ID'), (11, 'MB_ID', 'Feld MB_ID'),
    (11, 'MTH_ID', 'Feld MTH_ID'), (11, 'PS_ID_SAMMEL_KUNDE', 'Feld PS_ID_SAMMEL_KUNDE'),
    (11, 'KUN_RABATT', 'Feld KUN_RABATT'), (11, 'KUN_DATUM', 'Feld KUN_DATUM'),
    (11, 'KUN_MITARBEITER', 'Feld KUN_MITARBEITER'), (11, 'KUN_MEMO', 'Feld KUN_MEMO'), (12, 'LIEF_ID', 'Feld LIEF_ID'),
    (12, 'LIEF_NR', 'Feld LIEF_NR'), (12, 'Ps_Id_Lieferant', 'Feld Ps_Id_Lieferant'),
    (12, 'PS_ID_MANDANT', 'Feld PS_ID_MANDANT'), (12, 'KLKD_ID', 'Feld KLKD_ID'), (12, 'MB_ID', 'Feld MB_ID'),
    (12, 'PS_ID_SAMMEL_LIEF', 'Feld PS_ID_SAMMEL_LIEF'), (12, 'LIEF_DATUM', 'Feld LIEF_DATUM'),
    (12, 'LIEF_MITARBEITER', 'Feld LIEF_MITARBEITER'), (12, 'LIEF_MEMO', 'Feld LIEF_MEMO'), (13, 'PL_ID', 'Feld PL_ID'),
    (13, 'Pl_Bezeichnung', 'Feld Pl_Bezeichnung'), (14, 'ADR_ID', 'Feld ADR_ID'), (14, 'LA_ID', 'Feld LA_ID'),
    (14, 'ADR_ORT', 'Feld ADR_ORT'), (15, 'ADR_ID', 'Feld ADR_ID'), (15, 'PS_ID', 'Feld PS_ID'),
    (15, 'ADR_TYP', 'Feld ADR_TYP'), (16, 'BK_ID', 'Feld BK_ID'), (16, 'BA_ID', 'Feld BA_ID'),
    (16, 'BK_IBAN', 'Feld BK_IBAN'), (17, 'BK_ID', 'Feld BK_ID'), (17, 'PS_ID', 'Feld PS_ID'),
    (18, 'BKZ_ID', 'Feld BKZ_ID'), (18, 'BKZ_VERMERK', 'Feld BKZ_VERMERK'), (19, 'DITYP', 'Feld DITYP'),
    (19, 'DISKONTOTAGE2', 'Feld DISKONTOTAGE2');

INSERT INTO tProtokoll (idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser,
                        dcApplication, dlPrimaryKey1, dlPrimaryKey2, dlSuchId1, dlSuchId2, dlSuchId3, dlSuchId4) VALUES
-- Customer 301: created, with every kind of field. Memo, keys, and who touched it have no line.
(1, 'KUNDEN_V4', 'WS-01', 'Müller', '2025-01-01 08:00:00', 0,
 '<Cols><Col Name="KUN_ID"><OldValue></OldValue><NewValue>301</NewValue></Col><Col Name="KUN_NR"><OldValue></OldValue><NewValue>10000</NewValue></Col><Col Name="Ps_Id_Kunde"><OldValue></OldValue><NewValue>501</NewValue></Col><Col Name="PS_ID_MANDANT"><OldValue></OldValue><NewValue>71</NewValue></Col><Col Name="KLKD_ID"><OldValue></OldValue><NewValue>21</NewValue></Col><Col Name="MB_ID"><OldValue></OldValue><NewValue>41</NewValue></Col><Col Name="MTH_ID"><OldValue></OldValue><NewValue>0</NewValue></Col><Col Name="PS_ID_SAMMEL_KUNDE"><OldValue></OldValue><NewValue>502</NewValue></Col><Col Name="KUN_RABATT"><OldValue></OldValue><NewValue>2,5</NewValue></Col><Col Name="KUN_DATUM"><OldValue></OldValue><NewValue>01.01.2025</NewValue></Col><Col Name="KUN_MITARBEITER"><OldValue></OldValue><NewValue>3</NewValue></Col><Col Name="KUN_MEMO"><OldValue></OldValue><NewValue>_MEMO_</NewValue></Col><Col Name="KUN_FREMD"><OldValue></OldValue><NewValue>x</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 301, NULL, 501, 71, NULL, 10000),
-- Ids become the names of that day: the terms of payment and the dunning conditions were renamed later. 0, NULL, words
-- and numbers beyond 32 bits.
(2, 'KUNDEN_V4', 'WS-01', 'Müller', '2025-02-01 08:00:00', 1,
 '<Cols><Col Name="KLKD_ID"><OldValue>21</OldValue><NewValue>22</NewValue></Col><Col Name="MB_ID"><OldValue>41</OldValue><NewValue>NULL</NewValue></Col><Col Name="MTH_ID"><OldValue>51</OldValue><NewValue>0</NewValue></Col><Col Name="MTH_ID"><OldValue>abc</OldValue><NewValue>99999999999</NewValue></Col><Col Name="PS_ID_SAMMEL_KUNDE"><OldValue>502</OldValue><NewValue>0</NewValue></Col><Col Name="ps_id_sammel_kunde"><OldValue>999</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 301, NULL, 501, 71, NULL, 10000),
-- Renamed before, and once more after.
(3, 'KUNDEN_V4', 'WS-01', 'Müller', '2025-06-01 08:00:00', 1,
 '<Cols><Col Name="KLKD_ID"><OldValue>22</OldValue><NewValue>21</NewValue></Col><Col Name="MB_ID"><OldValue>NULL</OldValue><NewValue>41</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 301, NULL, 501, 71, NULL, 10000),
-- Without a moment: the customer is known, values stay as logged, an empty one reads "leer".
(4, 'KUNDEN_V4', 'WS-01', 'Müller', NULL, 1,
 '<Cols><Col Name="KLKD_ID"><OldValue>21</OldValue><NewValue>22</NewValue></Col><Col Name="MB_ID"><OldValue></OldValue><NewValue>0</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 301, NULL, 501, 71, NULL, 10000),
-- A document that is missing, empty, broken; one whose fields all have no line.
(5, 'KUNDEN_V4', 'WS-01', 'Müller', '2025-02-02 08:00:00', 1,
 NULL,
 'sa', 'Stammdaten', 301, NULL, 501, 71, NULL, 10000),
(6, 'KUNDEN_V4', 'WS-01', 'Müller', '2025-02-02 08:00:01', 1,
 '',
 'sa', 'Stammdaten', 301, NULL, 501, 71, NULL, 10000),
(7, 'KUNDEN_V4', 'WS-01', 'Müller', '2025-02-02 08:00:02', 1,
 '<Cols><Col Name="KUN_NR">',
 'sa', 'Stammdaten', 301, NULL, 501, 71, NULL, 10000),
(8, 'KUNDEN_V4', 'WS-01', 'Müller', '2025-02-02 08:00:03', 1,
 '<Cols><Col Name="KUN_MEMO"><OldValue>_MEMO_</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 301, NULL, 501, 71, NULL, 10000),
-- Nobody was logged in.
(9, 'KUNDEN_V4', 'WS-01', '_UNBEKANNT_Import', '2025-02-03 08:00:00', 1,
 '<Cols><Col Name="KUN_RABATT"><OldValue></OldValue><NewValue>"3"; netto</NewValue></Col></Cols>',
 'bank_abruf', 'Stammdaten', 302, NULL, 502, 71, NULL, 10001),
-- Another number, another client, an office: not selected by default.
(10, 'KUNDEN_V4', 'WS-01', 'Müller', '2025-02-04 08:00:00', 1,
 '<Cols><Col Name="KUN_RABATT"><OldValue>1</OldValue><NewValue>2</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 303, NULL, 503, 71, NULL, 10002),
(11, 'KUNDEN_V4', 'WS-01', 'Müller', '2025-02-04 08:00:01', 1,
 '<Cols><Col Name="KUN_RABATT"><OldValue>1</OldValue><NewValue>2</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 304, NULL, 504, 72, NULL, 10000),
(12, 'KUNDEN_V4', 'WS-01', 'Müller', '2025-02-04 08:00:02', 1,
 '<Cols><Col Name="KUN_RABATT"><OldValue>1</OldValue><NewValue>2</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 305, NULL, 505, 73, NULL, 10000),
-- The person of customer 301: three fields have a line.
(13, 'PERSON_V4', 'WS-01', 'Müller', '2025-03-01 08:00:00', 1,
 '<Cols><Col Name="PS_NR"><OldValue>1</OldValue><NewValue>2</NewValue></Col><Col Name="Ps_KurzName"><OldValue>Beck</OldValue><NewValue>Becker</NewValue></Col><Col Name="PS_USTIDFK"><OldValue></OldValue><NewValue>DE811</NewValue></Col><Col Name="PS_ZUHAENDEN"><OldValue>NULL</OldValue><NewValue>Frau Öz</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 501, NULL, NULL, NULL, NULL, NULL),
(14, 'PERSON_V4', 'WS-01', 'Müller', '2025-03-01 08:00:01', 1,
 '<Cols><Col Name="Ps_KurzName"><OldValue>Eck</OldValue><NewValue>Eckert</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 503, NULL, NULL, NULL, NULL, NULL),
-- Renamed: the file has the name of today, as the record lives.
(15, 'PERSONALIE', 'WS-01', 'Müller', '2025-03-02 08:00:00', 1,
 '<Cols><Col Name="PL_ID"><OldValue>601</OldValue><NewValue>601</NewValue></Col><Col Name="Pl_Bezeichnung"><OldValue>Becker &amp; Sohn</OldValue><NewValue>Becker GmbH</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 601, NULL, 501, NULL, NULL, NULL),
-- An address that lives, one whose link is deleted, one that is deleted with its link.
(16, 'ADRESSE', 'WS-01', 'Müller', '2025-03-03 08:00:00', 1,
 '<Cols><Col Name="ADR_ID"><OldValue>701</OldValue><NewValue>701</NewValue></Col><Col Name="LA_ID"><OldValue>1</OldValue><NewValue>2</NewValue></Col><Col Name="ADR_ORT"><OldValue>Köln</OldValue><NewValue>Köln; Deutz</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 701, NULL, NULL, NULL, NULL, NULL),
(17, 'ADRESSE', 'WS-01', 'Müller', '2025-03-03 08:00:01', 1,
 '<Cols><Col Name="ADR_ORT"><OldValue>Bonn</OldValue><NewValue>Bonn 2</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 702, NULL, NULL, NULL, NULL, NULL),
(18, 'ADRESSE', 'WS-01', 'Müller', '2025-03-03 08:00:02', 2,
 '<Cols><Col Name="ADR_ORT"><OldValue>Aachen</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 704, NULL, NULL, NULL, NULL, NULL),
-- The links themselves; of the deleted ones the key of the address is read as that of a person, too, so that the link
-- of person 702 is exported.
(19, 'PERSON_ADRESSE', 'WS-01', 'Müller', '2025-03-04 08:00:00', 0,
 '<Cols><Col Name="ADR_ID"><OldValue></OldValue><NewValue>701</NewValue></Col><Col Name="PS_ID"><OldValue></OldValue><NewValue>501</NewValue></Col><Col Name="ADR_TYP"><OldValue></OldValue><NewValue>1</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 701, 501, NULL, NULL, NULL, NULL),
(20, 'PERSON_ADRESSE', 'WS-01', 'Müller', '2025-03-04 08:00:01', 2,
 '<Cols><Col Name="ADR_TYP"><OldValue>2</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 702, 501, NULL, NULL, NULL, NULL),
(21, 'PERSON_ADRESSE', 'WS-01', 'Müller', '2025-03-04 08:00:02', 2,
 '<Cols><Col Name="ADR_TYP"><OldValue>3</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 704, 501, NULL, NULL, NULL, NULL),
(22, 'PERSON_ADRESSE', 'WS-01', 'Müller', '2025-03-04 08:00:03', 1,
 '<Cols><Col Name="ADR_TYP"><OldValue>4</OldValue><NewValue>5</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 705, 702, NULL, NULL, NULL, NULL),
-- Bank accounts likewise. A bank with and without a code, one that is gone, none.
(23, 'BANKKONTO', 'WS-01', 'Müller', '2025-03-05 08:00:00', 1,
 '<Cols><Col Name="BK_ID"><OldValue>801</OldValue><NewValue>801</NewValue></Col><Col Name="BA_ID"><OldValue>11</OldValue><NewValue>12</NewValue></Col><Col Name="BK_IBAN"><OldValue>DE00</OldValue><NewValue>DE01</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 801, NULL, NULL, NULL, NULL, NULL),
(24, 'BANKKONTO', 'WS-01', 'Müller', '2025-03-05 08:00:01', 1,
 '<Cols><Col Name="BA_ID"><OldValue>13</OldValue><NewValue>0</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 802, NULL, NULL, NULL, NULL, NULL),
(25, 'BANKKONTO', 'WS-01', 'Müller', '2025-03-05 08:00:02', 2,
 '<Cols><Col Name="BA_ID"><OldValue>99</OldValue><NewValue></NewValue></Col><Col Name="BK_IBAN"><OldValue>DE04</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 804, NULL, NULL, NULL, NULL, NULL),
-- Links of accounts have no line, but tell whose a deleted account was.
(26, 'PERSON_BANKKONTO', 'WS-01', 'Müller', '2025-03-06 08:00:00', 0,
 '<Cols><Col Name="BK_ID"><OldValue></OldValue><NewValue>801</NewValue></Col><Col Name="PS_ID"><OldValue></OldValue><NewValue>501</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 801, 501, NULL, NULL, NULL, NULL),
(27, 'PERSON_BANKKONTO', 'WS-01', 'Müller', '2025-03-06 08:00:01', 2,
 '<Cols><Col Name="BK_ID"><OldValue>802</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 802, 501, NULL, NULL, NULL, NULL),
(28, 'PERSON_BANKKONTO', 'WS-01', 'Müller', '2025-03-06 08:00:02', 2,
 '<Cols><Col Name="BK_ID"><OldValue>804</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 804, 501, NULL, NULL, NULL, NULL),
-- Extras of an account, one of them deleted: the log does not tell whose. Those of a deleted link are not selected.
(29, 'STM_BKTOZUSATZ', 'WS-01', 'Müller', '2025-03-07 08:00:00', 1,
 '<Cols><Col Name="BKZ_VERMERK"><OldValue>a</OldValue><NewValue>b</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 901, NULL, 801, NULL, NULL, NULL),
(30, 'STM_BKTOZUSATZ', 'WS-01', 'Müller', '2025-03-07 08:00:01', 2,
 '<Cols><Col Name="BKZ_VERMERK"><OldValue>c</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 902, NULL, 801, NULL, NULL, NULL),
(31, 'STM_BKTOZUSATZ', 'WS-01', 'Müller', '2025-03-07 08:00:02', 1,
 '<Cols><Col Name="BKZ_VERMERK"><OldValue>d</OldValue><NewValue>e</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 904, NULL, 802, NULL, NULL, NULL),
-- Terms of payment 21 are used by customers and suppliers: created, renamed, changed. Their type and second days have no
-- line; their creation finds no earlier name.
(32, 'TKULIEFKOND', 'WS-01', 'Müller', '2024-12-01 08:00:00', 0,
 '<Cols><Col Name="dcBezeichnung"><OldValue></OldValue><NewValue>14 Tage</NewValue></Col><Col Name="DITYP"><OldValue></OldValue><NewValue>1</NewValue></Col><Col Name="DITAGEZAHLUNGSZIEL"><OldValue></OldValue><NewValue>14</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 21, NULL, NULL, NULL, NULL, NULL),
(33, 'TKULIEFKOND', 'WS-01', 'Müller', '2025-04-01 08:00:00', 1,
 '<Cols><Col Name="dcBezeichnung"><OldValue>14 Tage</OldValue><NewValue>14 Tage 2 %</NewValue></Col><Col Name="DISKONTOSATZ1"><OldValue></OldValue><NewValue>2</NewValue></Col><Col Name="DISKONTOTAGE1"><OldValue></OldValue><NewValue>14</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 21, NULL, NULL, NULL, NULL, NULL),
(34, 'TKULIEFKOND', 'WS-01', 'Müller', '2025-04-02 08:00:00', 1,
 '<Cols><Col Name="DISKONTOSATZ2"><OldValue>1</OldValue><NewValue>NULL</NewValue></Col><Col Name="DISKONTOTAGE2"><OldValue>7</OldValue><NewValue>8</NewValue></Col><Col Name="DITAGEZAHLUNGSZIEL"><OldValue>14</OldValue><NewValue>30</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 21, NULL, NULL, NULL, NULL, NULL),
-- Of another customer.
(35, 'TKULIEFKOND', 'WS-01', 'Müller', '2025-04-03 08:00:00', 1,
 '<Cols><Col Name="DISKONTOSATZ1"><OldValue>1</OldValue><NewValue>2</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 24, NULL, NULL, NULL, NULL, NULL),
-- Purposes: a link that lives; a deleted one, of a customer who has none left; and, by its second key read as a customer,
-- one of customer 33, whom nobody knows.
(36, 'TKUNDVWZ', 'WS-01', 'Müller', '2025-05-01 08:00:00', 0,
 '<Cols><Col Name="FLKD"><OldValue></OldValue><NewValue>301</NewValue></Col><Col Name="FLVWZ"><OldValue></OldValue><NewValue>31</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 301, 31, 501, NULL, NULL, NULL),
(37, 'TKUNDVWZ', 'WS-01', 'Müller', '2025-05-01 08:00:01', 2,
 '<Cols><Col Name="FLVWZ"><OldValue>33</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 302, 33, 502, NULL, NULL, NULL),
(38, 'TKUNDVWZ', 'WS-01', 'Müller', '2025-05-01 08:00:02', 0,
 '<Cols><Col Name="FLVWZ"><OldValue></OldValue><NewValue>0</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 33, 31, NULL, NULL, NULL, NULL),
-- Renamed later than some changes that refer to them.
(39, 'MAHNBEDINGUNGEN_V4', 'WS-01', 'Müller', '2025-04-15 08:00:00', 1,
 '<Cols><Col Name="Mb_Bezeichnung"><OldValue>Mahnung alt</OldValue><NewValue>Mahnung neu</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 41, NULL, NULL, NULL, NULL, NULL),
-- Gone, and known by their deletion.
(40, 'TVERWENDZWECK', 'WS-01', 'Müller', '2025-05-20 08:00:00', 2,
 '<Cols><Col Name="dcBezeichnung"><OldValue>Spende</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 33, NULL, NULL, NULL, NULL, NULL),
(41, 'TBANK', 'WS-01', 'Müller', '2025-01-15 08:00:00', 2,
 '<Cols><Col Name="dcBLZ"><OldValue>10010010</OldValue><NewValue></NewValue></Col><Col Name="dcBezeichnung"><OldValue>Postbank</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 13, NULL, NULL, NULL, NULL, NULL),
-- Customer 306 is deleted with everything, all in one second but for the name, which went two seconds before.
(42, 'KUNDEN_V4', 'WS-01', 'Müller', '2025-07-01 08:00:00', 0,
 '<Cols><Col Name="KUN_NR"><OldValue></OldValue><NewValue>10001</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 306, NULL, 506, 71, NULL, 10001),
(43, 'PERSONALIE', 'WS-01', 'Müller', '2025-07-01 08:00:00', 0,
 '<Cols><Col Name="Pl_Bezeichnung"><OldValue></OldValue><NewValue>Hübner</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 606, NULL, 506, NULL, NULL, NULL),
(44, 'PERSON_V4', 'WS-01', 'Müller', '2025-07-02 08:00:00', 1,
 '<Cols><Col Name="PS_ZUHAENDEN"><OldValue></OldValue><NewValue>Herr Hübner</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 506, NULL, NULL, NULL, NULL, NULL),
(45, 'PERSONALIE', 'WS-01', 'Müller', '2025-08-01 08:00:00', 1,
 '<Cols><Col Name="Pl_Bezeichnung"><OldValue>Hübner</OldValue><NewValue>Hübner e. K.</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 606, NULL, 506, NULL, NULL, NULL),
(46, 'PERSON_ADRESSE', 'WS-01', 'Müller', '2025-09-01 08:00:02', 2,
 '<Cols><Col Name="ADR_TYP"><OldValue>1</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 706, 506, NULL, NULL, NULL, NULL),
(47, 'ADRESSE', 'WS-01', 'Müller', '2025-09-01 08:00:02', 2,
 '<Cols><Col Name="ADR_ORT"><OldValue>Trier</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 706, NULL, NULL, NULL, NULL, NULL),
(48, 'PERSONALIE', 'WS-01', 'Müller', '2025-09-01 08:00:00', 2,
 '<Cols><Col Name="Pl_Bezeichnung"><OldValue>Hübner e. K.</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 606, NULL, 506, NULL, NULL, NULL),
(49, 'PERSON_V4', 'WS-01', 'Müller', '2025-09-01 08:00:02', 2,
 '<Cols><Col Name="Ps_KurzName"><OldValue>Hübner</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 506, NULL, NULL, NULL, NULL, NULL),
(50, 'KUNDEN_V4', 'WS-01', 'Müller', '2025-09-01 08:00:02', 2,
 '<Cols><Col Name="KUN_NR"><OldValue>10001</OldValue><NewValue></NewValue></Col><Col Name="KLKD_ID"><OldValue>22</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 306, NULL, 506, 71, NULL, 10001),
-- Customer 307 had no personal data; 308 was created and deleted within a second, its name empty at that moment.
(51, 'KUNDEN_V4', 'WS-01', 'Müller', '2025-09-03 08:00:00', 2,
 '<Cols><Col Name="KUN_NR"><OldValue>10000</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 307, NULL, 511, 71, NULL, 10000),
(52, 'KUNDEN_V4', 'WS-01', 'Müller', '2025-09-04 08:00:03', 0,
 '<Cols><Col Name="KUN_NR"><OldValue></OldValue><NewValue>10001</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 308, NULL, 512, 71, NULL, 10001),
(53, 'PERSONALIE', 'WS-01', 'Müller', '2025-09-04 08:00:00', 1,
 '<Cols><Col Name="Pl_Bezeichnung"><OldValue>Ilse Jahn</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 612, NULL, 512, NULL, NULL, NULL),
(54, 'PERSONALIE', 'WS-01', 'Müller', '2025-09-04 08:00:03', 0,
 '<Cols><Col Name="Pl_Bezeichnung"><OldValue></OldValue><NewValue>Jahn</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 612, NULL, 512, NULL, NULL, NULL),
(55, 'PERSONALIE', 'WS-01', 'Müller', '2025-09-04 08:00:04', 2,
 '<Cols><Col Name="Pl_Bezeichnung"><OldValue>Jahn</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 612, NULL, 512, NULL, NULL, NULL),
-- Supplier 401, with the same terms of payment; fields have a line as a customer has them.
(56, 'LIEFERANTEN_V4', 'WS-01', 'Müller', '2025-01-02 08:00:00', 0,
 '<Cols><Col Name="LIEF_ID"><OldValue></OldValue><NewValue>401</NewValue></Col><Col Name="LIEF_NR"><OldValue></OldValue><NewValue>70000</NewValue></Col><Col Name="Ps_Id_Lieferant"><OldValue></OldValue><NewValue>507</NewValue></Col><Col Name="PS_ID_MANDANT"><OldValue></OldValue><NewValue>71</NewValue></Col><Col Name="KLKD_ID"><OldValue></OldValue><NewValue>21</NewValue></Col><Col Name="MB_ID"><OldValue></OldValue><NewValue>0</NewValue></Col><Col Name="PS_ID_SAMMEL_LIEF"><OldValue></OldValue><NewValue>508</NewValue></Col><Col Name="LIEF_DATUM"><OldValue></OldValue><NewValue>02.01.2025</NewValue></Col><Col Name="LIEF_MITARBEITER"><OldValue></OldValue><NewValue>3</NewValue></Col><Col Name="LIEF_MEMO"><OldValue></OldValue><NewValue>x</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 401, NULL, 507, 71, NULL, 70000),
(57, 'LIEFERANTEN_V4', 'WS-01', 'Müller', '2025-01-03 08:00:00', 1,
 '<Cols><Col Name="PS_ID_SAMMEL_LIEF"><OldValue>0</OldValue><NewValue>501</NewValue></Col><Col Name="KLKD_ID"><OldValue>23</OldValue><NewValue>NULL</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 402, NULL, 508, 71, NULL, 70001),
(58, 'LIEFERANTEN_V4', 'WS-01', 'Müller', '2025-01-03 08:00:01', 1,
 '<Cols><Col Name="KLKD_ID"><OldValue>23</OldValue><NewValue>21</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 403, NULL, 509, 72, NULL, 70000),
(59, 'ADRESSE', 'WS-01', 'Müller', '2025-01-04 08:00:00', 1,
 '<Cols><Col Name="ADR_ORT"><OldValue>Ulm</OldValue><NewValue>Neu-Ulm</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 703, NULL, NULL, NULL, NULL, NULL),
(60, 'BANKKONTO', 'WS-01', 'Müller', '2025-01-04 08:00:01', 1,
 '<Cols><Col Name="BA_ID"><OldValue>12</OldValue><NewValue>11</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 803, NULL, NULL, NULL, NULL, NULL),
(61, 'STM_BKTOZUSATZ', 'WS-01', 'Müller', '2025-01-04 08:00:02', 1,
 '<Cols><Col Name="BKZ_VERMERK"><OldValue>f</OldValue><NewValue>g</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 903, NULL, 803, NULL, NULL, NULL),
(62, 'TLIEFVWZ', 'WS-01', 'Müller', '2025-01-04 08:00:03', 1,
 '<Cols><Col Name="FLLI"><OldValue>401</OldValue><NewValue>401</NewValue></Col><Col Name="FLVWZ"><OldValue>31</OldValue><NewValue>32</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 401, 32, 507, NULL, NULL, NULL),
(63, 'TLIEFVWZ', 'WS-01', 'Müller', '2025-01-04 08:00:04', 2,
 '<Cols><Col Name="FLVWZ"><OldValue>31</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 402, 31, 508, NULL, NULL, NULL),
-- Supplier 404 is deleted; its name by the deletion record.
(64, 'LIEFERANTEN_V4', 'WS-01', 'Müller', '2025-09-02 08:00:00', 2,
 '<Cols><Col Name="LIEF_NR"><OldValue>70001</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 404, NULL, 510, 71, NULL, 70001),
(65, 'PERSONALIE', 'WS-01', 'Müller', '2025-09-02 08:00:00', 2,
 '<Cols><Col Name="Pl_Bezeichnung"><OldValue>Yilmaz Import</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 610, NULL, 510, NULL, NULL, NULL),
(66, 'PERSON_V4', 'WS-01', 'Müller', '2025-09-02 08:00:00', 2,
 '<Cols><Col Name="PS_USTIDFK"><OldValue>DE812</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Stammdaten', 510, NULL, NULL, NULL, NULL, NULL),
-- Terms and purposes hang on the live customer: those of the deleted customer 306 are not selected.
(67, 'TKULIEFKOND', 'WS-01', 'Müller', '2025-06-15 08:00:00', 1,
 '<Cols><Col Name="DISKONTOSATZ1"><OldValue>4</OldValue><NewValue>5</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 25, NULL, NULL, NULL, NULL, NULL),
(68, 'TKUNDVWZ', 'WS-01', 'Müller', '2025-07-01 08:00:00', 0,
 '<Cols><Col Name="FLKD"><OldValue></OldValue><NewValue>306</NewValue></Col><Col Name="FLVWZ"><OldValue></OldValue><NewValue>31</NewValue></Col></Cols>',
 'sa', 'Stammdaten', 306, 31, 506, NULL, NULL, NULL);

INSERT INTO tProtokollMemo VALUES (1, 1, 'Der Kunde zahlt bar.'), (2, 99, 'eines anderen Satzes');
