array: SELECT idDevisenWaehr, dcISOKennz FROM tDevisenWaehr ORDER BY dcISOKennz
value: SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 15
array: SELECT idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser, dcApplication, dlPrimaryKey1, dlSuchId1,  dlSuchId2,  dlSuchId3,  dlSuchId4 FROM tProtokoll WHERE dcUser = 'Jürgen Müller' AND ddDatum >= '2024-01-01 00:00:00' AND ddDatum <= '2026-01-01 00:00:00' AND  dlEvent IN(0, 1) AND  ((dcTable = 'TDEVISENKURS' AND dlSuchId2 IN (SELECT idDevisenWaehr FROM tDevisenWaehr  WHERE dcISOKennz BETWEEN 'CHF' AND 'USD')) ) ORDER BY ddDatum
array: SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr WHERE idDevisenWaehr = 20
array: SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 109
value: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'TDEVISENKURS' AND   tSysQuvoColumns.dcColumnName = 'dzKursEURGeld'
value: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'TDEVISENKURS' AND   tSysQuvoColumns.dcColumnName = 'dzKursFremdGeld'
value: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'TDEVISENKURS' AND   tSysQuvoColumns.dcColumnName = 'dzKursEURBrief'
value: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'TDEVISENKURS' AND   tSysQuvoColumns.dcColumnName = 'dzKursFremdBrief'
value: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'TDEVISENKURS' AND   tSysQuvoColumns.dcColumnName = 'dcKursquelle'
value: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'TDEVISENKURS' AND   tSysQuvoColumns.dcColumnName = 'dcImportKennz'
array: SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr WHERE idDevisenWaehr = 9
array: SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 37
value: SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = 'TDEVISENKURS' AND   tSysQuvoColumns.dcColumnName = 'dzAbweichung'
array: SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr WHERE idDevisenWaehr = 18
array: SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 78
array: SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr WHERE idDevisenWaehr = 19
array: SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 82
array: SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = 76
