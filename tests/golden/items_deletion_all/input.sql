INSERT INTO tProtokoll (idProtokoll, dcTable, ddDatum, dlEvent, dlPrimaryKey1) VALUES (7, 'TDEVISENKURS', '2025-02-07 10:00:00', 1, 10);
