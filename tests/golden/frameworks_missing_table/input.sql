DROP TABLE Auswertungsdichte;
