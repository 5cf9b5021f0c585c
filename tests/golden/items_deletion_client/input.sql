INSERT INTO tProtokollMemo (flProtokoll, dmData) VALUES (1, 'a'), (2, 'b'), (3, 'c');
