#!/usr/bin/env python3
"""Exports the exchange-rate log of a database file as protcsv does, written the straightforward way.

Usage: plain.py DATABASE FILE

One query for each lookup, one after the other, a line at a time: what somebody writes who needs the file once.
"""

import os
import pathlib
import sqlite3
import sys
import xml.etree.ElementTree as ElementTree

HEADER = [
    "ISO Währungscode", "Bezeichnung", "Gültig ab", "Datum der Änderung", "Mitarbeiter", "Feld der Änderung",
    "Aktion", "alter Wert", "neuer Wert", "Arbeitsstation", "Applikation", "Datenbankbenutzer",
]
EVENTS = {0: "angelegt", 1: "geändert", 2: "gelöscht"}
SUPPRESSED = ["ddDatumAend", "flMitarbeiter", "idDevisenKurs", "flDevisenWaehr", "ddGueltigAb"]


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


def currency_of(connection, key):
    row = first_row(connection, "SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr WHERE idDevisenWaehr = ?", key)
    return (text_of(row[0]), text_of(row[1])) if row else ("nicht vorhanden", "")


def valid_from(connection, key):
    row = first_row(connection, "SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = ?", key)
    return date_text(row[0]) if row else "nicht vorhanden"


def caption_of(connection, table, field):
    """The caption of a field; empty for those that have none or are never exported."""
    if field in SUPPRESSED:
        return ""
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


def changed_columns(document):
    """Name, old and new value of each changed column; none when the document does not load."""
    if not document or "<!DOCTYPE" in document:
        return []
    try:
        root = ElementTree.fromstring(document)
    except ElementTree.ParseError:
        return []
    columns = next(root.iter("Cols"), [])
    return [(column.get("Name", ""), value_at(column, "OldValue"), value_at(column, "NewValue"))
            for column in columns if column.tag == "Col"]


def write_record(connection, file, server, row):
    _, table, workstation, user, date, event, document, login, application, _, rate, currency, _, _ = row
    iso_code, name = currency_of(connection, currency or 0)
    valid = valid_from(connection, rate or 0)
    user, login = user_texts(text_of(user), text_of(login), server)
    for field, old_value, new_value in changed_columns(document):
        caption = caption_of(connection, table, field)
        if not caption:
            continue
        write_line(file, [
            iso_code, name, valid, date_text(date), user, caption, EVENTS[event or 0], old_value, new_value,
            text_of(workstation), text_of(application), login,
        ])


def selected_rows(connection, lowest, highest):
    table, = first_row(connection, "SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 15")
    return connection.execute(
        f"SELECT id{table[1:]}, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser,"
        f" dcApplication, dlPrimaryKey1, dlSuchId1, dlSuchId2, dlSuchId3, dlSuchId4 FROM {table}"
        " WHERE dcTable = 'TDEVISENKURS' AND dlSuchId2 IN"
        " (SELECT idDevisenWaehr FROM tDevisenWaehr WHERE dcISOKennz BETWEEN ? AND ?)"
        " ORDER BY ddDatum", (lowest, highest)).fetchall()


def export(database, path):
    connection = sqlite3.connect(pathlib.Path(database).absolute().as_uri() + "?mode=ro", uri=True)
    codes = [code for code, in connection.execute("SELECT dcISOKennz FROM tDevisenWaehr ORDER BY dcISOKennz")]
    lowest, highest = (codes[0], codes[-1]) if codes else ("Fehlt!", "Fehlt!")
    rows = selected_rows(connection, lowest, highest)
    with open(path, "w", encoding="utf-8-sig", newline="") as file:
        if not rows:
            file.write("Keine Daten vorhanden!\r\n\r\n\r\n\r\n")
            return
        write_line(file, [f"Von ISO Währungscode: {lowest} bis ISO Währungscode: {highest}"] + [""] * 11)
        write_line(file, HEADER)
        for row in rows:
            write_record(connection, file, os.path.basename(database), row)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    export(sys.argv[1], sys.argv[2])
