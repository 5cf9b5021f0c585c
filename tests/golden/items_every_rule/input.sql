INSERT INTO tProtokoll (idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser,
                        dcApplication, dlPrimaryKey1) VALUES
-- Logged first, changed last: the export is in the order of the moments. A creation: seven fields are never exported;
-- an empty caption, a caption of NULL and none at all give no line either.
(1, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-12-31 23:59:59', 0,
 '<Cols><Col Name="OP_ID"><OldValue></OldValue><NewValue>20</NewValue></Col><Col Name="WJ_ID"><OldValue></OldValue><NewValue>41</NewValue></Col><Col Name="BU_ID"><OldValue></OldValue><NewValue>5</NewValue></Col><Col Name="BUS_ID"><OldValue></OldValue><NewValue>6</NewValue></Col><Col Name="OP_DATUM"><OldValue></OldValue><NewValue>01.03.2024</NewValue></Col><Col Name="OP_MITARBEITER"><OldValue></OldValue><NewValue>3</NewValue></Col><Col Name="OP_AUSGLEICH_NR"><OldValue></OldValue><NewValue>9</NewValue></Col><Col Name="OP_LEER"><OldValue></OldValue><NewValue>1</NewValue></Col><Col Name="OP_NULL"><OldValue></OldValue><NewValue>1</NewValue></Col><Col Name="OP_FREMD"><OldValue></OldValue><NewValue>1</NewValue></Col><Col Name="OP_ART"><OldValue></OldValue><NewValue>1</NewValue></Col><Col Name="OP_SPERR_KZ"><OldValue></OldValue><NewValue>0</NewValue></Col><Col Name="OP_TEXT"><OldValue></OldValue><NewValue>Miete; "März"</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 20),
-- The block counter at its borders.
(2, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-01 00:00:00', 1,
 '<Cols><Col Name="OP_SPERR_KZ"><OldValue>0</OldValue><NewValue>2</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 21),
(3, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-02 10:00:00', 1,
 '<Cols><Col Name="OP_SPERR_KZ"><OldValue>9</OldValue><NewValue>10</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 21),
(4, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-03 10:00:00', 1,
 '<Cols><Col Name="OP_SPERR_KZ"><OldValue>-1</OldValue><NewValue>1</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 21),
(5, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-04 10:00:00', 1,
 '<Cols><Col Name="OP_SPERR_KZ"><OldValue>11</OldValue><NewValue>3</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 21),
-- The kinds.
(6, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-05 10:00:00', 1,
 '<Cols><Col Name="OP_ART"><OldValue>1</OldValue><NewValue>2</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 21),
(7, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-06 10:00:00', 1,
 '<Cols><Col Name="OP_ART"><OldValue>0</OldValue><NewValue>3</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 21),
-- Values that are no plain numbers: the leading number counts, none counts as 0; a half goes to the even number;
-- a decimal comma ends a number. Beyond 32 bits the logged value stays.
(8, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-07 10:00:00', 1,
 '<Cols><Col Name="OP_ART"><OldValue>R</OldValue><NewValue> 2 x</NewValue></Col><Col Name="OP_SPERR_KZ"><OldValue>gesperrt</OldValue><NewValue>3 mal</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 21),
(9, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-08 10:00:00', 1,
 '<Cols><Col Name="OP_SPERR_KZ"><OldValue>2.5</OldValue><NewValue>3.5</NewValue></Col><Col Name="OP_SPERR_KZ"><OldValue>0.5</OldValue><NewValue>9.5</NewValue></Col><Col Name="OP_ART"><OldValue>1,9</OldValue><NewValue>1.6</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 21),
(10, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-09 10:00:00', 1,
 '<Cols><Col Name="OP_SPERR_KZ"><OldValue>2147483648</OldValue><NewValue>99999999999</NewValue></Col><Col Name="OP_ART"><OldValue>-2147483649</OldValue><NewValue>1e0</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 21),
-- No value: NULL in capitals reads as empty and is not translated; in small letters it is a text without number.
(11, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-10 10:00:00', 1,
 '<Cols><Col Name="OP_SPERR_KZ"><OldValue>NULL</OldValue><NewValue>0</NewValue></Col><Col Name="OP_ART"><OldValue></OldValue><NewValue>NULL</NewValue></Col><Col Name="OP_SPERR_KZ"><OldValue>null</OldValue><NewValue>&#32;</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 21),
-- Names in lower case: translated and suppressed all the same.
(12, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-11 10:00:00', 1,
 '<Cols><Col Name="op_datum"><OldValue>1</OldValue><NewValue>2</NewValue></Col><Col Name="Op_Mitarbeiter"><OldValue>1</OldValue><NewValue>2</NewValue></Col><Col Name="op_sperr_kz"><OldValue>0</OldValue><NewValue>4</NewValue></Col><Col Name="op_art"><OldValue>2</OldValue><NewValue>1</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 22),
-- Only fields that are never exported: no line.
(13, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-12 10:00:00', 1,
 '<Cols><Col Name="OP_DATUM"><OldValue>1</OldValue><NewValue>2</NewValue></Col><Col Name="OP_AUSGLEICH_NR"><OldValue>NULL</OldValue><NewValue>7</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 22),
-- Other fields keep their values, also numbers; a memo shows its mark.
(14, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-13 10:00:00', 1,
 '<Cols><Col Name="OP_BETRAG"><OldValue>1</OldValue><NewValue>-2,50</NewValue></Col><Col Name="OP_TEXT"><OldValue>=A1</OldValue><NewValue>_MEMO_</NewValue></Col><Col Name="OP_DATUM_BELEG"><OldValue>01.01.2025</OldValue><NewValue>02.01.2025</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 24),
-- The item was deleted later; a log row without key names no item.
(15, 'OFFENER_POSTEN', 'WS-01', '_UNBEKANNT_7', '2025-01-14 10:00:00', 2,
 '<Cols><Col Name="OP_ID"><OldValue>99</OldValue><NewValue></NewValue></Col><Col Name="OP_ART"><OldValue>2</OldValue><NewValue></NewValue></Col><Col Name="OP_SPERR_KZ"><OldValue>1</OldValue><NewValue></NewValue></Col><Col Name="OP_TEXT"><OldValue>weg</OldValue><NewValue></NewValue></Col></Cols>',
 'bank_abruf', 'Mahnwesen', 99),
(16, 'OFFENER_POSTEN', 'WS-01', '_UNBEKANNT_', '2025-01-15 10:00:00', 1,
 '<Cols><Col Name="OP_ART"><OldValue>1</OldValue><NewValue>2</NewValue></Col></Cols>',
 'quvosqldbserver', 'Mahnwesen', NULL),
-- Nothing to read: no document, an empty one, a broken one, one without columns.
(17, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-16 10:00:00', 1,
 NULL,
 'sa', 'Mahnwesen', 21),
(18, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-16 10:00:01', 1,
 '',
 'sa', 'Mahnwesen', 21),
(19, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-16 10:00:02', 1,
 '<Cols><Col Name="OP_ART"><OldValue>1</Old',
 'sa', 'Mahnwesen', 21),
(20, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-01-16 10:00:03', 1,
 '<Cols></Cols>',
 'sa', 'Mahnwesen', 21),
-- Another table of the same log.
(21, 'Person_v4', 'WS-01', 'Müller', '2025-01-17 10:00:00', 1,
 '<Cols><Col Name="Ps_KurzName"><OldValue>a</OldValue><NewValue>b</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 71);
