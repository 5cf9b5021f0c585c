#!/usr/bin/env python3
"""Exports the customers' log of client 123 as protcsv does, as fast as the standard library allows.

Usage: good_customers.py DATABASE FILE

The live customers come from memory; what the log tells about the others, and which names a record has had, is read
once for each. What repeats is put into its final form once, lines are joined and written in pieces.
"""

from bisect import bisect_left
from datetime import datetime, timedelta

from customers_rules import (CLIENT, CLIENT_NUMBER, IDS, LIVE, NO_DATA, NOT_FOUND, PERSON_IN_LOG, UNDEFINED,
                             caption_by_rule, filter_text, id_in, select_customers, selected_by)
from good_export import (COMMON_HEADER, EVENTS, Memory, captions_of, cell, columns_of, columns_of_all, date_text,
                         log_table, main, raw_text, record_ends, text_of, write_file)

HEADER = "Kunden-Nr;Bezeichnung;" + COMMON_HEADER
NOBODY = f";{NOT_FOUND};"


def later(moment, seconds):
    return str(datetime.fromisoformat(moment) + timedelta(seconds=seconds))


def first_value(connection, sql, *values):
    """Of the first row; None without one."""
    row = connection.execute(sql, values).fetchone()
    return row[0] if row else None


def old_value(document, column):
    """What the document says was in `column`; a document that does not load says nothing."""
    columns = columns_of(document)
    if columns == ():
        return UNDEFINED
    found = [each.find("OldValue") for each in columns if each.get("Name") == column]
    return next(("".join(each.itertext()) for each in found if each is not None), "")


class History:
    """The values that a column of a record has had. A change counts up to a second before its moment."""

    def __init__(self, connection, table, key_column, column, key):
        rows = connection.execute(
            "SELECT ddDatum, dlEvent, dmData FROM tProtokoll WHERE dcTable = ? AND dlPrimaryKey1 = ?"
            " AND dmData LIKE ? ORDER BY ddDatum", (table, key, f'%Name="{column}"><OldValue>%')).fetchall()
        changes = [row for row in rows if row[0] is not None]
        self.ends = [later(date, 1) for date, _, _ in changes]
        self.values = [old_value(document, column) for _, _, document in changes]
        live = connection.execute(f"SELECT {column} FROM {table} WHERE {key_column} = ?", (key,)).fetchone()
        deletion = next((old_value(document, column) for _, event, document in rows if event == 2), UNDEFINED)
        self.values.append(deletion if live is None else "" if live[0] is None else str(live[0]))

    def at(self, moment):
        return self.values[bisect_left(self.ends, moment)]


class Deleted:
    """A customer who lives in the log alone."""

    def __init__(self, connection, person):
        number = first_value(
            connection, "SELECT dlSuchId4 FROM tProtokoll WHERE dcTable = 'KUNDEN_V4' AND dlSuchId1 = ?", person)
        key = first_value(
            connection, "SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = 'PERSONALIE' AND dlSuchId1 = ?", person)
        self.number = cell(number)
        self.names = History(connection, "PERSONALIE", "PL_ID", "Pl_Bezeichnung", key or 0)

    def at(self, moment):
        """The name may be gone since a few seconds."""
        name = moment and (self.names.at(moment) or self.names.at(later(moment, -5)))
        return f"{self.number};{cell(name or NOT_FOUND)};"


class Terms:
    """Terms of payment belong to many customers."""

    def __init__(self, connection, key):
        self.names = History(connection, "TKULIEFKOND", "IDKLK", "dcBezeichnung", key)

    def at(self, moment):
        name = moment and self.names.at(moment)
        return f" - ;{cell(name)};" if name else NOBODY


def customers_by_key(connection):
    """For each logged table, from the key of a row to its first two cells, or to what knows them at a moment."""
    def live(table):
        join, key = LIVE[table]
        known = {}
        for key, number, name in connection.execute(f"SELECT {key}, KUN_NR, Pl_Bezeichnung FROM {join}"):
            if key not in known:
                known[key] = f"{cell(number)};{cell(name)};"
        return known

    def of_person(person):
        return persons[person] if person else NOBODY

    def by_log(table):
        if table == "PERSON_V4":
            return of_person
        if table not in PERSON_IN_LOG:
            return lambda key: NOBODY
        link, column = PERSON_IN_LOG[table]
        sql = f"SELECT {column} FROM tProtokoll WHERE dcTable = '{link}' AND dlPrimaryKey1 = ?"
        return lambda key: of_person(first_value(connection, sql, key))

    def of_table(table):
        if table == "TKULIEFKOND":
            return Memory(lambda key: Terms(connection, key))
        return Memory(by_log(table), live(table))

    persons = Memory(lambda person: Deleted(connection, person), live("PERSON_V4"))
    return Memory(of_table)


def names_by_id(connection, rule):
    """From an id, as text, to its name at a moment, as a cell."""
    none, table, key_column, columns = rule

    def name_of(value):
        key = id_in(value)
        if key is None:
            return lambda moment: cell(value)
        if key == 0:
            return lambda moment: none if moment else cell(value)
        histories = [History(connection, table, key_column, column, key) for column in columns]

        def at(moment):
            name = ""
            for history in histories if moment else ():
                name += (" " if name else "") + history.at(moment)
            return cell(name or value)
        return at
    return Memory(name_of)


def fields_of(connection, table, names):
    """From the name of a field to its caption as a cell, empty for none, and the names behind its ids, or None."""
    found = captions_of(connection, table)

    def field_of(field):
        field = (field or "").upper()
        words = caption_by_rule(table, field)
        return found.get(field, "") if words is None else words, names[field] if field in IDS else None
    return Memory(field_of)


def piece_maker(connection, server):
    """From a list of rows to their lines."""
    customers = customers_by_key(connection)
    names = Memory(lambda field: names_by_id(connection, IDS[field]))
    fields = Memory(lambda table: fields_of(connection, table, names))
    ends = record_ends(server)

    def value_of(element, names_of_field, moment):
        if names_of_field is None:
            return text_of(element) or "leer"
        value = raw_text(element)
        return names_of_field[value](moment) if value else "leer"

    def lines_of(rows):
        lines = []
        for row, columns in zip(rows, columns_of_all([row[5] for row in rows])):
            table, workstation, user, date, event, _, login, application, key = row
            user, end = ends[user, login, workstation, application]
            start = customers[table][key or 0]
            if type(start) is not str:
                start = start.at(date)
            start = f"{start}{date_text(date)};{user};"
            action = EVENTS[event]
            fields_of_table = fields[table]
            for column in columns:
                if column.tag != "Col":
                    continue
                caption, names_of_field = fields_of_table[column.get("Name")]
                if caption:
                    lines.append(f"{start}{caption}{action}{value_of(column.find('OldValue'), names_of_field, date)};"
                                 f"{value_of(column.find('NewValue'), names_of_field, date)}{end}")
        return "".join(lines)

    return lines_of


def selected_rows(connection, client):
    select_customers(connection, client)
    return connection.execute(
        "SELECT upper(dcTable), dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser, dcApplication,"
        f" dlPrimaryKey1 FROM {log_table(connection, 9)} WHERE {selected_by(client)} ORDER BY ddDatum")


def export(connection, server, path):
    client, name = connection.execute(CLIENT, (CLIENT_NUMBER,)).fetchone()
    head = cell(filter_text(name)) + ";" * 10 + "\r\n" + HEADER
    write_file(path, head, NO_DATA, selected_rows(connection, client), piece_maker(connection, server))


if __name__ == "__main__":
    main(export, __doc__)
