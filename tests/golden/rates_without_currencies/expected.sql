array: SELECT idDevisenWaehr, dcISOKennz FROM tDevisenWaehr ORDER BY dcISOKennz
value: SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 15
array: SELECT idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser, dcApplication, dlPrimaryKey1, dlSuchId1,  dlSuchId2,  dlSuchId3,  dlSuchId4 FROM tProtokoll WHERE  ((dcTable = 'TDEVISENKURS' AND dlSuchId2 IN (SELECT idDevisenWaehr FROM tDevisenWaehr  WHERE dcISOKennz BETWEEN 'Fehlt!' AND 'Fehlt!')) ) ORDER BY ddDatum
