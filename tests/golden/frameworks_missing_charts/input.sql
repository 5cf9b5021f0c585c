DROP TABLE Kontenrahmen;
