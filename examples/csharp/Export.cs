// Exports a section of the master-data log to a CSV file, without dialog.
//
//   csc /platform:x64 Export.cs
//   Export.exe "Provider=MSOLEDBSQL;Data Source=SRV;Initial Catalog=Fibu;Integrated Security=SSPI" 15 C:\Protokolle
//
// Arguments: connection string, number of the section (6 open items, 8 suppliers, 9 customers, 10 report frameworks, 15 exchange rates), folder of the
// file; for sections with clients further keys, such as /mandant:123. Build for the library's word size.
using System;
using System.Collections.Generic;
using System.Data.OleDb;
using System.Globalization;
using System.Runtime.InteropServices;

/// The database object that the server asks. Every statement of the server goes through it.
[ComVisible(true), ClassInterface(ClassInterfaceType.AutoDispatch)]
public class Database
{
    private readonly OleDbConnection connection;

    public Database(string text)
    {
        connection = new OleDbConnection(text);
        connection.Open();
    }

    /// First column of the first row, Null without a row.
    public object QueryValue(string sql)
    {
        using (var command = new OleDbCommand(sql, connection))
            return command.ExecuteScalar() ?? DBNull.Value;
    }

    /// All rows as an array (column, row), Empty without a row.
    public object QueryArray(string sql)
    {
        var rows = new List<object[]>();
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

    /// A date as SQL Server reads it under every language setting.
    public string DateLiteral(DateTime moment, int flag)
    {
        return "{ts '" + moment.ToString("yyyy-MM-dd HH:mm:ss", CultureInfo.InvariantCulture) + "'}";
    }

    public string LikeWildcard(int flag) { return "%"; }
}

/// The progress object; both members are needed.
[ComVisible(true), ClassInterface(ClassInterfaceType.AutoDispatch)]
public class Progress
{
    public void gRefresh() { }

    public void gSetFortschritt(ref int index, ref int count)
    {
        if (index % 1000 == 0) Console.WriteLine(index + " von " + count);
    }
}

public static class Program
{
    [STAThread]
    public static int Main(string[] arguments)
    {
        if (arguments.Length != 3)
        {
            Console.Error.WriteLine("Aufruf: Export VERBINDUNG BEREICH ORDNER [AUSWAHL]");
            return 2;
        }
        int section = int.Parse(arguments[1], CultureInfo.InvariantCulture);
        Environment.SetEnvironmentVariable("PROTCSV_AUSGABE", System.IO.Path.GetFullPath(arguments[2]));

        dynamic server = Activator.CreateInstance(Type.GetTypeFromProgID("srvProtQRBCsv.ProtCsvClass", true));
        server.poParent = new Progress();
        server.psCommandline = "/sektion:" + section + "/autostart" + (arguments.Length > 3 ? arguments[3] : "");
        try
        {
            // user (empty: all), first and last day (0: open), events 1 created + 2 changed + 4 deleted
            server.gCSVAusgabe(new Database(arguments[0]), section, "", DateTime.FromOADate(0), DateTime.FromOADate(0), 7);
        }
        // Not only COMException: .NET has exceptions of its own for some numbers, such as IOException for a file.
        catch (Exception error)
        {
            Console.Error.WriteLine("Fehler {0:X8}: {1}", error.HResult, error.Message);
            return 1;
        }
        Console.WriteLine("Fertig.");
        return 0;
    }
}
