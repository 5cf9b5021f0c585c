// Runs the recorded export. Arguments: the recording; "name" for a database object by name only. JScript has no
// two-dimensional arrays, so the database object is a component's. The progress object is the script's own; it only
// counts, because not every engine shows it numbers that come by reference.
var report = new ActiveXObject("ProtTest.Report");

function records(path) {
    var files = new ActiveXObject("Scripting.FileSystemObject");
    var lines = files.OpenTextFile(path, 1, false, -1).ReadAll().split("\n");
    var found = {};
    for (var i = 0; i < lines.length; i++) {
        var fields = lines[i].split("\t");
        if (!found[fields[0]]) found[fields[0]] = fields;
    }
    return found;
}

// A date as a number: the server's parameter makes a date of it.
function serial(field) {
    var parts = field.split(":");
    return Number(parts[0]) + Number(parts[1]) / 86400;
}

var progress = {
    refreshes: 0,
    steps: 0,
    gRefresh: function () {
        this.refreshes++;
    },
    gSetFortschritt: function (lIndex, lAnzahl) {
        this.steps++;
    }
};

try {
    var path = WScript.Arguments(0);
    var recorded = records(path);
    var request = recorded.request;
    var database = new ActiveXObject("ProtTest.RecordedDatabase");
    database.Load(path);
    if (WScript.Arguments.Count() > 1 && WScript.Arguments(1) === "name") database.ByNameOnly();

    var exporter = new ActiveXObject("srvProtQRBCsv.ProtCsvClass");
    exporter.poParent = progress;
    exporter.psCommandline = request[6];
    exporter.gCSVAusgabe(database, Number(request[1]), request[2], serial(request[3]), serial(request[4]),
                         Number(request[5]));
    var expected = recorded.progress[1] + " refreshes, " + recorded.progress[2] + " steps";
    var counted = progress.refreshes + " refreshes, " + progress.steps + " steps";
    report.Say((expected === counted ? "" : "NOT ") + "progress is the recorded one: " + counted);
} catch (error) {
    report.Say("error: " + error.number + " | " + error.description);
}
report.Say("done");
