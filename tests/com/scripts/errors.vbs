
' How errors reach a client. Argument: a recording. The database object is a
' component where source and description count, because not every script engine hands on those of its classes' errors.

Class WithoutQueryArray
    Public Function QueryValue(sql)
    End Function
    Public Sub Execute(sql)
    End Sub
    Public Function DateLiteral(moment, flag)
    End Function
    Public Function LikeWildcard(flag)
    End Function
End Class

Class WithoutSteps
    Public Sub gRefresh()
    End Sub
End Class

Class FailingProgress
    Public Sub gRefresh()
        Err.Raise vbObjectError + 77, "FailingProgress", "the window is gone"
    End Sub
End Class

Function NewExporter(parent)
    Set NewExporter = CreateObject("srvProtQRBCsv.ProtCsvClass")
    Set NewExporter.poParent = parent
    NewExporter.psCommandline = "/autostart"
End Function

Sub Export(exporter, database)
    exporter.gCSVAusgabe database, 15, "", CDate(0), CDate(0), 7
End Sub

Dim path, component, database, exporter
path = WScript.Arguments(0)
Set component = CreateObject("ProtTest.RecordedDatabase")
On Error Resume Next

' The filter form shows its own errors, and the run ends without one.
Export NewExporter(Nothing), component
SayError "the currencies cannot be read"

component.Load path
Set exporter = NewExporter(Nothing)
exporter.psCommandline = "/autostart/vondevi:USD"
Export exporter, component
SayError "an unknown statement"

component.ByNameOnly
Export exporter, component
SayError "the same by name"

Set database = LoadedDatabase(path)
database.Forget "ORDER BY ddDatum"
Export NewExporter(Nothing), database
SayWhether Err.Number = vbObjectError + 513, "the script's own number arrives"
Err.Clear

Export NewExporter(Nothing), New WithoutQueryArray
SayError "no QueryArray"

Export NewExporter(Nothing), Nothing
SayError "no database object"

Export NewExporter(Nothing), "Server=."
SayError "a text for the database object"

Export NewExporter(New WithoutSteps), LoadedDatabase(path)
SayError "no gSetFortschritt"

Export NewExporter(New FailingProgress), LoadedDatabase(path)
SayWhether Err.Number = vbObjectError + 77, "the progress object's own number arrives"
report.Say "done"
