
' Runs the recorded export. Arguments: the recording; the class to drive; the database object: "script" (a class of this
' script), "interface" or "name" (a component, by its interface or by name); a recording that the entry class runs
' first, if any, whatever comes of it.
Dim recorded, parent, exporter, failed

Function DatabaseObject(kind)
    If kind = "script" Then
        Set DatabaseObject = recorded
    Else
        Set DatabaseObject = CreateObject("ProtTest.RecordedDatabase")
        DatabaseObject.Load WScript.Arguments(0)
        If kind = "name" Then
            DatabaseObject.ByNameOnly
        End If
    End If
End Function

If WScript.Arguments.Count > 3 Then
    On Error Resume Next
    RunRecorded CreateObject("srvProtQRBCsv.ProtCsvClass"), LoadedDatabase(WScript.Arguments(3))
    On Error GoTo 0
End If

Set recorded = LoadedDatabase(WScript.Arguments(0))
Set parent = New Progress
Set exporter = CreateObject(WScript.Arguments(1))
Set exporter.poParent = parent
On Error Resume Next
RunRequest exporter, DatabaseObject(WScript.Arguments(2)), recorded.Request
failed = ErrorText()
On Error GoTo 0

SayWhether failed = recorded.RecordedError, "the error is the recorded one: " & failed
If failed = "" Then
    SayWhether parent.Text() = recorded.RecordedProgress, "progress is the recorded one: " & parent.Text()
    SayWhether parent.ReachedEnd(CLng(recorded.Request(REQUEST_SECTION))), "progress counted to its end: " & parent.Count
End If
SayWhether parent.InOrder, "every index followed the one before"
If WScript.Arguments(1) = "srvProtQRBCsv.CProtDevCsv" Then
    report.Say "gCSVFile: " & exporter.gCSVFile
End If
report.Say "done"
