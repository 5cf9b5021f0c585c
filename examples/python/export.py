"""Exports a section of the master-data log to a CSV file, without dialog. Needs pywin32.

    python export.py "Provider=MSOLEDBSQL;Data Source=SRV;Initial Catalog=Fibu;Integrated Security=SSPI" 15 C:\\Protokolle

Arguments: connection string, number of the section (6 open items, 8 suppliers, 9 customers, 10 report frameworks, 15 exchange rates), folder of the file;
for sections with clients further keys, such as /mandant:123.
"""

import datetime
import os
import sys

import pythoncom
import win32com.client
from win32com.server.util import wrap


# Day 0 of automation dates, which leaves a side of the range open; a number is no date for pywin32.
OPEN = datetime.datetime(1899, 12, 30, tzinfo=datetime.timezone.utc)


class Database:
    """The database object that the server asks. Every statement of the server goes through it."""

    _public_methods_ = ["QueryValue", "QueryArray", "Execute", "DateLiteral", "LikeWildcard"]

    def __init__(self, text):
        self.connection = win32com.client.Dispatch("ADODB.Connection")
        self.connection.Open(text)

    def _rows(self, sql):
        rows = self.connection.Execute(sql)
        # Execute answers a pair when its further arguments come back as well.
        return rows[0] if isinstance(rows, tuple) else rows

    def QueryValue(self, sql):
        """First column of the first row, Null without a row."""
        rows = self._rows(sql)
        value = None if rows.EOF else rows.Fields(0).Value
        rows.Close()
        return value

    def QueryArray(self, sql):
        """All rows as an array (column, row), Null without a row."""
        rows = self._rows(sql)
        all_rows = None if rows.EOF else rows.GetRows()
        rows.Close()
        return all_rows

    def Execute(self, sql):
        self.connection.Execute(sql)

    def DateLiteral(self, moment, flag):
        """A date as SQL Server reads it under every language setting."""
        return moment.strftime("{ts '%Y-%m-%d %H:%M:%S'}")

    def LikeWildcard(self, flag):
        return "%"


class Progress:
    """The progress object; both members are needed."""

    _public_methods_ = ["gRefresh", "gSetFortschritt"]

    def gRefresh(self):
        pass

    def gSetFortschritt(self, index, count):
        if index % 1000 == 0:
            print(f"{index} von {count}")


def main():
    if len(sys.argv) < 4:
        sys.exit("Aufruf: export.py VERBINDUNG BEREICH ORDNER [AUSWAHL]")
    connection, section, folder = sys.argv[1], int(sys.argv[2]), sys.argv[3]
    os.environ["PROTCSV_AUSGABE"] = os.path.abspath(folder)

    server = win32com.client.Dispatch("srvProtQRBCsv.ProtCsvClass")
    server.poParent = wrap(Progress())
    server.psCommandline = f"/sektion:{section}/autostart" + "".join(sys.argv[4:])
    try:
        # user (empty: all), first and last day, events 1 created + 2 changed + 4 deleted
        server.gCSVAusgabe(wrap(Database(connection)), section, "", OPEN, OPEN, 7)
    except pythoncom.com_error as error:
        number, text, details, _ = error.args
        if details:
            number, text = details[5], details[2]
        sys.exit(f"Fehler {number & 0xFFFFFFFF:08X}: {text}")
    print("Fertig.")


if __name__ == "__main__":
    main()
