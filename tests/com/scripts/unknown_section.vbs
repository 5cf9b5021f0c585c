
' A section without an exporter: nothing happens, and nothing is said. Argument: a recording.
Dim database, parent, exporter
Set database = LoadedDatabase(WScript.Arguments(0))
Set parent = New Progress
Set exporter = CreateObject("srvProtQRBCsv.ProtCsvClass")
Set exporter.poParent = parent
exporter.psCommandline = "/autostart"
On Error Resume Next
exporter.gCSVAusgabe database, 4711, "", CDate(0), CDate(0), 7
SayError "error"
report.Say database.Statements & " statements, " & parent.Text()
report.Say "done"
