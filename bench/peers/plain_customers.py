#!/usr/bin/env python3
"""Exports the customers' log of client 123 as protcsv does, written the straightforward way.

Usage: plain_customers.py DATABASE FILE

One query for each lookup, one after the other, a line at a time: what somebody writes who needs the file once.
"""

from datetime import datetime, timedelta

from customers_rules import (CLIENT, CLIENT_NUMBER, IDS, LIVE, NO_DATA, NOT_FOUND, PERSON_IN_LOG, UNDEFINED,
                             caption_by_rule, filter_text, id_in, select_customers, selected_by)
from plain_export import (COMMON_HEADER, EVENTS, changed_columns, columns_of, date_text, first_row, general_caption,
                          log_table, main, opened_file, text_of, user_texts, write_line)

HEADER = ["Kunden-Nr", "Bezeichnung", *COMMON_HEADER]


def earlier(moment, seconds):
    return str(datetime.fromisoformat(moment) - timedelta(seconds=seconds))


def old_value(document, column):
    columns = columns_of(document)
    if columns is None:
        return UNDEFINED
    found = [each.find("OldValue") for each in columns if each.get("Name") == column]
    return next(("".join(each.itertext()) for each in found if each is not None), "")


def value_then(connection, table, key_column, column, key, moment):
    """What `column` of a record held at `moment`: by its next change, the live record, or its deletion."""
    changes = ("SELECT dmData FROM tProtokoll WHERE dcTable = ? AND dlPrimaryKey1 = ? AND dmData LIKE ? AND {}"
               " ORDER BY ddDatum LIMIT 1")
    of_column = (table, key, f'%Name="{column}"><OldValue>%')
    change = first_row(connection, changes.format("ddDatum >= ?"), *of_column, earlier(moment, 1))
    if not change:
        live = first_row(connection, f"SELECT {column} FROM {table} WHERE {key_column} = ?", key)
        if live:
            return text_of(live[0])
        change = first_row(connection, changes.format("dlEvent = ?"), *of_column, 2)
    return old_value(change[0], column) if change else UNDEFINED


def person_of(connection, table, key):
    """By the log; 0 for nobody."""
    if table == "PERSON_V4":
        return key
    if table not in PERSON_IN_LOG:
        return 0
    link, column = PERSON_IN_LOG[table]
    row = first_row(connection, f"SELECT {column} FROM tProtokoll WHERE dcTable = ? AND dlPrimaryKey1 = ?", link, key)
    return row and row[0] or 0


def live_customer(connection, table, key):
    """Number and name, or None."""
    join, key_column = LIVE[table]
    row = first_row(connection, f"SELECT KUN_NR, Pl_Bezeichnung FROM {join} WHERE {key_column} = ?", key)
    return row and (text_of(row[0]), text_of(row[1]))


def deleted_customer(connection, person, moment):
    log = "SELECT {} FROM tProtokoll WHERE dcTable = ? AND dlSuchId1 = ?"
    number = first_row(connection, log.format("dlSuchId4"), "KUNDEN_V4", person)
    data = first_row(connection, log.format("dlPrimaryKey1"), "PERSONALIE", person)
    name = ""
    for seconds in (0, 5) if moment else ():  # the name may be gone since a few seconds
        name = name or value_then(connection, "PERSONALIE", "PL_ID", "Pl_Bezeichnung", data[0] if data else 0,
                                  earlier(moment, seconds))
    return text_of(number and number[0]), name or NOT_FOUND


def customer_of(connection, table, key, moment):
    """Number and name of the customer whom a log row concerns."""
    if table == "TKULIEFKOND":
        name = value_then(connection, table, "IDKLK", "dcBezeichnung", key, moment) if moment else ""
        return (" - ", name) if name else ("", NOT_FOUND)
    customer = live_customer(connection, table, key)
    if customer:
        return customer
    person = person_of(connection, table, key)
    if not person:
        return "", NOT_FOUND
    return live_customer(connection, "PERSON_V4", person) or deleted_customer(connection, person, moment)


def caption_of(connection, table, field):
    words = caption_by_rule(table, field.upper())
    return general_caption(connection, table, field) if words is None else words


def translated(connection, field, value, moment):
    """The value as a reader sees it: ids as names, nothing as "leer"."""
    key = id_in(value)
    if not value or not moment or field.upper() not in IDS or key is None:
        return value or "leer"
    none, table, key_column, columns = IDS[field.upper()]
    if key == 0:
        return none
    name = ""
    for column in columns:
        name += (" " if name else "") + value_then(connection, table, key_column, column, key, moment)
    return name or value


def write_record(connection, file, server, row):
    table, workstation, user, date, event, document, login, application, key = row
    number, name = customer_of(connection, table, key or 0, date)
    user, login = user_texts(text_of(user), text_of(login), server)
    for field, old_value, new_value in changed_columns(document):
        caption = caption_of(connection, table, field)
        if not caption:
            continue
        write_line(file, [
            number, name, date_text(date), user, caption, EVENTS[event or 0],
            translated(connection, field, old_value, date), translated(connection, field, new_value, date),
            text_of(workstation), text_of(application), login,
        ])


def export(connection, server, path):
    client, name = first_row(connection, CLIENT, CLIENT_NUMBER)
    select_customers(connection, client)
    rows = connection.execute(
        "SELECT upper(dcTable), dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser, dcApplication,"
        f" dlPrimaryKey1 FROM {log_table(connection, 9)} WHERE {selected_by(client)} ORDER BY ddDatum").fetchall()
    with opened_file(path) as file:
        if not rows:
            file.write(NO_DATA)
            return
        write_line(file, [filter_text(name)] + [""] * 10)
        write_line(file, HEADER)
        for row in rows:
            write_record(connection, file, server, row)


if __name__ == "__main__":
    main(export, __doc__)
