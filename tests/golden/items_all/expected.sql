value: SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 6
array: SELECT idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser, dcApplication, dlPrimaryKey1, dlSuchId1,  dlSuchId2,  dlSuchId3,  dlSuchId4 FROM tProtokoll WHERE  ((dcTable = 'OFFENER_POSTEN')) ORDER BY ddDatum
array: SELECT OP_SKNR, OP_BELEG2, OP_DATUM_BELEG FROM OFFENER_POSTEN WHERE OP_ID = 20
value: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'OFFENER_POSTEN' AND   tSysQuvoColumns.dcColumnName = 'OP_SPERR_KZ'
array: SELECT OP_SKNR, OP_BELEG2, OP_DATUM_BELEG FROM OFFENER_POSTEN WHERE OP_ID = 21
value: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'OFFENER_POSTEN' AND   tSysQuvoColumns.dcColumnName = 'OP_ART'
array: SELECT OP_SKNR, OP_BELEG2, OP_DATUM_BELEG FROM OFFENER_POSTEN WHERE OP_ID = 22
value: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'OFFENER_POSTEN' AND   tSysQuvoColumns.dcColumnName = 'OP_TEXT'
array: SELECT OP_SKNR, OP_BELEG2, OP_DATUM_BELEG FROM OFFENER_POSTEN WHERE OP_ID = 23
array: SELECT OP_SKNR, OP_BELEG2, OP_DATUM_BELEG FROM OFFENER_POSTEN WHERE OP_ID = 24
array: SELECT OP_SKNR, OP_BELEG2, OP_DATUM_BELEG FROM OFFENER_POSTEN WHERE OP_ID = 98
