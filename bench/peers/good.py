#!/usr/bin/env python3
"""Exports the exchange-rate log of a database file as protcsv does, as fast as the standard library allows.

Usage: good.py DATABASE FILE

Lookups come from memory, what repeats is put into its final form once, lines are joined and written in pieces, and
the rows stream: memory does not grow with them. The documents are parsed by ElementTree, in C, many at a time.
"""

import gc
import os
import pathlib
import re
import sqlite3
import sys
from xml.etree.ElementTree import ParseError, fromstring

HEADER = (
    "ISO Währungscode;Bezeichnung;Gültig ab;Datum der Änderung;Mitarbeiter;Feld der Änderung;Aktion;alter Wert;"
    "neuer Wert;Arbeitsstation;Applikation;Datenbankbenutzer\r\n"
)
EVENTS = {0: ";angelegt;", 1: ";geändert;", 2: ";gelöscht;", None: ";angelegt;"}
SUPPRESSED = {"ddDatumAend", "flMitarbeiter", "idDevisenKurs", "flDevisenWaehr", "ddGueltigAb"}
ROWS_PER_PIECE = 200
GAP = "<gap/>"

needs_care = re.compile('[;"\r\n]|^[=+\\-@\t]').search
needs_quotes = re.compile('[;"\r\n]').search
runs_as_formula = re.compile("(?![+-]?[0-9]+[.,]?[0-9]*\\Z|[+-]?[.,][0-9]+\\Z)[=+\\-@\t\r]").match


def cell(value):
    """A value as a cell of the file; for what repeats and for what needs_care."""
    text = "" if value is None else str(value)
    if runs_as_formula(text):
        text = "'" + text
    return '"' + text.replace('"', '""') + '"' if needs_quotes(text) else text


def date_text(value):
    """2025-02-01 08:30:00 as 01.02.2025 08:30:00; without the time at midnight, without the day on day zero."""
    if value is None:
        return ""
    day, time = value[:10], value[11:] or "00:00:00"
    if day == "1899-12-30":
        return time
    german = f"{day[8:]}.{day[5:7]}.{day[:4]}"
    return german if time == "00:00:00" else f"{german} {time}"


class Memory(dict):
    """Answers of `ask`, each asked once."""

    def __init__(self, ask):
        super().__init__()
        self.ask = ask

    def __missing__(self, key):
        answer = self[key] = self.ask(key)
        return answer


def captions_of(connection, table):
    """From the name of a field to its caption as a cell; empty for those that get no line."""
    found = {
        name.lower(): cell(caption)
        for name, caption in connection.execute(
            "SELECT dcColumnName, dmDescription FROM tSysQuvoColumns INNER JOIN tSysQuvoTables"
            " ON flTable = IDSysQuvoTables WHERE dcTableName = ?", (table,))
    }
    return Memory(lambda field: "" if field in SUPPRESSED or not field else found.get(field.lower(), ""))


def record_ends(server):
    """From (user, login, workstation, application) to the user's cell and the last three cells of the line."""
    def ends(key):
        user, login, workstation, application = key
        database_user = "Standardbenutzer"
        if (user or "").startswith("_UNBEKANNT_"):
            user = "ohne Anmeldung an " + server
            if (login or "").lower() != "quvosqldbserver":
                database_user = login
        return cell(user), f";{cell(workstation)};{cell(application)};{cell(database_user)}\r\n"
    return Memory(ends)


def text_of(element):
    """The value of an OldValue or NewValue, as a cell."""
    if element is None:
        return ""
    text = "".join(element.itertext()) if len(element) else element.text
    if not text or text == "NULL":
        return ""
    return cell(text) if needs_care(text) else text


def columns_of(document):
    """The elements below the first Cols; none when the document does not load."""
    if not document or "<!DOCTYPE" in document:
        return ()
    try:
        return columns_below(fromstring(document))
    except ParseError:
        return ()


def columns_below(root):
    return root if root.tag == "Cols" else next(root.iter("Cols"), ())


def columns_of_all(documents):
    """columns_of each of `documents`, parsed as one document: making a parser for each costs as much as parsing.

    An element between them, and no text, shows that each is whole by itself; if not, they are parsed one by one.
    """
    try:
        parsed = fromstring("<all>" + GAP.join(documents) + "</all>")
    except (ParseError, TypeError):  # one does not load, or is missing
        return [columns_of(document) for document in documents]
    whole = len(parsed) == 2 * len(documents) - 1 and all(gap.tag == "gap" for gap in parsed[1::2])
    if not whole or parsed.text or any(element.tail for element in parsed):
        return [columns_of(document) for document in documents]
    return [columns_below(root) for root in parsed[::2]]


def piece_maker(connection, server):
    """From a list of rows to their lines."""
    currencies = {
        key: f"{cell(code)};{cell(name)};"
        for key, code, name in connection.execute("SELECT idDevisenWaehr, dcISOKennz, dcBezeichnung FROM tDevisenWaehr")
    }
    rates = {
        key: date_text(date) for key, date in connection.execute("SELECT idDevisenKurs, ddGueltigAb FROM TDEVISENKURS")
    }
    captions = Memory(lambda table: captions_of(connection, table))
    ends = record_ends(server)

    def lines_of(rows):
        lines = []
        for row, columns in zip(rows, columns_of_all([row[5] for row in rows])):
            table, workstation, user, date, event, _, login, application, rate, currency = row
            user, end = ends[user, login, workstation, application]
            start = (f"{currencies.get(currency, 'nicht vorhanden;;')}{rates.get(rate, 'nicht vorhanden')};"
                     f"{date_text(date)};{user};")
            action = EVENTS[event]
            captions_of_table = captions[table]
            for column in columns:
                if column.tag != "Col":
                    continue
                caption = captions_of_table[column.get("Name")]
                if caption:
                    lines.append(f"{start}{caption}{action}{text_of(column.find('OldValue'))};"
                                 f"{text_of(column.find('NewValue'))}{end}")
        return "".join(lines)

    return lines_of


def selected_rows(connection, lowest, highest):
    table, = connection.execute(
        "SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 15").fetchone()
    return connection.execute(
        "SELECT dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser, dcApplication, dlSuchId1,"
        f" dlSuchId2 FROM {table} WHERE dcTable = 'TDEVISENKURS' AND dlSuchId2 IN"
        " (SELECT idDevisenWaehr FROM tDevisenWaehr WHERE dcISOKennz BETWEEN ? AND ?)"
        " ORDER BY ddDatum", (lowest, highest))


def export(database, path):
    connection = sqlite3.connect(pathlib.Path(database).absolute().as_uri() + "?mode=ro", uri=True)
    codes = [code for code, in connection.execute("SELECT dcISOKennz FROM tDevisenWaehr ORDER BY dcISOKennz")]
    lowest, highest = (codes[0], codes[-1]) if codes else ("Fehlt!", "Fehlt!")
    rows = selected_rows(connection, lowest, highest)
    piece = rows.fetchmany(ROWS_PER_PIECE)
    with open(path, "wb") as file:
        file.write(b"\xef\xbb\xbf")
        if not piece:
            file.write(b"Keine Daten vorhanden!\r\n\r\n\r\n\r\n")
            return
        text = cell(f"Von ISO Währungscode: {lowest} bis ISO Währungscode: {highest}") + ";" * 11 + "\r\n" + HEADER
        file.write(text.encode())
        lines_of = piece_maker(connection, os.path.basename(database))
        while piece:
            file.write(lines_of(piece).encode())
            piece = rows.fetchmany(ROWS_PER_PIECE)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    gc.disable()  # nothing here makes cycles, and looking for them takes time
    export(sys.argv[1], sys.argv[2])
