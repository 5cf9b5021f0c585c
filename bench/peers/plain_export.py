"""What the straightforward scripts share: cells, dates, users, change documents, captions, the file."""

import os
import pathlib
import sqlite3
import sys
import xml.etree.ElementTree as ElementTree

COMMON_HEADER = [
    "Datum der Änderung", "Mitarbeiter", "Feld der Änderung", "Aktion", "alter Wert", "neuer Wert", "Arbeitsstation",
    "Applikation", "Datenbankbenutzer",
]
EVENTS = {0: "angelegt", 1: "geändert", 2: "gelöscht"}


def is_number(text):
    digits = text[1:] if text[0] in "+-" else text
    marks = digits.count(".") + digits.count(",")
    figures = digits.replace(".", "").replace(",", "")
    return marks <= 1 and figures.isascii() and figures.isdigit()


def csv_cell(text):
    if text and text[0] in "=+-@\t\r" and not is_number(text):
        text = "'" + text  # a spreadsheet must not run it
    if any(character in text for character in ';"\r\n'):
        text = '"' + text.replace('"', '""') + '"'
    return text


def write_line(file, cells):
    file.write(";".join(csv_cell(cell) for cell in cells) + "\r\n")


def text_of(value):
    return "" if value is None else str(value)


def date_text(value):
    """2025-02-01 08:30:00 as 01.02.2025 08:30:00; without the time at midnight, without the day on day zero."""
    if value is None:
        return ""
    day, _, time = value.partition(" ")
    time = time or "00:00:00"
    if day == "1899-12-30":
        return time
    year, month, day = day.split("-")
    return f"{day}.{month}.{year}" + ("" if time == "00:00:00" else " " + time)


def first_row(connection, sql, *values):
    return connection.execute(sql, values).fetchone()


def log_table(connection, section):
    return first_row(connection, "SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = ?", section)[0]


def general_caption(connection, table, field):
    """The caption of a field, empty for one that has none."""
    row = first_row(
        connection,
        "SELECT tSysQuvoColumns.dmDescription FROM tSysQuvoColumns INNER JOIN tSysQuvoTables"
        " ON tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables"
        " WHERE tSysQuvoTables.dcTableName = ? AND tSysQuvoColumns.dcColumnName = ?", table, field)
    return text_of(row[0]) if row else ""


def user_texts(user, login, server):
    """What a reader sees as employee and as database user."""
    if not user.startswith("_UNBEKANNT_"):
        return user, "Standardbenutzer"
    return "ohne Anmeldung an " + server, "Standardbenutzer" if login.lower() == "quvosqldbserver" else login


def value_at(column, name):
    element = column.find(name)
    value = "" if element is None else "".join(element.itertext())
    return "" if value == "NULL" else value


def columns_of(document):
    """The elements of the changed columns; None when the document does not load."""
    if not document or "<!DOCTYPE" in document:
        return None
    try:
        root = ElementTree.fromstring(document)
    except ElementTree.ParseError:
        return None
    return [column for column in next(root.iter("Cols"), []) if column.tag == "Col"]


def changed_columns(document):
    """Name, old and new value of each changed column."""
    return [(column.get("Name", ""), value_at(column, "OldValue"), value_at(column, "NewValue"))
            for column in columns_of(document) or []]


def opened_file(path):
    return open(path, "w", encoding="utf-8-sig", newline="")


def main(export, usage):
    """Runs `export` with the connection, the server's name and the path of the file."""
    if len(sys.argv) != 3:
        sys.exit(usage)
    connection = sqlite3.connect(pathlib.Path(sys.argv[1]).absolute().as_uri() + "?mode=ro", uri=True)
    export(connection, os.path.basename(sys.argv[1]), sys.argv[2])
