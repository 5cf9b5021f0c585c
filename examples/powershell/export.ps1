# Exports a section of the master-data log to a CSV file, without dialog.
#
#   .\export.ps1 -Verbindung "Provider=MSOLEDBSQL;Data Source=SRV;Initial Catalog=Fibu;Integrated Security=SSPI" -Bereich 15 -Ordner C:\Protokolle
#
# Sections: 6 open items, 8 suppliers, 9 customers, 10 report frameworks, 15 exchange rates; those with clients take further keys, such as -Auswahl /mandant:123.
# PowerShell objects are no COM objects; a few lines of C# make the two host objects. Use the Windows
# PowerShell (5.1) of the library's word size (the 32-bit one lies in SysWOW64).
#requires -Version 5.1 -PSEdition Desktop
param(
    [Parameter(Mandatory)] [string] $Verbindung,
    [Parameter(Mandatory)] [int] $Bereich,
    [string] $Ordner = '.',
    [string] $Auswahl = '',
    [string] $Mitarbeiter = '',
    [datetime] $Von = [datetime]::FromOADate(0),
    [datetime] $Bis = [datetime]::FromOADate(0)
)
$ErrorActionPreference = 'Stop'

Add-Type -ReferencedAssemblies System.Data, System.Xml -TypeDefinition @'
using System;
using System.Data.OleDb;
using System.Runtime.InteropServices;

[ComVisible(true), ClassInterface(ClassInterfaceType.AutoDispatch)]
public class Database
{
    private readonly OleDbConnection connection;

    public Database(string text)
    {
        connection = new OleDbConnection(text);
        connection.Open();
    }

    // First column of the first row, Null without a row.
    public object QueryValue(string sql)
    {
        using (var command = new OleDbCommand(sql, connection))
            return command.ExecuteScalar() ?? DBNull.Value;
    }

    // All rows as an array (column, row), Empty without a row.
    public object QueryArray(string sql)
    {
        var rows = new System.Collections.Generic.List<object[]>();
        using (var command = new OleDbCommand(sql, connection))
        using (var reader = command.ExecuteReader())
            while (reader.Read())
            {
                var row = new object[reader.FieldCount];
                reader.GetValues(row);
                rows.Add(row);
            }
        if (rows.Count == 0) return null;
        var all = new object[rows[0].Length, rows.Count];
        for (int row = 0; row < rows.Count; row++)
            for (int column = 0; column < rows[row].Length; column++)
                all[column, row] = rows[row][column];
        return all;
    }

    public void Execute(string sql)
    {
        using (var command = new OleDbCommand(sql, connection))
            command.ExecuteNonQuery();
    }

    // A date as SQL Server reads it under every language setting.
    public string DateLiteral(DateTime moment, int flag)
    {
        return "{ts '" + moment.ToString("yyyy-MM-dd HH:mm:ss", System.Globalization.CultureInfo.InvariantCulture) + "'}";
    }

    public string LikeWildcard(int flag) { return "%"; }
}

[ComVisible(true), ClassInterface(ClassInterfaceType.AutoDispatch)]
public class Progress
{
    public void gRefresh() { }

    public void gSetFortschritt(ref int index, ref int count)
    {
        if (index % 1000 == 0) Console.WriteLine(index + " von " + count);
    }
}
'@

$env:PROTCSV_AUSGABE = (Resolve-Path -LiteralPath $Ordner).ProviderPath
$server = New-Object -ComObject srvProtQRBCsv.ProtCsvClass
$server.poParent = New-Object Progress
$server.psCommandline = "/sektion:$Bereich/autostart$Auswahl"
try {
    # events 1 created + 2 changed + 4 deleted
    $server.gCSVAusgabe((New-Object Database $Verbindung), $Bereich, $Mitarbeiter, $Von, $Bis, 7)
    'Fertig.'
} catch {
    # Not only COMException: .NET has exceptions of its own for some numbers, such as IOException for a file.
    $fault = $_.Exception.GetBaseException()
    Write-Error ('Fehler {0:X8}: {1}' -f $fault.HResult, $fault.Message)
}
