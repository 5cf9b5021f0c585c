UPDATE Auswertungsposition SET Ap_Bezeichnung = 'Geldmarkt''s' WHERE Ap_Id = 102;
