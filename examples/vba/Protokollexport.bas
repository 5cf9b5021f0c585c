Attribute VB_Name = "Protokollexport"
' Exports a section of the master-data log to a CSV file, without dialog. Import this module and the classes
' ProtDatabase and ProtProgress; no reference to the type library is needed.
Option Explicit

#If VBA7 Then
Private Declare PtrSafe Function SetEnvironmentVariable Lib "kernel32" Alias "SetEnvironmentVariableW" _
    (ByVal name As LongPtr, ByVal value As LongPtr) As Long
#Else
Private Declare Function SetEnvironmentVariable Lib "kernel32" Alias "SetEnvironmentVariableW" _
    (ByVal name As Long, ByVal value As Long) As Long
#End If

Public Sub ExportDevisenkurse()
    ExportBereich "Provider=MSOLEDBSQL;Data Source=SRV;Initial Catalog=Fibu;Integrated Security=SSPI", 15, _
                  "C:\Protokolle"
End Sub

' section: 6 open items, 8 suppliers, 9 customers, 10 report frameworks, 15 exchange rates; those with clients take further keys, such as /mandant:123.
Public Sub ExportBereich(ByVal connection As String, ByVal section As Long, ByVal folder As String, _
                         Optional ByVal keys As String)
    Dim database As New ProtDatabase
    Dim server As Object

    SetEnvironmentVariable StrPtr("PROTCSV_AUSGABE"), StrPtr(folder)
    database.Connect connection

    Set server = CreateObject("srvProtQRBCsv.ProtCsvClass")
    Set server.poParent = New ProtProgress
    server.psCommandline = "/sektion:" & section & "/autostart" & keys

    On Error GoTo Failed
    ' user (empty: all), first and last day (0: open), events 1 created + 2 changed + 4 deleted
    server.gCSVAusgabe database, section, "", CDate(0), CDate(0), 7
    MsgBox "Fertig.", vbInformation, "Protokollierung"
    Exit Sub
Failed:
    MsgBox "Fehler " & Hex(Err.Number) & ": " & Err.Description & vbCrLf & Err.Source, vbExclamation, "Protokollierung"
End Sub
