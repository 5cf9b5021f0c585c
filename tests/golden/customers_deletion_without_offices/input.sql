UPDATE Akten SET Akt_Papierkorb = -1;
