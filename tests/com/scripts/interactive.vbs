
' The recorded run with nothing in the parameter text: what to export is asked. Argument: the recording.
Dim database, request, parent, exporter
Set database = LoadedDatabase(WScript.Arguments(0))
Set parent = New Progress
request = database.Request
request(REQUEST_PARAMETERS) = ""
Set exporter = CreateObject("srvProtQRBCsv.ProtCsvClass")
Set exporter.poParent = parent
On Error Resume Next
RunRequest exporter, database, request
SayError "error"
SayWhether parent.Steps = 0 Or parent.Text() = database.RecordedProgress, "no progress, or all of it"
report.Say parent.Steps & " steps"
If request(REQUEST_KIND) = "delete" Then
    report.Say database.Executed & " statements executed"
End If
report.Say "done"
