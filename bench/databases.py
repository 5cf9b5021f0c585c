"""The sample databases, and what there is to know about them before a run."""

import hashlib
import json
import pathlib
import re
import sqlite3
import statistics
import subprocess
import sys
import tempfile
from collections import defaultdict
from dataclasses import dataclass

SEED = "1"
PROBE_ROWS = 3_000


def file_hash(path):
    with open(path, "rb") as file:
        return hashlib.file_digest(file, "sha256").hexdigest()


def write_sample(program, section, path, rows):
    subprocess.run([program, "sample", str(path), "--section", section.number, "--rows", str(rows), "--seed", SEED,
                    "--overwrite"], check=True, stdout=subprocess.DEVNULL)


def sample(program, section, folder, rows):
    """The database of `rows` log rows of the section, made unless one of the same content is there already.

    Whether the program still writes what it wrote then is seen from a small database, made anew each time.
    """
    with tempfile.TemporaryDirectory() as temporary:
        probe = pathlib.Path(temporary) / "probe.db"
        write_sample(program, section, probe, PROBE_ROWS)
        mark = file_hash(probe)
    database, mark_file = (folder / f"log-{section.number}-{rows}.{end}" for end in ("db", "mark"))
    if not (database.exists() and mark_file.exists() and mark_file.read_text() == mark):
        mark_file.unlink(missing_ok=True)
        print(f"Writing a database of {rows} log rows of section {section.number}", flush=True)
        write_sample(program, section, database, rows)
        mark_file.write_text(mark)
    return database


@dataclass
class StatementKind:
    shape: str      # the statement, its values replaced by ?
    times: list     # milliseconds, one a statement

    def median(self):
        return statistics.median(self.times)


@dataclass
class MainQuery:
    """As the shell of SQLite takes it.

    preparation: the statements that fill its temporary tables, on the same connection. count: of the rows it gave.
    """
    preparation: str
    query: str
    count: int


def as_sqlite(sql):
    """A statement as the program sends it: names like #Table, SELECT ... INTO, parentheses around a side of UNION, two of
    them around a set, a table beside the others of a set that nothing joins to them."""
    sql = re.sub(r"DROP TABLE IF EXISTS #\w+\s*;?\s*", "", sql)  # a new connection has none
    sql = re.sub(r"SELECT ([^()]*?) INTO (#\w+)", r"CREATE TEMP TABLE \2 AS SELECT \1", sql)
    sql = re.sub(r"\(\((SELECT [^()]*)\) UNION", r"(\1 UNION", sql, flags=re.IGNORECASE)
    sql = re.sub(r"IN \(\((SELECT [^()]*)\)\)", r"IN (\1)", sql)
    sql = sql.replace("FROM AUSWERTUNGSRAHMEN, AUSWERTUNGSPOSITION,", "FROM AUSWERTUNGSPOSITION,")
    return re.sub(r"#\w+", r'"\g<0>"', sql)


def statements(program, section, database, folder):
    """The statements of one export: the main query, and all statements by kind, the dearest kind first."""
    log = folder / "statements.jsonl"
    finished = subprocess.run(
        [program, "export", "--db", str(database), "--section", section.number, "--params", section.parameters,
         "--out", str(folder), "--sql-log", str(log), "--quiet"], check=True, stdout=subprocess.PIPE, encoding="utf-8")
    pathlib.Path(finished.stdout.strip()).unlink()
    times = defaultdict(list)
    preparation, main_query = "", None
    with open(log, encoding="utf-8") as lines:
        for line in lines:
            sent = json.loads(line)
            shape = re.sub(r"'[^']*'|\b\d+\b", "?", sent["sql"])
            times[" ".join(shape.split())].append(sent["ms"])
            if " dmData, dcSystemUser, " in sent["sql"]:
                main_query = MainQuery(preparation, as_sqlite(sent["sql"]), sent["rows"])
            elif sent["op"] == "execute":
                preparation += as_sqlite(sent["sql"])
    kinds = [StatementKind(shape, each) for shape, each in times.items()]
    return main_query, sorted(kinds, key=lambda kind: -sum(kind.times))


@dataclass
class Rows:
    """The rows of the main query. size: bytes of all cells, a text its bytes and a number 8."""
    columns: list
    count: int
    size: int


def fetched_rows(database, main_query):
    connection = sqlite3.connect(database.absolute().as_uri() + "?mode=ro", uri=True)
    connection.executescript(main_query.preparation)
    query = main_query.query
    columns = [column[0] for column in connection.execute(f"SELECT * FROM ({query}) LIMIT 0").description]
    sizes = " + ".join(
        f"CASE typeof({column}) WHEN 'null' THEN 0 WHEN 'text' THEN length(CAST({column} AS BLOB)) ELSE 8 END"
        for column in columns)
    count, size = connection.execute(f"SELECT count(*), sum({sizes}) FROM ({query})").fetchone()
    connection.close()
    if count != main_query.count:
        sys.exit(f"the raw floor has {count} rows, the program {main_query.count}")
    return Rows(columns, count, size)
