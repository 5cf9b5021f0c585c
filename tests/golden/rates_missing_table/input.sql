DROP TABLE tProtokoll;
