value: SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 6
value: SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 6
value: SELECT COUNT(*) FROM tProtokoll WHERE  ((dcTable = 'OFFENER_POSTEN'))
execute: DELETE tProtokollMemo WHERE flProtokoll in (SELECT idProtokoll FROM tProtokoll WHERE  ((dcTable = 'OFFENER_POSTEN')))
execute: DELETE tProtokoll WHERE  ((dcTable = 'OFFENER_POSTEN'))
