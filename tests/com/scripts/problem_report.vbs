
' A run whose database object answers nothing: the filter form shows the error itself.
Dim exporter
On Error Resume Next
Set exporter = CreateObject("srvProtQRBCsv.ProtCsvClass")
exporter.psCommandline = "/autostart"
exporter.gCSVAusgabe CreateObject("ProtTest.RecordedDatabase"), 15, "", CDate(0), CDate(0), 7
SayError "the run"
report.Say "done"
