#!/usr/bin/env python3
"""Exports the exchange-rate log of a database file as protcsv does, written the straightforward way.

Usage: plain_rates.py DATABASE FILE

One query for each lookup, one after the other, a line at a time: what somebody writes who needs the file once.
"""

from plain_export import (COMMON_HEADER, EVENTS, changed_columns, date_text, first_row, general_caption, log_table, main,
                          opened_file, text_of, user_texts, write_line)

HEADER = ["ISO Währungscode", "Bezeichnung", "Gültig ab", *COMMON_HEADER]
SUPPRESSED = ["ddDatumAend", "flMitarbeiter", "idDevisenKurs", "flDevisenWaehr", "ddGueltigAb"]


def currency_of(connection, key):
    row = first_row(connection, "SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr WHERE idDevisenWaehr = ?", key)
    return (text_of(row[0]), text_of(row[1])) if row else ("nicht vorhanden", "")


def valid_from(connection, key):
    row = first_row(connection, "SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = ?", key)
    return date_text(row[0]) if row else "nicht vorhanden"


def caption_of(connection, table, field):
    """The caption of a field; empty for those that have none or are never exported."""
    return "" if field in SUPPRESSED else general_caption(connection, table, field)


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
    table = log_table(connection, 15)
    return connection.execute(
        f"SELECT id{table[1:]}, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser,"
        f" dcApplication, dlPrimaryKey1, dlSuchId1, dlSuchId2, dlSuchId3, dlSuchId4 FROM {table}"
        " WHERE dcTable = 'TDEVISENKURS' AND dlSuchId2 IN"
        " (SELECT idDevisenWaehr FROM tDevisenWaehr WHERE dcISOKennz BETWEEN ? AND ?)"
        " ORDER BY ddDatum", (lowest, highest)).fetchall()


def export(connection, server, path):
    codes = [code for code, in connection.execute("SELECT dcISOKennz FROM tDevisenWaehr ORDER BY dcISOKennz")]
    lowest, highest = (codes[0], codes[-1]) if codes else ("Fehlt!", "Fehlt!")
    rows = selected_rows(connection, lowest, highest)
    with opened_file(path) as file:
        if not rows:
            file.write("Keine Daten vorhanden!\r\n\r\n\r\n\r\n")
            return
        write_line(file, [f"Von ISO Währungscode: {lowest} bis ISO Währungscode: {highest}"] + [""] * 11)
        write_line(file, HEADER)
        for row in rows:
            write_record(connection, file, server, row)


if __name__ == "__main__":
    main(export, __doc__)
