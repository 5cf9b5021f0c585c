// Exports a section of the master-data log to a CSV file, without dialog.
//
//   cscript //nologo export.js "Provider=MSOLEDBSQL;Data Source=SRV;Initial Catalog=Fibu;Integrated Security=SSPI" 15 C:\Protokolle
//
// Arguments: connection string, number of the section (6 open items, 8 suppliers, 9 customers, 10 report frameworks, 15 exchange rates), folder of the
// file (the environment variable PROTCSV_AUSGABE goes before it); for sections with clients further keys, such as
// /mandant:123. The language has no arrays of two dimensions of its own, but it can pass on the one
// that GetRows makes.

function Database(text) {
    var connection = new ActiveXObject("ADODB.Connection");
    connection.Open(text);

    function two(number) { return (number < 10 ? "0" : "") + number; }

    // First column of the first row, null without a row.
    this.QueryValue = function (sql) {
        var rows = connection.Execute(sql);
        var value = rows.EOF ? null : rows.Fields(0).Value;
        rows.Close();
        return value;
    };

    // All rows as an array (column, row), undefined without a row.
    this.QueryArray = function (sql) {
        var rows = connection.Execute(sql);
        var all;
        if (!rows.EOF) all = rows.GetRows();
        rows.Close();
        return all;
    };

    this.Execute = function (sql) { connection.Execute(sql); };

    // A date as SQL Server reads it under every language setting.
    this.DateLiteral = function (moment, flag) {
        var d = new Date(moment);
        return "{ts '" + d.getFullYear() + "-" + two(d.getMonth() + 1) + "-" + two(d.getDate()) + " " +
            two(d.getHours()) + ":" + two(d.getMinutes()) + ":" + two(d.getSeconds()) + "'}";
    };

    this.LikeWildcard = function (flag) { return "%"; };
}

// The progress object; both members are needed. Index and count arrive by reference, which not every engine of the
// language can read, so it counts for itself.
var records = 0;
var progress = {
    gRefresh: function () {},
    gSetFortschritt: function () {
        if (++records % 1000 === 0) WScript.Echo(records + " S\u00e4tze");
    }
};

if (WScript.Arguments.Length < 3) {
    WScript.Echo("Aufruf: export.js VERBINDUNG BEREICH ORDNER [AUSWAHL]");
    WScript.Quit(2);
}
new ActiveXObject("WScript.Shell").CurrentDirectory = WScript.Arguments(2);

var section = parseInt(WScript.Arguments(1), 10);
var server = new ActiveXObject("srvProtQRBCsv.ProtCsvClass");
server.poParent = progress;
server.psCommandline = "/sektion:" + section + "/autostart" + (WScript.Arguments.Length > 3 ? WScript.Arguments(3) : "");
try {
    // user (empty: all), first and last day (0: open), events 1 created + 2 changed + 4 deleted
    server.gCSVAusgabe(new Database(WScript.Arguments(0)), section, "", 0, 0, 7);
    WScript.Echo("Fertig.");
} catch (error) {
    WScript.Echo("Fehler " + (error.number >>> 0).toString(16).toUpperCase() + ": " + error.description);
    WScript.Quit(1);
}
