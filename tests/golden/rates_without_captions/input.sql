DROP TABLE tSysQuvoColumns;

INSERT INTO tProtokoll (idProtokoll, dcTable, ddDatum, dlEvent, dmData, dlSuchId1, dlSuchId2) VALUES
(1, 'TDEVISENKURS', '2025-01-01 10:00:00', 1,
 '<Cols><Col Name="dzKursEURGeld"><OldValue>5</OldValue><NewValue>6</NewValue></Col></Cols>', 10, 1);
