"""Holds the receipt of a deletion against its archive, the log before it and the log behind it.

Usage: check_receipt.py ARCHIVE BEFORE AFTER. Prints what is wrong, a line each, and ends with 1 then.
"""

import csv
import hashlib
import io
import json
import os
import sqlite3
import stat
import sys

problems = []


def check(holds, what):
    if not holds:
        problems.append(what)


def content(path):
    with open(path, "rb") as file:
        return file.read()


def check_sum(file, what):
    data = content(file["path"])
    check(file["bytes"] == len(data), f"bytes of {what}")
    check(file["sha256"] == hashlib.sha256(data).hexdigest(), f"sha256 of {what}")
    return data


def rows(database, table, condition="1 = 1"):
    """The rows as text, with the types of their values."""
    columns = [row[1] for row in database.execute(f"PRAGMA table_info({table})")]
    fields = ", ".join(f"typeof({column}), quote({column})" for column in columns)
    return set(database.execute(f"SELECT {fields} FROM {table} WHERE {condition}"))


def check_private(folder):
    for path in [folder] + [os.path.join(folder, name) for name in os.listdir(folder)]:
        check(stat.S_IMODE(os.stat(path).st_mode) & 0o077 == 0, f"others may use {path}")


def main(folder, before_file, after_file):
    check_private(folder)
    receipt = json.loads(content(os.path.join(folder, "beleg.json")))
    deletion = receipt["deletion"]
    archive = deletion["archive"]
    check(deletion["state"] == receipt["outcome"] == "deleted", "the state")
    check(receipt["status"] == 0 and receipt["ended"] is not None, "the run has ended")
    check(os.path.samefile(archive["folder"], folder), "the folder")
    check(sorted(os.listdir(folder)) == sorted(
        ["archiv.db", "beleg.json"] + ([os.path.basename(receipt["file"]["path"])] if receipt["file"] else [])),
        "the files of the archive")

    check_sum(archive["database"], "archiv.db")
    before, after, kept = (sqlite3.connect(name) for name in
                           (before_file, after_file, os.path.join(folder, "archiv.db")))
    for table, count in (("tProtokoll", deletion["records"]), ("tProtokollMemo", deletion["memos"])):
        gone = rows(before, table) - rows(after, table)
        check(rows(after, table) <= rows(before, table), f"{table} has new rows")
        check(len(gone) == count, f"{len(gone)} rows of {table} are gone, {count} by the receipt")
        check(rows(kept, table) == gone, f"the archive has other rows of {table} than are gone")
    for table in ("tSysQuvoLogSections", "tSysQuvoTables", "tSysQuvoColumns"):
        check(rows(kept, table) <= rows(before, table), f"{table} in the archive")
    named = set(kept.execute("SELECT DISTINCT dcTable FROM tProtokoll"))
    known = set(before.execute("SELECT dcTableName FROM tSysQuvoTables"))
    upper = {name.upper() for name, in named} & {name.upper() for name, in known}
    check({name.upper() for name, in kept.execute("SELECT dcTableName FROM tSysQuvoTables")} == upper,
          "the tables that the archive explains")
    captions = set(before.execute("SELECT flTable, dcColumnName FROM tSysQuvoColumns WHERE flTable IN (%s)" % ", ".join(
        str(key) for key, in kept.execute("SELECT IDSysQuvoTables FROM tSysQuvoTables"))))
    check(set(kept.execute("SELECT flTable, dcColumnName FROM tSysQuvoColumns")) == captions, "the captions")

    rest = archive["records_not_exported"]
    check(receipt["records"] + rest["count"] == deletion["records"], "exported and not exported records")
    ids = {key for key, in kept.execute("SELECT idProtokoll FROM tProtokoll")}
    check(set(rest["records"]) <= ids, "a record that was not exported is not in the archive")
    check(len(rest["records"]) == min(rest["count"], receipt["listed_at_most"]), "the list of records")
    for reason in receipt["records_without_line"]["reasons"]:
        check(set(reason["records"]) <= ids - set(rest["records"]), f"records of {reason['reason']}")
    if receipt["file"]:
        text = check_sum(receipt["file"], "the CSV file").decode("utf-8-sig")
        lines = list(csv.reader(io.StringIO(text, newline=""), delimiter=";"))
        check(len(lines) == 2 + receipt["lines"], "the lines of the CSV file")


main(*sys.argv[1:])
print("\n".join(problems))
sys.exit(1 if problems else 0)
