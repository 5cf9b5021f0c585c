
' Runs the recorded deletion. Argument: the recording.
Dim database
Set database = LoadedDatabase(WScript.Arguments(0))
On Error Resume Next
RunRecorded CreateObject("srvProtQRBCsv.ProtCsvClass"), database
SayError "error"
report.Say database.Executed & " statements executed"
report.Say "done"
