INSERT INTO tProtokoll (idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser,
                        dcApplication, dlPrimaryKey1) VALUES
(1, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-02-01 10:00:00', 1,
 '<Cols><Col Name="OP_ART"><OldValue>1</OldValue><NewValue>2</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 20),
(2, 'OFFENER_POSTEN', 'WS-01', 'Müller', '2025-02-02 10:00:00', 3,
 '<Cols><Col Name="OP_ART"><OldValue>2</OldValue><NewValue>1</NewValue></Col></Cols>',
 'sa', 'Mahnwesen', 20);
