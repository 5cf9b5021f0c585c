"""Holds a run's report against what the run left: its file, its log of statements, the database.

Usage: check_report.py REPORT STATEMENTS DATABASE HANDBOOK. Prints what is wrong, a line each, and ends with 1 then.
"""

import csv
import datetime
import hashlib
import io
import json
import sqlite3
import sys

problems = []


def check(holds, what):
    if not holds:
        problems.append(what)


def names_in(value):
    """Every member's name, at whatever depth."""
    if isinstance(value, dict):
        for name, member in value.items():
            yield name
            yield from names_in(member)
    elif isinstance(value, list):
        for member in value:
            yield from names_in(member)


def check_file(report):
    if report["file"] is None:
        return
    with open(report["file"]["path"], "rb") as file:
        content = file.read()
    check(report["file"]["bytes"] == len(content), "bytes")
    check(report["file"]["sha256"] == hashlib.sha256(content).hexdigest(), "sha256")
    lines = list(csv.reader(io.StringIO(content.decode("utf-8-sig"), newline=""), delimiter=";"))
    if report["records"] > 0:
        check(len(lines) == 2 + report["lines"], f"{len(lines)} lines of the file, {report['lines']} of the report")
        check(lines[0][0] == report["understood"], "understood is not line 1")


def check_counts(report, statements, database):
    check(report["statements"] == len(statements), "statements")
    queries = [line for line in statements if line["sql"].startswith("SELECT idProtokoll, dcTable, ")]
    check(len(queries) == 1, "the main query")
    check(report["records"] == queries[0]["rows"], "records are not the rows of the main query")
    left_out = report["records_without_line"]
    check(left_out["count"] == sum(reason["count"] for reason in left_out["reasons"]), "the reasons do not add up")
    ids = [record for reason in left_out["reasons"] for record in reason["records"]]
    check(len(ids) == len(set(ids)) == left_out["count"], "a record is listed twice, or not at all")
    for record in ids:
        rows = database.execute("SELECT COUNT(*) FROM tProtokoll WHERE idProtokoll = ?", (record,)).fetchone()[0]
        check(rows == 1, f"record {record} is not in the log")
    check(report["records"] - left_out["count"] <= report["lines"], "a record with lines has one at least")
    fields = report["fields_without_caption"]
    check(fields["count"] == sum(field["count"] for field in fields["first"]), "the fields do not add up")


def main():
    report_path, statements_path, database_path, handbook_path = sys.argv[1:]
    with open(report_path, encoding="utf-8") as file:
        report = json.load(file)
    with open(statements_path, encoding="utf-8") as file:
        statements = [json.loads(line) for line in file]
    with open(handbook_path, encoding="utf-8") as file:
        handbook = file.read()
    for name in names_in(report):
        check(f"`{name}`" in handbook, f"the handbook does not explain {name}")
    started, ended = (datetime.datetime.fromisoformat(report[name]) for name in ("started", "ended"))
    check(started.utcoffset() is not None and started <= ended, "started and ended")
    check_file(report)
    check_counts(report, statements, sqlite3.connect(database_path))
    for problem in problems:
        print(problem)
    sys.exit(1 if problems else 0)


main()
