array: SELECT idDevisenWaehr, dcISOKennz FROM tDevisenWaehr ORDER BY dcISOKennz
value: SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 15
value: SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 15
value: SELECT COUNT(*) FROM tProtokoll WHERE ddDatum <= '2024-07-01 00:00:00' AND  ((dcTable = 'TDEVISENKURS' AND dlSuchId2 IN (SELECT idDevisenWaehr FROM tDevisenWaehr  WHERE dcISOKennz BETWEEN 'AED' AND 'ZAR')) )
execute: DELETE tProtokollMemo WHERE flProtokoll in (SELECT idProtokoll FROM tProtokoll WHERE ddDatum <= '2024-07-01 00:00:00' AND  ((dcTable = 'TDEVISENKURS' AND dlSuchId2 IN (SELECT idDevisenWaehr FROM tDevisenWaehr  WHERE dcISOKennz BETWEEN 'AED' AND 'ZAR')) ))
execute: DELETE tProtokoll WHERE ddDatum <= '2024-07-01 00:00:00' AND  ((dcTable = 'TDEVISENKURS' AND dlSuchId2 IN (SELECT idDevisenWaehr FROM tDevisenWaehr  WHERE dcISOKennz BETWEEN 'AED' AND 'ZAR')) )
