-- dlPrimaryKey1 is the key of no rate here, so that a mixed-up column shows.
INSERT INTO tProtokoll (idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser,
                        dcApplication, dlPrimaryKey1, dlSuchId1, dlSuchId2) VALUES
-- Logged first, changed last: the export is in the order of the moments.
(1, 'TDEVISENKURS', 'WS-01', 'Müller', '2025-12-31 23:59:59', 1,
 '<Cols><Col Name="dzKursEURGeld"><OldValue>0,93</OldValue><NewValue>0,94</NewValue></Col></Cols>',
 'sa', 'Kurse', 7010, 10, 1),
-- A creation at midnight: the date has no time; the empty old value stays empty; NULL in capitals reads as empty,
-- null in small letters stays; a field without caption, an empty caption and a caption of NULL give no line.
(2, 'TDEVISENKURS', 'WS-01', 'Müller', '2025-01-01 00:00:00', 0,
 '<Cols><Col Name="dzKursEURGeld"><OldValue></OldValue><NewValue>0,93</NewValue></Col><Col Name="dzKursFremdGeld"><OldValue>NULL</OldValue><NewValue>null</NewValue></Col><Col Name="dzUnbekannt"><OldValue>1</OldValue><NewValue>2</NewValue></Col><Col Name="dcLeer"><OldValue>1</OldValue><NewValue>2</NewValue></Col><Col Name="dcNull"><OldValue>1</OldValue><NewValue>2</NewValue></Col></Cols>',
 'sa', 'Kurse', 7010, 10, 1),
-- Without login; the database login shows. Quotes, separator, line break and formula in values.
(3, 'TDEVISENKURS', 'WS;02', '_UNBEKANNT_7', '2025-02-01 08:30:00', 1,
 '<Cols><Col Name="dzKursEURGeld"><OldValue>a;"b"</OldValue><NewValue>x
y</NewValue></Col><Col Name="dzKursFremdGeld"><OldValue>=SUMME(A1)</OldValue><NewValue>-1,5</NewValue></Col><Col Name="dzKursEURGeld"><OldValue>-1,5 EUR</OldValue><NewValue> &lt;&amp;&#228;<![CDATA[<c>]]> </NewValue></Col></Cols>',
 'kurs_import', 'Nachtlauf', 7011, 11, 2),
-- Without login, but the server's own: the standard user.
(4, 'TDEVISENKURS', 'SRV', '_UNBEKANNT_', '2025-02-01 08:30:01', 1,
 '<Cols><Col Name="dzKursEURGeld"><NewValue>2</NewValue><OldValue>1</OldValue></Col></Cols>',
 'quvosqldbserver', 'Nachtlauf', 7011, 11, 2),
-- Deleted rate of a currency without name; the validity of a rate may be empty.
(5, 'TDEVISENKURS', 'WS-03', 'x_UNBEKANNT_', '2025-03-01 10:00:00', 2,
 '<Cols><Col Name="dzKursEURGeld"><OldValue>7</OldValue><NewValue></NewValue></Col></Cols>',
 'sa', 'Kurse', 7099, 99, 3),
(6, 'TDEVISENKURS', 'WS-03', '', '2025-03-01 10:00:01', 1,
 '<r><Cols><Col Name="dzKursEURGeld"><OldValue>7</OldValue><NewValue>8</NewValue></Col></Cols></r>',
 NULL, NULL, 7012, 12, 3),
-- Only technical fields: no line, and no word about captions. In capitals they are other fields.
(7, 'TDEVISENKURS', 'WS-03', 'Müller', '2025-03-02 10:00:00', 1,
 '<Cols><Col Name="ddDatumAend"><OldValue>1</OldValue><NewValue>2</NewValue></Col><Col Name="flMitarbeiter"><OldValue>1</OldValue><NewValue>2</NewValue></Col></Cols>',
 'sa', 'Kurse', 7010, 10, 1),
(8, 'TDEVISENKURS', 'WS-03', 'Müller', '2025-03-02 10:00:01', 1,
 '<Cols><Col Name="DDDATUMAEND"><OldValue>1</OldValue><NewValue>2</NewValue></Col></Cols>',
 'sa', 'Kurse', 7010, 10, 1),
-- Documents that are empty, missing, or do not load.
(9, 'TDEVISENKURS', 'WS-03', 'Müller', '2025-03-03 10:00:00', 1, '', 'sa', 'Kurse', 7010, 10, 1),
(10, 'TDEVISENKURS', 'WS-03', 'Müller', '2025-03-03 10:00:01', 1, NULL, 'sa', 'Kurse', 7010, 10, 1),
(11, 'TDEVISENKURS', 'WS-03', 'Müller', '2025-03-03 10:00:02', 1, '<Cols><Col Name="dz', 'sa', 'Kurse', 7010, 10, 1),
-- Without a date; it sorts first. Without an event: created.
(12, 'TDEVISENKURS', 'WS-03', 'Müller', NULL, NULL,
 '<Cols><Col Name="dzKursEURGeld"><OldValue>5</OldValue><NewValue>6</NewValue></Col></Cols>',
 'sa', 'Kurse', 7010, 10, 1),
-- Another table, another currency than any in the range, and none at all: not selected.
(13, 'tDevisenWaehr', 'WS-03', 'Müller', '2025-03-04 10:00:00', 1,
 '<Cols><Col Name="dzKursEURGeld"><OldValue>5</OldValue><NewValue>6</NewValue></Col></Cols>',
 'sa', 'Kurse', 1, 10, 1),
(14, 'TDEVISENKURS', 'WS-03', 'Müller', '2025-03-04 10:00:01', 1,
 '<Cols><Col Name="dzKursEURGeld"><OldValue>5</OldValue><NewValue>6</NewValue></Col></Cols>',
 'sa', 'Kurse', 7010, 10, 4),
(15, 'TDEVISENKURS', 'WS-03', 'Müller', '2025-03-04 10:00:02', 1,
 '<Cols><Col Name="dzKursEURGeld"><OldValue>5</OldValue><NewValue>6</NewValue></Col></Cols>',
 'sa', 'Kurse', 7010, 10, NULL);
