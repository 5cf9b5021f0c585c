"""What the fast scripts share: cells, dates and users in their final form, change documents, the file.

The documents are parsed by ElementTree, in C, many at a time; rows stream, so that memory does not grow with them.
"""

import gc
import os
import pathlib
import re
import sqlite3
import sys
from xml.etree.ElementTree import ParseError, fromstring

EVENTS = {0: ";angelegt;", 1: ";geändert;", 2: ";gelöscht;", None: ";angelegt;"}
COMMON_HEADER = (
    "Datum der Änderung;Mitarbeiter;Feld der Änderung;Aktion;alter Wert;neuer Wert;Arbeitsstation;Applikation;"
    "Datenbankbenutzer\r\n"
)
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

    def __init__(self, ask, known=()):
        super().__init__(known)
        self.ask = ask

    def __missing__(self, key):
        answer = self[key] = self.ask(key)
        return answer


def captions_of(connection, table):
    """From the name of a field in capitals to its caption as a cell."""
    return {
        name.upper(): cell(caption)
        for name, caption in connection.execute(
            "SELECT dcColumnName, dmDescription FROM tSysQuvoColumns INNER JOIN tSysQuvoTables"
            " ON flTable = IDSysQuvoTables WHERE dcTableName = ?", (table,))
    }


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


def raw_text(element):
    """The value of an OldValue or NewValue."""
    if element is None:
        return ""
    text = "".join(element.itertext()) if len(element) else element.text
    return "" if not text or text == "NULL" else text


def text_of(element):
    """raw_text, as a cell; without calling it, which would cost as much again."""
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


def opened(database):
    return sqlite3.connect(pathlib.Path(database).absolute().as_uri() + "?mode=ro", uri=True)


def log_table(connection, section):
    return connection.execute(
        "SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = ?", (section,)).fetchone()[0]


def write_file(path, head, no_data, rows, lines_of):
    """head: filter line and header. lines_of: from a list of rows to their lines."""
    piece = rows.fetchmany(ROWS_PER_PIECE)
    with open(path, "wb") as file:
        file.write(b"\xef\xbb\xbf")
        file.write((head if piece else no_data).encode())
        while piece:
            file.write(lines_of(piece).encode())
            piece = rows.fetchmany(ROWS_PER_PIECE)


def main(export, usage):
    """Runs `export` with the connection, the server's name and the path of the file."""
    if len(sys.argv) != 3:
        sys.exit(usage)
    gc.disable()  # nothing here makes cycles, and looking for them takes time
    export(opened(sys.argv[1]), os.path.basename(sys.argv[1]), sys.argv[2])
