
' The three properties of both classes, set and read in every way a script can.
Dim parent, name, exporter, value
Set parent = New Progress
On Error Resume Next
For Each name In Array("srvProtQRBCsv.ProtCsvClass", "srvProtQRBCsv.CProtDevCsv")
    report.Say name
    Set exporter = CreateObject(name)
    SayWhether exporter.poParent Is Nothing, "poParent is Nothing at first"
    Set exporter.poParent = parent
    SayError "Set poParent"
    SayWhether exporter.poParent Is parent, "poParent is the object that was set"
    Set exporter.poParent = Nothing
    SayError "Set poParent = Nothing"
    SayWhether exporter.poParent Is Nothing, "poParent is Nothing again"
    exporter.poParent = parent
    SayError "poParent by Let"
    SayWhether exporter.poParent Is parent, "poParent is the object that was let"
    exporter.poParent = "text"
    SayError "poParent = text"
    SayWhether exporter.poParent Is parent, "a failed assignment changed nothing"
    exporter.pbLoeschen = False
    SayError "pbLoeschen = False"
    exporter.pbLoeschen = 0
    SayError "pbLoeschen = 0"
    value = exporter.pbLoeschen
    SayNumber "reading pbLoeschen"
    exporter.psCommandline = "/autostart"
    SayError "psCommandline"
    value = exporter.psCommandline
    SayNumber "reading psCommandline"
    value = "unread"
    value = exporter.gCSVFile
    SayNumber "gCSVFile"
    SayWhether value = "" Or value = "unread", "no file name before the first run"
    exporter.gCSVFile = "x.csv"
    SayNumber "writing gCSVFile"
    value = exporter.gibtEsNicht
    SayNumber "an unknown member"
    Set exporter = Nothing
Next
report.Say "done"
