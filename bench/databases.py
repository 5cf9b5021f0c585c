"""The sample databases, and what there is to know about them before a run."""

import csv
import hashlib
import json
import pathlib
import re
import shutil
import sqlite3
import statistics
import subprocess
import sys
import tempfile
from collections import defaultdict
from dataclasses import dataclass

SEED = "1"
PROBE_ROWS = 3_000
LEAST_SHARE = 0.01  # of the time of all statements, for a kind to be told


def file_hash(path):
    with open(path, "rb") as file:
        return hashlib.file_digest(file, "sha256").hexdigest()


def write_sample(program, section, path, rows):
    subprocess.run([program, "sample", str(path), "--section", section.number, "--rows", str(rows), "--seed", SEED,
                    "--overwrite"], check=True, stdout=subprocess.DEVNULL)


def sample(program, section, folder, rows):
    """The database of `rows` log rows of the section, made unless one of the same content is there already.

    What the program writes today is seen from a small database, made anew each time.
    """
    with tempfile.TemporaryDirectory() as temporary:
        probe = pathlib.Path(temporary) / "probe.db"
        write_sample(program, section, probe, PROBE_ROWS)
        mark = file_hash(probe)[:8]
    database = folder / f"log-{section.number}-{rows}-{mark}.db"
    if not database.exists():
        unfinished = database.with_suffix(".unfinished")
        write_sample(program, section, unfinished, rows)
        unfinished.rename(database)
    return database


def copy_without_date_index(database, folder):
    """Under the same name, which stands in the file that is exported; made by the first who asks."""
    copy = folder / "no_date_index" / database.name
    if not copy.exists():
        copy.parent.mkdir()
        shutil.copyfile(database, copy)
        connection = sqlite3.connect(copy)
        connection.execute("DROP INDEX iProtokollDatum")
        connection.close()
    return copy


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
    """The statements of one export: the main query, and all statements by kind, the dearest kind first.

    A kind is (text without values, number sent, their median and their sum in milliseconds). The main query's line is the
    last one that tells of it, so that what filled its tables stands before.
    """
    log = folder / "statements.jsonl"
    finished = subprocess.run(
        [program, "export", "--db", str(database), "--section", section.number, "--params", section.parameters,
         "--threads", "1", "--out", str(folder), "--sql-log", str(log), "--quiet"], check=True, stdout=subprocess.PIPE,
        encoding="utf-8")
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
    log.unlink()
    return main_query, dear_kinds(times)


def dear_kinds(times):
    least = LEAST_SHARE * sum(sum(each) for each in times.values())
    kinds = [(shortened(shape), len(each), round(statistics.median(each), 3), round(sum(each), 1))
             for shape, each in times.items() if sum(each) > least]
    return sorted(kinds, key=lambda kind: -kind[3])


def shortened(shape):
    return shape if len(shape) <= 78 else shape[:38] + " .. " + shape[-36:]


def check_dump(path, main_query):
    """Ends the benchmark when the raw floor's file has not the rows of the main query."""
    csv.field_size_limit(sys.maxsize)
    with open(path, encoding="utf-8", newline="") as file:
        count = sum(1 for _ in csv.reader(file))
    if count != main_query.count:
        sys.exit(f"the raw floor has {count} rows, the program {main_query.count}")
