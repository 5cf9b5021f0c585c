"""Holds every statement that the golden cases send against two judges that are not ours: an independent parser of T-SQL,
and the tables and columns of the sample script. Usage: check_statements.py SCRIPT FILE...   (expected.sql of the cases)

The parser proves shape, not meaning. It does not know two statements without a semicolon between them, as the batch of
temporary tables has them, so a batch is taken line by line; and a DELETE without FROM, which gets one here."""

import json
import re
import sys

import sqlglot
from sqlglot import exp

COLUMNS_OF_TEMPORARY = {"KLKD_ID", "KUN_ID", "LIEF_ID", "DLSUCHID1"}
EXPECTED = (exp.Select, exp.Union, exp.Delete, exp.Drop)


def tables_of(script):
    """The columns of each table of the script; all names in capitals."""
    tables = {}
    for name, body in re.findall(r"^CREATE TABLE \[(\w+)\] \((.*?)\n\);", script, re.MULTILINE | re.DOTALL):
        tables[name.upper()] = {column.upper() for column in re.findall(r"^    \[(\w+)\]", body, re.MULTILINE)}
    return tables


def statements_of(file):
    for line in open(file, encoding="utf-8"):
        operation, text = line.rstrip("\n").split(": ", 1)
        sql = json.loads(f'"{text}"')
        yield from sql.split("\r\n") if operation == "execute" and sql.startswith("DROP") else [sql]


def problem_of(sql, tables):
    """What is wrong with the statement; None: nothing."""
    text = re.sub(r"^DELETE (?!FROM)", "DELETE FROM ", sql.strip().rstrip(";"))
    try:
        parsed = sqlglot.parse(text, read="tsql")
    except (sqlglot.errors.SqlglotError, RuntimeError, IndexError) as error:  # the last two: a text without its end
        return f"no T-SQL: {error}"
    if len(parsed) != 1 or not isinstance(parsed[0], EXPECTED):
        return f"not one statement of a known kind: {[type(one).__name__ for one in parsed]}"
    named = {table.name.upper() for table in parsed[0].find_all(exp.Table)}
    temporary = {name for name in named if "TEMPTABLE_" in name}
    named -= temporary
    unknown = named - tables.keys()
    if unknown:
        return f"no such table: {sorted(unknown)}"
    known = set().union(*(tables[name] for name in named), COLUMNS_OF_TEMPORARY if temporary else ())
    missing = {column.name.upper() for column in parsed[0].find_all(exp.Column)} - known
    return f"no such column: {sorted(missing)}" if missing else None


def main(script, *files):
    tables = tables_of(open(script, encoding="utf-8-sig").read())
    statements = {sql for file in files for sql in statements_of(file) if sql.strip()}
    problems = [(problem, sql) for sql in sorted(statements) if (problem := problem_of(sql, tables))]
    for problem, sql in problems:
        print(f"{problem}\n    {sql}")
    print(f"{len(statements)} statements", file=sys.stderr)
    sys.exit(1 if problems or len(statements) < 200 else 0)


main(*sys.argv[1:])
