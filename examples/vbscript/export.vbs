' Exports a section of the master-data log to a CSV file, without dialog.
'
'   cscript //nologo export.vbs "Provider=MSOLEDBSQL;Data Source=SRV;Initial Catalog=Fibu;Integrated Security=SSPI" 15 C:\Protokolle
'
' Arguments: connection string, number of the section (6 open items, 8 suppliers, 9 customers, 10 report frameworks, 15 exchange rates), folder of the
' file (the environment variable PROTCSV_AUSGABE goes before it); for sections with clients further keys, such as
' /mandant:123.
Option Explicit

' The database object that the server asks. Every statement of the server goes through it.
Class HostDatabase
    Private connection

    Public Sub Connect(text)
        Set connection = CreateObject("ADODB.Connection")
        connection.Open text
    End Sub

    ' First column of the first row, Null without a row.
    Public Function QueryValue(sql)
        Dim rows: Set rows = connection.Execute(sql)
        If rows.EOF Then QueryValue = Null Else QueryValue = rows.Fields(0).Value
        rows.Close
    End Function

    ' All rows as an array (column, row), Empty without a row.
    Public Function QueryArray(sql)
        Dim rows: Set rows = connection.Execute(sql)
        If Not rows.EOF Then QueryArray = rows.GetRows()
        rows.Close
    End Function

    Public Sub Execute(sql)
        connection.Execute sql
    End Sub

    ' A date as SQL Server reads it under every language setting.
    Public Function DateLiteral(moment, flag)
        DateLiteral = "{ts '" & Year(moment) & "-" & Two(Month(moment)) & "-" & Two(Day(moment)) & " " & _
                      Two(Hour(moment)) & ":" & Two(Minute(moment)) & ":" & Two(Second(moment)) & "'}"
    End Function

    Public Function LikeWildcard(flag)
        LikeWildcard = "%"
    End Function

    ' May be left out; then the computer's name stands for the server's.
    Public Function ConnectionInfo(code)
        ConnectionInfo = Array("", "", "", "", "", "", "", "", "", QueryValue("SELECT @@SERVERNAME"))
    End Function

    Private Function Two(number)
        Two = Right("0" & number, 2)
    End Function
End Class

' The progress object; both members are needed.
Class HostProgress
    Public Sub gRefresh()
    End Sub

    Public Sub gSetFortschritt(index, count)
        If index Mod 1000 = 0 Then WScript.Echo index & " von " & count
    End Sub
End Class

Dim database, server, keys
If WScript.Arguments.Count < 3 Then
    WScript.Echo "Aufruf: export.vbs VERBINDUNG BEREICH ORDNER [AUSWAHL]"
    WScript.Quit 2
End If
CreateObject("WScript.Shell").CurrentDirectory = WScript.Arguments(2)

Set database = New HostDatabase
database.Connect WScript.Arguments(0)

Set server = CreateObject("srvProtQRBCsv.ProtCsvClass")
Set server.poParent = New HostProgress
keys = ""
If WScript.Arguments.Count > 3 Then keys = WScript.Arguments(3)
server.psCommandline = "/sektion:" & WScript.Arguments(1) & "/autostart" & keys

On Error Resume Next
' user (empty: all), first and last day (0: open), events 1 created + 2 changed + 4 deleted
server.gCSVAusgabe database, CLng(WScript.Arguments(1)), "", 0, 0, 7
If Err.Number <> 0 Then
    WScript.Echo "Fehler " & Hex(Err.Number) & ": " & Err.Description
    WScript.Echo Err.Source
    WScript.Quit 1
End If
WScript.Echo "Fertig."
