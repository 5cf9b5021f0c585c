Option Explicit

' What the clients share: a database object and a progress object as a host's script would write them. The runner puts
' this file before each client's own, because cscript runs one file. Letters beyond ASCII come from recordings only,
' and go out through ProtTest.Report, because engines differ in how they read and write them.

Dim report
Set report = CreateObject("ProtTest.Report")

' Fields of the record "request".
Const REQUEST_SECTION = 1
Const REQUEST_USER = 2
Const REQUEST_FROM = 3
Const REQUEST_TO = 4
Const REQUEST_EVENTS = 5
Const REQUEST_PARAMETERS = 6
Const REQUEST_KIND = 7

Function Unescaped(field)
    Dim text
    text = Replace(field, "\\", Chr(1))
    text = Replace(text, "\t", vbTab)
    text = Replace(text, "\r", vbCr)
    text = Replace(text, "\n", vbLf)
    Unescaped = Replace(text, Chr(1), "\")
End Function

' The moment written as days:seconds.
Function DateOf(field)
    Dim parts, time_of_day
    parts = Split(field, ":")
    time_of_day = CLng(parts(1)) / 86400
    If CLng(parts(0)) < 0 Then
        time_of_day = -time_of_day
    End If
    DateOf = CDate(CLng(parts(0)) + time_of_day)
End Function

Function FieldOf(moment)
    Dim days
    days = Fix(CDbl(moment))
    FieldOf = CStr(days) & ":" & CStr(CLng(Abs(CDbl(moment) - days) * 86400))
End Function

' The value of a cell: N, I12, R1.5, D46022:86399, Ttext.
Function ValueOf(cell)
    Dim content
    content = Mid(cell, 2)
    Select Case Left(cell, 1)
        Case "I"
            ValueOf = CLng(content)
        Case "R"
            ' The decimal separator is the user's.
            ValueOf = CDbl(Replace(content, ".", Mid(CStr(1.5), 2, 1)))
        Case "D"
            ValueOf = DateOf(content)
        Case "T"
            ValueOf = content
        Case Else
            ValueOf = Null
    End Select
End Function

Class RecordedDatabase
    Public Request
    Public RecordedError
    Public RecordedProgress
    Public Statements
    Public Executed
    Private values_
    Private arrays_
    Private failures_
    Private literals_
    Private executed_
    Private wildcard_
    Private server_

    Private Sub Class_Initialize()
        Statements = 0
        Executed = 0
        RecordedError = ""
        RecordedProgress = ""
        Set values_ = CreateObject("Scripting.Dictionary")
        Set arrays_ = CreateObject("Scripting.Dictionary")
        Set failures_ = CreateObject("Scripting.Dictionary")
        Set literals_ = CreateObject("Scripting.Dictionary")
        Set executed_ = CreateObject("Scripting.Dictionary")
    End Sub

    Public Sub Load(path)
        Dim files, lines, i, record
        Set files = CreateObject("Scripting.FileSystemObject")
        lines = Split(files.OpenTextFile(path, 1, False, -1).ReadAll, vbLf)
        For i = 0 To UBound(lines)
            If lines(i) <> "" Then
                record = FieldsOf(lines(i))
                If record(0) = "query_array" Then
                    arrays_.Add record(1), RowsOf(lines, i, CLng(record(2)), CLng(record(3)))
                Else
                    Add record
                End If
            End If
        Next
    End Sub

    ' Forgets the answer to each statement that holds the text.
    Public Sub Forget(text)
        Dim sql
        For Each sql In arrays_.Keys
            If InStr(sql, text) > 0 Then
                arrays_.Remove sql
            End If
        Next
    End Sub

    Public Function QueryValue(sql)
        Ask values_, sql
        QueryValue = values_.Item(sql)
    End Function

    Public Function QueryArray(sql)
        Ask arrays_, sql
        QueryArray = arrays_.Item(sql)
    End Function

    Public Sub Execute(sql)
        Ask executed_, sql
        Executed = Executed + 1
    End Sub

    Public Function DateLiteral(moment, flag)
        DateLiteral = literals_.Item(FieldOf(moment))
    End Function

    Public Function LikeWildcard(flag)
        LikeWildcard = wildcard_
    End Function

    Public Function ConnectionInfo(code)
        ConnectionInfo = Array("", "", "", "", "", "", "", "", "", server_)
    End Function

    Private Function FieldsOf(line)
        Dim fields, i
        fields = Split(line, vbTab)
        For i = 0 To UBound(fields)
            fields(i) = Unescaped(fields(i))
        Next
        FieldsOf = fields
    End Function

    ' Empty without a row, else (column, row).
    Private Function RowsOf(lines, first, columns, rows)
        Dim cells, record, column, row
        If rows > 0 Then
            ReDim cells(columns - 1, rows - 1)
            For row = 0 To rows - 1
                record = FieldsOf(lines(first + 1 + row))
                For column = 0 To columns - 1
                    cells(column, row) = ValueOf(record(column + 1))
                Next
            Next
            RowsOf = cells
        End If
    End Function

    Private Sub Add(record)
        Select Case record(0)
            Case "request"
                Request = record
            Case "query_value"
                values_.Add record(1), ValueOf(record(2))
            Case "failure"
                failures_.Add record(1), record
            Case "execute"
                executed_.Add record(1), True
            Case "date_literal"
                literals_.Add record(1), record(2)
            Case "like_wildcard"
                wildcard_ = record(1)
            Case "connection_info"
                server_ = record(1)
            Case "error"
                RecordedError = ScriptNumber(CLng(record(1))) & " | " & record(2) & " | " & record(3)
            Case "progress"
                RecordedProgress = record(1) & " refreshes, " & record(2) & " steps"
        End Select
    End Sub

    Private Sub Ask(answers, sql)
        Dim failure
        Statements = Statements + 1
        If failures_.Exists(sql) Then
            failure = failures_.Item(sql)
            Err.Raise CLng(failure(2)), failure(3), failure(4)
        End If
        If Not answers.Exists(sql) Then
            Err.Raise vbObjectError + 513, "RecordedDatabase", "unknown statement: " & sql
        End If
    End Sub
End Class

' Counts its calls, and keeps whether each index followed the one before, below one end.
Class Progress
    Public Refreshes
    Public Steps
    Public InOrder
    Public Count

    Private Sub Class_Initialize()
        Refreshes = 0
        Steps = 0
        InOrder = True
    End Sub

    Public Sub gRefresh()
        Refreshes = Refreshes + 1
        InOrder = InOrder And Steps = 0
    End Sub

    Public Sub gSetFortschritt(lIndex, lAnzahl)
        InOrder = InOrder And lIndex = Steps And lIndex <= lAnzahl And (Steps = 0 Or lAnzahl = Count)
        Count = lAnzahl
        Steps = Steps + 1
    End Sub

    ' The end is the number of records; for report frameworks the index of the last one, at least 1.
    Public Function ReachedEnd(section)
        ReachedEnd = Steps = 0 Or Count = Steps
        If section = 10 Then
            ReachedEnd = Steps = 0 Or Count = Steps - 1 Or (Steps = 1 And Count = 1)
        End If
    End Function

    Public Function Text()
        Text = Refreshes & " refreshes, " & Steps & " steps"
    End Function
End Class

Function LoadedDatabase(path)
    Dim database
    Set database = New RecordedDatabase
    database.Load path
    Set LoadedDatabase = database
End Function

' Asks the exporter for what the request of a recording says.
Sub RunRequest(exporter, database, request)
    exporter.psCommandline = request(REQUEST_PARAMETERS)
    exporter.pbLoeschen = (request(REQUEST_KIND) = "delete")
    exporter.gCSVAusgabe database, CLng(request(REQUEST_SECTION)), request(REQUEST_USER), _
        DateOf(request(REQUEST_FROM)), DateOf(request(REQUEST_TO)), CLng(request(REQUEST_EVENTS))
End Sub

Sub RunRecorded(exporter, database)
    RunRequest exporter, database, database.Request
End Sub

' The number by which a script knows an error: run-time errors lose the upper half.
Function ScriptNumber(number)
    ScriptNumber = number
    If (number And &HFFFF0000) = &H800A0000 Then
        ScriptNumber = number And 65535
    End If
End Function

Function ErrorText()
    ErrorText = ""
    If Err.Number <> 0 Then
        ErrorText = Err.Number & " | " & Err.Source & " | " & Err.Description
    End If
End Function

Sub SayWhether(condition, text)
    If condition Then
        report.Say text
    Else
        report.Say "NOT " & text
    End If
End Sub

Sub SayError(what)
    report.Say what & ": " & ErrorText()
    Err.Clear
End Sub

' For errors whose words are the script engine's own.
Sub SayNumber(what)
    report.Say what & ": " & Err.Number
    Err.Clear
End Sub
