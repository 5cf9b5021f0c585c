"""Who takes part: the floor, the program and a script, and how each is called."""

import pathlib
import sys
from dataclasses import dataclass
from typing import Callable

from databases import MainQuery, copy_without_date_index
from process import Job
from sections import Section

PEERS = pathlib.Path(__file__).parent / "peers"

DUMP = "sqlite3 dump"
DEFAULT = "protcsv"
ONE_THREAD = "protcsv --threads 1"
DEFAULT_BUSY = "protcsv (busy)"
ONE_THREAD_BUSY = "protcsv --threads 1 (busy)"
SCRIPT = "good script"
UNINDEXED = "protcsv (no date index)"
ODBC = "protcsv (ODBC)"
NARROW = "protcsv (narrow)"
NARROW_BEFORE = "before (narrow)"

# The most log rows that a contender takes part with.
SCRIPT_ROWS = 100_000
UNINDEXED_ROWS = 1_000_000
ODBC_ROWS = 1_000_000


@dataclass
class Task:
    """What every contender is given."""
    program: str             # the program under test
    section: Section
    database: pathlib.Path
    main_query: MainQuery    # the rows that the program exports
    folder: pathlib.Path     # for output


@dataclass
class Contender:
    """csv: from the task to the file that it wrote. All that write the same selection must write the same bytes."""
    name: str
    job: Callable[[Task], Job]
    csv: Callable[[Task], pathlib.Path]
    selection: str = "all"
    least_rounds: int = 1


def contenders(section, rows, before):
    """Those that take part at this number of log rows, in the order of a round. before: an older program, or None."""
    yield Contender(DUMP, dump, lambda task: task.folder / "dump.csv", "raw")
    for busy, default, one_thread in ((False, DEFAULT, ONE_THREAD), (True, DEFAULT_BUSY, ONE_THREAD_BUSY)):
        yield Contender(default, exporting(busy=busy), exported)
        yield Contender(one_thread, exporting("--threads", "1", busy=busy), exported)
    if section.peers and rows <= SCRIPT_ROWS:
        yield Contender(SCRIPT, script, lambda task: task.folder / "script.csv")
    if section.is_whole_log() and rows <= UNINDEXED_ROWS:
        yield Contender(UNINDEXED, export_unindexed, exported)
    if rows <= ODBC_ROWS:
        yield Contender(ODBC, export_through_odbc, exported)
    if section.narrow:
        yield narrow(NARROW, section)
        if before:
            yield narrow(NARROW_BEFORE, section, program=before)


def narrow(name, section, program=None):
    return Contender(name, exporting(parameters=section.narrow, program=program), exported, "narrow", least_rounds=3)


def dump(task):
    return Job(["sqlite3", "-readonly", "-csv", str(task.database), task.main_query.preparation, task.main_query.query],
               str(task.folder / "dump.csv"))


def script(task):
    return Job([sys.executable, "-B", str(PEERS / f"good_{task.section.peers}.py"), str(task.database),
                str(task.folder / "script.csv")], "/dev/null")


def exporting(*options, program=None, parameters=None, busy=False):
    return lambda task: export(task, task.database, program or task.program, parameters or task.section.parameters, options,
                               busy)


def export_unindexed(task):
    return export(task, copy_without_date_index(task.database, task.folder), task.program, task.section.parameters)


def export_through_odbc(task):
    return export(task, f"odbc:Driver=SQLite3;Database={task.database}", task.program, task.section.parameters)


def export(task, database, program, parameters, options=(), busy=False):
    return Job([program, "export", "--db", str(database), "--section", task.section.number, "--params", parameters,
                "--out", str(task.folder), *options], str(task.folder / "finished.txt"), busy)


def exported(task):
    return pathlib.Path((task.folder / "finished.txt").read_text(encoding="utf-8").strip())
