DROP TABLE Person_v4;
