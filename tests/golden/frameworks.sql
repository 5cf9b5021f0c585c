-- Standard and office frameworks with all that they consist of, some of it deleted since, one framework as a whole. Keys of
-- different kinds lie apart.
CREATE TABLE Auswertungsrahmen (
    ARa_Id INTEGER PRIMARY KEY, ARa_Bezeichnung TEXT COLLATE NOCASE, ARa_Art INTEGER, ARa_Typ INTEGER, ARa_Kennzeichen INTEGER,
    ddGueltigVon DATETIME, ddGueltigBis DATETIME, dcGUID TEXT COLLATE NOCASE);
CREATE TABLE Auswertungsdichte (Ad_Id INTEGER PRIMARY KEY, ARa_Id INTEGER, Ad_Bezeichnung TEXT COLLATE NOCASE);
CREATE TABLE Auswertungsart (Aa_Id INTEGER PRIMARY KEY, ARa_Id INTEGER, Aa_Bezeichnung TEXT COLLATE NOCASE);
CREATE TABLE Auswertungsspalte (As_Id INTEGER PRIMARY KEY, Aa_Id INTEGER, As_Bezeichnung TEXT COLLATE NOCASE);
CREATE TABLE Zeilenart (Za_Id INTEGER PRIMARY KEY, ARa_Id INTEGER, Za_Bezeichnung TEXT COLLATE NOCASE);
CREATE TABLE Auswertungsposition (Ap_Id INTEGER PRIMARY KEY, Za_Id INTEGER, Ap_Bezeichnung TEXT COLLATE NOCASE);
CREATE TABLE Auswertungszelle (Az_Id INTEGER PRIMARY KEY, Ap_Id INTEGER, Ad_Id INTEGER);
CREATE TABLE Formel_Position (Fo_Id INTEGER PRIMARY KEY, Ap_Id INTEGER, KR_Id INTEGER, Fo_Formel TEXT COLLATE NOCASE);
CREATE TABLE Spaltenformate (Spf_Id INTEGER PRIMARY KEY, Za_Id INTEGER, As_Id INTEGER);
CREATE TABLE Kontenrahmen (KR_Id INTEGER PRIMARY KEY, KR_Bezeichnung TEXT COLLATE NOCASE, KR_Kennzeichen INTEGER);

INSERT INTO tSysQuvoLogSections VALUES (10, 'tProtokoll');
INSERT INTO Auswertungsrahmen VALUES
    (1, 'Bilanz HGB', 0, 0, 900, '2020-01-01 00:00:00', NULL, 'A'),
    (2, 'Bilanz HGB', 0, 1, 900, '2020-01-01 00:00:00', '2024-12-31 00:00:00', 'B'),
    (3, 'BWA kurz', 20, 1, 901, NULL, NULL, 'C'),
    (4, 'Bilanz/GuV nach HGB', 0, 0, 902, NULL, '2019-12-31 00:00:00', 'D'),
    (6, 'Liquidität 1', 55, 0, 903, 'offen', '', 'E');
INSERT INTO Auswertungsdichte VALUES (31, 1, 'kurz'), (32, 2, 'lang');
INSERT INTO Auswertungsart VALUES (41, 1, 'Jahr'), (42, 2, 'Monat');
INSERT INTO Auswertungsspalte VALUES (51, 41, 'Betrag EUR'), (52, 42, 'Vorjahr');
INSERT INTO Zeilenart VALUES (11, 1, 'Aktivseite'), (12, 2, 'Aktiva'), (13, 4, 'GuV'), (16, 3, 'Erlöse');
INSERT INTO Auswertungsposition VALUES
    (101, 11, 'Kassenbestand'), (102, 12, 'Kassenbestand'), (106, 13, 'Erlöse; netto'), (107, 16, 'Umsatz');
INSERT INTO Auswertungszelle VALUES (61, 101, 31), (62, 102, 32);
INSERT INTO Kontenrahmen VALUES (81, 'SKR 03', 3), (82, 'skr 04', 4), (83, 'Eigener', NULL);
INSERT INTO Formel_Position VALUES
    (71, 101, 81, 'S(1000) im Standard'), (72, 102, 81, '=S(1200)'), (73, 102, 82, 'S(1800)'), (74, 102, 83, 'S(9)');
INSERT INTO tSysQuvoTables VALUES
    (31, 'AUSWERTUNGSRAHMEN'), (32, 'AUSWERTUNGSART'), (33, 'AUSWERTUNGSDICHTE'), (34, 'AUSWERTUNGSSPALTE'), (35, 'AUSWERTUNGSPOSITION'),
    (36, 'ZEILENART'), (37, 'AUSWERTUNGSZELLE'), (38, 'SPALTENFORMATE'), (39, 'FORMEL_POSITION');
INSERT INTO tSysQuvoColumns VALUES
    (31, 'ARa_Bezeichnung', 'Feld ARa_Bezeichnung'),
    (32, 'Aa_Bezeichnung', 'Feld Aa_Bezeichnung'),
    (33, 'Ad_Bezeichnung', 'Feld Ad_Bezeichnung'),
    (34, 'As_Id', 'Feld As_Id'), (34, 'As_Bezeichnung', 'Feld As_Bezeichnung'), (34, 'Aa_Id', 'Feld Aa_Id'), (34, 'AS_BREITE', 'Feld AS_BREITE'), (34, 'DCGUID', 'Feld DCGUID'),
    (35, 'Ap_Id', 'Feld Ap_Id'), (35, 'Ap_Bezeichnung', 'Feld Ap_Bezeichnung'), (35, 'Za_Id', 'Feld Za_Id'), (35, 'AP_NR', 'Feld AP_NR'), (35, 'AP_DATUM', 'Feld AP_DATUM'), (35, 'AP_VORZEICHEN', 'Feld AP_VORZEICHEN'), (35, 'AP_TEXT', 'Feld AP_TEXT'),
    (36, 'Za_Id', 'Feld Za_Id'), (36, 'Za_Bezeichnung', 'Feld Za_Bezeichnung'), (36, 'ARa_Id', 'Feld ARa_Id'), (36, 'ZA_ART', 'Feld ZA_ART'),
    (37, 'Ap_Id', 'Feld Ap_Id'), (37, 'Ad_Id', 'Feld Ad_Id'), (37, 'AZ_WERT', 'Feld AZ_WERT'), (37, 'AZ_ABWBEZEICHNUNG', 'Feld AZ_ABWBEZEICHNUNG'), (37, 'AZ_ATBEZEICHNUNG2', 'Feld AZ_ATBEZEICHNUNG2'), (37, 'AZ_ATBEZEICHNUNG3', 'Feld AZ_ATBEZEICHNUNG3'), (37, 'AZ_ATBEZEICHNUNG4', 'Feld AZ_ATBEZEICHNUNG4'),
    (38, 'SPF_FORMAT', 'Feld SPF_FORMAT'), (38, 'SPF_DATUM', 'Feld SPF_DATUM'),
    (39, 'FO_ID', 'Feld FO_ID'), (39, 'KR_Id', 'Feld KR_Id'), (39, 'Fo_Formel', 'Feld Fo_Formel'), (39, 'FO_FORMELMENGE', 'Feld FO_FORMELMENGE');
INSERT INTO tProtokoll (idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser, dcApplication,
    dlPrimaryKey1, dlSuchId1, dlSuchId2, dlSuchId3) VALUES
    (1, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', '2025-01-02 08:01:00', 0, '<Cols><Col Name="Ap_Bezeichnung"><NewValue>Kasse</NewValue></Col><Col Name="Za_Id"><NewValue>11</NewValue></Col><Col Name="AP_NR"><NewValue>10</NewValue></Col></Cols>', 'dbo', 'Fibu', 101, 11, NULL, NULL),
    (2, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', '2025-01-03 08:02:00', 1, '<Cols><Col Name="Ap_Bezeichnung"><OldValue>Kasse</OldValue><NewValue>Kassenbestand</NewValue></Col><Col Name="AP_NR"><OldValue>10</OldValue><NewValue>20</NewValue></Col><Col Name="ap_vorzeichen"><OldValue>NULL</OldValue><NewValue>1</NewValue></Col></Cols>', 'dbo', 'Fibu', 101, 11, NULL, NULL),
    (3, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', '2025-01-04 08:03:00', 1, '<Cols><Col Name="Ap_Bezeichnung"><OldValue>Bank alt</OldValue><NewValue>Bank</NewValue></Col><Col Name="AP_DATUM"><OldValue>1</OldValue><NewValue>2</NewValue></Col></Cols>', 'dbo', 'Fibu', 103, 11, NULL, NULL),
    (4, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', '2025-01-05 08:04:00', 2, '<Cols><Col Name="Ap_Id"><OldValue>103</OldValue></Col><Col Name="Ap_Bezeichnung"><OldValue>Bank</OldValue></Col><Col Name="Za_Id"><OldValue>11</OldValue></Col><Col Name="AP_VORZEICHEN"><OldValue></OldValue></Col></Cols>', 'dbo', 'Fibu', 103, 11, NULL, NULL),
    (5, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', '2025-01-06 08:05:00', 1, '<Cols><Col Name="AP_VORZEICHEN"><OldValue>0</OldValue><NewValue>1</NewValue></Col></Cols>', 'dbo', 'Fibu', 104, 14, NULL, NULL),
    (6, 'AUSWERTUNGSZELLE', 'PC-7', 'Anna', '2025-01-07 08:06:00', 2, '<Cols><Col Name="Ap_Id"><OldValue>104</OldValue></Col><Col Name="Ad_Id"><OldValue>31</OldValue></Col><Col Name="AZ_WERT"><OldValue>5</OldValue></Col></Cols>', 'dbo', 'Fibu', 63, 104, NULL, NULL),
    (7, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', '2025-01-08 08:07:00', 2, '<Cols><Col Name="Ap_Id"><OldValue>104</OldValue></Col><Col Name="Ap_Bezeichnung"><OldValue>Wechsel</OldValue></Col><Col Name="Za_Id"><OldValue>14</OldValue></Col></Cols>', 'dbo', 'Fibu', 104, 14, NULL, NULL),
    (8, 'ZEILENART', 'PC-7', 'Anna', '2025-01-09 08:08:00', 2, '<Cols><Col Name="Za_Id"><OldValue>14</OldValue></Col><Col Name="Za_Bezeichnung"><OldValue>Passiva alt</OldValue></Col><Col Name="ARa_Id"><OldValue>1</OldValue></Col></Cols>', 'dbo', 'Fibu', 14, 1, NULL, NULL),
    (9, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', '2025-01-10 08:09:00', 1, '<Cols><Col Name="Ap_Bezeichnung"><OldValue>Rest</OldValue><NewValue>Übriges</NewValue></Col></Cols>', 'dbo', 'Fibu', 105, 15, NULL, NULL),
    (10, 'AUSWERTUNGSZELLE', 'PC-7', 'Anna', '2025-01-11 08:10:00', 0, '<Cols><Col Name="Ad_Id"><NewValue>31</NewValue></Col><Col Name="AZ_WERT"><NewValue>1</NewValue></Col></Cols>', 'dbo', 'Fibu', 61, 101, NULL, NULL),
    (11, 'AUSWERTUNGSZELLE', 'PC-7', 'Anna', '2025-01-12 08:11:00', 1, '<Cols><Col Name="AZ_WERT"><OldValue>1</OldValue><NewValue>2</NewValue></Col><Col Name="AZ_ABWBEZEICHNUNG"><OldValue>a</OldValue><NewValue>b</NewValue></Col><Col Name="AZ_ATBEZEICHNUNG2"><OldValue>a</OldValue><NewValue>b</NewValue></Col><Col Name="AZ_ATBEZEICHNUNG3"><OldValue>a</OldValue><NewValue>b</NewValue></Col><Col Name="AZ_ATBEZEICHNUNG4"><OldValue>a</OldValue><NewValue>b</NewValue></Col></Cols>', 'dbo', 'Fibu', 61, 101, NULL, NULL),
    (12, 'FORMEL_POSITION', 'PC-7', 'Anna', '2025-01-13 08:12:00', 1, '<Cols><Col Name="Fo_Formel"><OldValue>_MEMO_</OldValue><NewValue>_MEMO_</NewValue></Col></Cols>', 'dbo', 'Fibu', 72, 81, 102, NULL),
    (13, 'FORMEL_POSITION', 'PC-7', 'Anna', '2025-01-14 08:13:00', 1, '<Cols><Col Name="Fo_Formel"><OldValue>_MEMO_</OldValue><NewValue>_memo_</NewValue></Col><Col Name="FO_FORMELMENGE"><OldValue>1</OldValue><NewValue>2</NewValue></Col></Cols>', 'dbo', 'Fibu', 72, 81, 102, NULL),
    (14, 'FORMEL_POSITION', 'PC-7', 'Anna', '2025-01-15 08:14:00', 1, '<Cols><Col Name="Fo_Formel"><OldValue>_MEMO_</OldValue><NewValue>_MEMO_</NewValue></Col></Cols>', 'dbo', 'Fibu', 72, 81, 102, NULL),
    (15, 'FORMEL_POSITION', 'PC-7', 'Anna', '2025-01-16 08:15:00', 1, '<Cols><Col Name="Fo_Formel"><OldValue>_MEMO_</OldValue><NewValue>_MEMO_</NewValue></Col></Cols>', 'dbo', 'Fibu', 72, 81, 102, NULL),
    (16, 'FORMEL_POSITION', 'PC-7', 'Anna', '2025-01-17 08:16:00', 1, '<Cols><Col Name="Fo_Formel"><OldValue>_MEMO_</OldValue><NewValue>_MEMO_</NewValue></Col></Cols>', 'dbo', 'Fibu', 73, 82, 102, NULL),
    (17, 'FORMEL_POSITION', 'PC-7', 'Anna', '2025-01-18 08:17:00', 1, '<Cols><Col Name="Fo_Formel"><OldValue>_MEMO_</OldValue><NewValue>_MEMO_</NewValue></Col></Cols>', 'dbo', 'Fibu', 74, 83, 102, NULL),
    (18, 'FORMEL_POSITION', 'PC-7', 'Anna', '2025-01-19 08:18:00', 0, '<Cols><Col Name="KR_Id"><NewValue>81</NewValue></Col><Col Name="Fo_Formel"><NewValue>_MEMO_</NewValue></Col><Col Name="FO_ID"><NewValue>75</NewValue></Col></Cols>', 'dbo', 'Fibu', 75, 81, 103, NULL),
    (19, 'FORMEL_POSITION', 'PC-7', 'Anna', '2025-01-20 08:19:00', 2, '<Cols><Col Name="KR_Id"><OldValue>81</OldValue></Col><Col Name="Fo_Formel"><OldValue>_MEMO_</OldValue></Col></Cols>', 'dbo', 'Fibu', 76, 81, 105, NULL),
    (20, 'FORMEL_POSITION', 'PC-7', 'Anna', '2025-02-01 08:20:00', 1, '<Cols><Col Name="Fo_Formel"><OldValue>_MEMO_</OldValue><NewValue></NewValue></Col></Cols>', 'dbo', 'Fibu', 77, 81, 104, NULL),
    (21, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', '2025-02-02 08:21:00', 1, '<Cols><Col Name="AP_TEXT"><OldValue>_MEMO_</OldValue><NewValue>_MEMO_</NewValue></Col></Cols>', 'dbo', 'Fibu', 102, 12, NULL, NULL),
    (22, 'AUSWERTUNGSSPALTE', 'PC-7', 'Anna', '2025-02-03 08:22:00', 0, '<Cols><Col Name="As_Bezeichnung"><NewValue>Betrag</NewValue></Col><Col Name="AS_BREITE"><NewValue>10</NewValue></Col></Cols>', 'dbo', 'Fibu', 51, 41, NULL, NULL),
    (23, 'AUSWERTUNGSSPALTE', 'PC-7', 'Anna', '2025-02-04 08:23:00', 1, '<Cols><Col Name="AS_BREITE"><OldValue>10</OldValue><NewValue>12</NewValue></Col><Col Name="DCGUID"><OldValue>x</OldValue><NewValue>y</NewValue></Col></Cols>', 'dbo', 'Fibu', 51, 41, NULL, NULL),
    (24, 'AUSWERTUNGSSPALTE', 'PC-7', 'Anna', '2025-02-05 08:24:00', 2, '<Cols><Col Name="As_Id"><OldValue>53</OldValue></Col><Col Name="As_Bezeichnung"><OldValue>Abweichung</OldValue></Col><Col Name="Aa_Id"><OldValue>43</OldValue></Col></Cols>', 'dbo', 'Fibu', 53, 43, NULL, NULL),
    (25, 'SPALTENFORMATE', 'PC-7', 'Anna', '2025-02-06 08:25:00', 0, '<Cols><Col Name="SPF_FORMAT"><NewValue>0,00</NewValue></Col></Cols>', 'dbo', 'Fibu', 91, 51, 11, NULL),
    (26, 'SPALTENFORMATE', 'PC-7', 'Anna', '2025-02-07 08:26:00', 1, '<Cols><Col Name="SPF_FORMAT"><OldValue>0,00</OldValue><NewValue>0</NewValue></Col><Col Name="SPF_DATUM"><OldValue>a</OldValue><NewValue>b</NewValue></Col></Cols>', 'dbo', 'Fibu', 91, 51, 11, NULL),
    (27, 'SPALTENFORMATE', 'PC-7', 'Anna', '2025-02-08 08:27:00', 1, '<Cols><Col Name="SPF_FORMAT"><OldValue></OldValue><NewValue>#</NewValue></Col></Cols>', 'dbo', 'Fibu', 92, 53, 14, NULL),
    (28, 'ZEILENART', 'PC-7', 'Anna', '2025-02-09 08:28:00', 0, '<Cols><Col Name="Za_Bezeichnung"><NewValue>Aktiva</NewValue></Col><Col Name="ZA_ART"><NewValue>1</NewValue></Col></Cols>', 'dbo', 'Fibu', 11, 1, NULL, NULL),
    (29, 'ZEILENART', 'PC-7', 'Anna', '2025-02-10 08:29:00', 1, '<Cols><Col Name="Za_Bezeichnung"><OldValue>Aktiva</OldValue><NewValue>Aktivseite</NewValue></Col><Col Name="ZA_ART"><OldValue>1</OldValue><NewValue>12abc</NewValue></Col></Cols>', 'dbo', 'Fibu', 11, 1, NULL, NULL),
    (30, 'ZEILENART', 'PC-7', 'Anna', '2025-02-11 08:30:00', 1, '<Cols><Col Name="ZA_ART"><OldValue>0</OldValue><NewValue>1</NewValue></Col></Cols>', 'dbo', 'Fibu', 12, 2, NULL, NULL),
    (31, 'ZEILENART', 'PC-7', 'Anna', '2025-02-12 08:31:00', 1, '<Cols><Col Name="ZA_ART"><OldValue>0</OldValue><NewValue>1</NewValue></Col></Cols>', 'dbo', 'Fibu', 16, 3, NULL, NULL),
    (32, 'AUSWERTUNGSZELLE', 'PC-7', 'Anna', '2025-02-13 08:32:00', 2, '<Cols><Col Name="Ap_Id"><OldValue>105</OldValue></Col><Col Name="Ad_Id"><OldValue>33</OldValue></Col></Cols>', 'dbo', 'Fibu', 64, 105, NULL, NULL),
    (33, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', '2025-02-14 08:33:00', 2, '<Cols><Col Name="Ap_Id"><OldValue>105</OldValue></Col><Col Name="Ap_Bezeichnung"><OldValue>Übriges</OldValue></Col><Col Name="Za_Id"><OldValue>15</OldValue></Col></Cols>', 'dbo', 'Fibu', 105, 15, NULL, NULL),
    (34, 'ZEILENART', 'PC-7', 'Anna', '2025-02-15 08:34:00', 2, '<Cols><Col Name="Za_Id"><OldValue>15</OldValue></Col><Col Name="Za_Bezeichnung"><OldValue>Summen</OldValue></Col><Col Name="ARa_Id"><OldValue>5</OldValue></Col></Cols>', 'dbo', 'Fibu', 15, 5, NULL, NULL),
    (35, 'AUSWERTUNGSART', 'PC-7', 'Anna', '2025-02-16 08:35:00', 2, '<Cols><Col Name="Aa_Id"><OldValue>43</OldValue></Col><Col Name="Aa_Bezeichnung"><OldValue>Vergleich</OldValue></Col><Col Name="ARa_Id"><OldValue>5</OldValue></Col></Cols>', 'dbo', 'Fibu', 43, 5, NULL, NULL),
    (36, 'AUSWERTUNGSDICHTE', 'PC-7', 'Anna', '2025-02-17 08:36:00', 2, '<Cols><Col Name="Ad_Id"><OldValue>33</OldValue></Col><Col Name="Ad_Bezeichnung"><OldValue>alte Dichte</OldValue></Col><Col Name="ARa_Id"><OldValue>5</OldValue></Col></Cols>', 'dbo', 'Fibu', 33, 5, NULL, NULL),
    (37, 'AUSWERTUNGSRAHMEN', 'PC-7', 'Anna', '2025-02-18 08:37:00', 2, '<Cols><Col Name="ARa_Id"><OldValue>5</OldValue></Col><Col Name="ARa_Bezeichnung"><OldValue>Bilanz/alt</OldValue></Col><Col Name="ARa_Art"><OldValue>0</OldValue></Col><Col Name="ARa_Typ"><OldValue>0</OldValue></Col><Col Name="ARa_Kennzeichen"><OldValue>900</OldValue></Col></Cols>', 'dbo', 'Fibu', 5, 5, 0, 0),
    (38, 'AUSWERTUNGSRAHMEN', 'PC-7', 'Anna', '2025-02-19 08:38:00', 1, '<Cols><Col Name="ARa_Bezeichnung"><OldValue>Bilanz</OldValue><NewValue>Bilanz HGB</NewValue></Col></Cols>', 'dbo', 'Fibu', 1, 1, 0, 0),
    (39, 'AUSWERTUNGSDICHTE', 'PC-7', 'Anna', '2025-02-20 08:39:00', 1, '<Cols><Col Name="Ad_Bezeichnung"><OldValue>fein</OldValue><NewValue>kurz</NewValue></Col></Cols>', 'dbo', 'Fibu', 31, 1, NULL, NULL),
    (40, 'AUSWERTUNGSART', 'PC-7', 'Anna', '2025-03-01 08:40:00', 1, '<Cols><Col Name="Aa_Bezeichnung"><OldValue>a</OldValue><NewValue>b</NewValue></Col></Cols>', 'dbo', 'Fibu', 41, 1, NULL, NULL),
    (41, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', '2025-03-02 08:41:00', 1, NULL, 'dbo', 'Fibu', 101, 11, NULL, NULL),
    (42, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', '2025-03-03 08:42:00', 1, '', 'dbo', 'Fibu', 101, 11, NULL, NULL),
    (43, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', '2025-03-04 08:43:00', 1, '<Cols><Col', 'dbo', 'Fibu', 101, 11, NULL, NULL),
    (44, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', NULL, 1, '<Cols><Col Name="AP_VORZEICHEN"><OldValue>1</OldValue><NewValue>0</NewValue></Col></Cols>', 'dbo', 'Fibu', 101, 11, NULL, NULL),
    (45, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', '2025-03-06 08:45:00', 1, '<Cols><Col Name="AP_FREMD"><OldValue>1</OldValue><NewValue>0</NewValue></Col></Cols>', 'dbo', 'Fibu', 101, 11, NULL, NULL),
    (46, 'AUSWERTUNGSPOSITION', 'PC-7', '_UNBEKANNT_3', '2025-03-07 08:46:00', 1, '<Cols><Col Name="AP_VORZEICHEN"><OldValue>1</OldValue><NewValue>0</NewValue></Col></Cols>', 'dbo', 'Fibu', 101, 11, NULL, NULL),
    (47, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', '2025-03-08 08:47:00', 1, '<Cols><Col Name="AP_VORZEICHEN"><OldValue>0</OldValue><NewValue>1</NewValue></Col></Cols>', 'dbo', 'Fibu', 106, 13, NULL, NULL),
    (48, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', '2025-03-09 08:48:00', 1, '<Cols><Col Name="AP_VORZEICHEN"><OldValue>0</OldValue><NewValue>1</NewValue></Col></Cols>', 'dbo', 'Fibu', 107, 16, NULL, NULL),
    (49, 'AUSWERTUNGSPOSITION', 'PC-7', 'Anna', '2025-03-10 08:49:00', 1, '<Cols><Col Name="AP_VORZEICHEN"><OldValue>0</OldValue><NewValue>1</NewValue></Col></Cols>', 'dbo', 'Fibu', 109, 19, NULL, NULL);
INSERT INTO tProtokollMemo (flProtokoll, dmData) VALUES
    (12, 'S(1000)+S(1010)'),
    (13, 'S(1000); "neu"
S(1020)'),
    (15, '=S(1200)'),
    (16, 'S(1800)'),
    (17, 'S(9)'),
    (18, 'S(1100)'),
    (19, 'S(1)'),
    (21, 'langer Text');
