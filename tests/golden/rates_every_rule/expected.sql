array: SELECT idDevisenWaehr, dcISOKennz FROM tDevisenWaehr ORDER BY dcISOKennz
value: SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 15
array: SELECT idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser, dcApplication, dlPrimaryKey1, dlSuchId1,  dlSuchId2,  dlSuchId3,  dlSuchId4 FROM tProtokoll WHERE  ((dcTable = 'TDEVISENKURS' AND dlSuchId2 IN (SELECT idDevisenWaehr FROM tDevisenWaehr  WHERE dcISOKennz BETWEEN 'CHF' AND 'XXX')) ) ORDER BY ddDatum
array: SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr WHERE idDevisenWaehr = 1
array: SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 10
value: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'TDEVISENKURS' AND   tSysQuvoColumns.dcColumnName = 'dzKursEURGeld'
value: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'TDEVISENKURS' AND   tSysQuvoColumns.dcColumnName = 'dzKursFremdGeld'
value: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'TDEVISENKURS' AND   tSysQuvoColumns.dcColumnName = 'dzUnbekannt'
value: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'TDEVISENKURS' AND   tSysQuvoColumns.dcColumnName = 'dcLeer'
value: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'TDEVISENKURS' AND   tSysQuvoColumns.dcColumnName = 'dcNull'
array: SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr WHERE idDevisenWaehr = 2
array: SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 11
array: SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr WHERE idDevisenWaehr = 3
array: SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 99
array: SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 12
value: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'TDEVISENKURS' AND   tSysQuvoColumns.dcColumnName = 'DDDATUMAEND'
