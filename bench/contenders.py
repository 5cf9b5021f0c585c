"""Who takes part: the floors, the program and the scripts, and how each is called."""

import pathlib
import sys
from dataclasses import dataclass
from typing import Callable, Optional

from databases import MainQuery
from process import Job
from sections import Section

PEERS = pathlib.Path(__file__).parent / "peers"


@dataclass
class Task:
    """What every contender is given."""
    program: str             # the program under test
    section: Section
    database: pathlib.Path
    main_query: MainQuery    # the rows that the program exports
    columns: list            # its columns
    folder: pathlib.Path     # for output


@dataclass
class Contender:
    """group: file or null, where its output goes; it is compared with the floor and the program of its group.

    csv: from the task to the file that must hold the same bytes as everybody's; None without one.
    rounds: from the number of log rows to the most rounds it takes part in, 0 for none.
    """
    name: str
    group: str
    job: Callable[[Task], Job]
    csv: Optional[Callable[[Task], pathlib.Path]] = None
    rounds: Callable[[int], int] = lambda rows: sys.maxsize


def program_output(task):
    """Where the program prints the path of its file."""
    return task.folder / "finished.txt"


def export(task, *arguments):
    return [task.program, "export", "--db", str(task.database), "--section", task.section.number,
            "--out", str(task.folder), *arguments]


def program_to_file(task):
    return Job(export(task, "--params", task.section.parameters), str(program_output(task)))


def program_to_null(task):
    return Job(export(task, "--answers", "-"), "/dev/null", task.section.answers)


def program_csv(task):
    return pathlib.Path(program_output(task).read_text(encoding="utf-8").strip())


def shell(task, statement, output):
    return Job(["sqlite3", "-readonly", "-csv", str(task.database), task.main_query.preparation, statement], str(output))


def scan_statement(task):
    """Walks the same rows in the same order, decodes each cell and counts the rows.

    LIMIT keeps the order. The condition uses every column, so that none is left out, and is met by the first.
    """
    used = " OR ".join(f"{column} IS NOT NULL" for column in task.columns)
    return f"SELECT count(*) FROM ({task.main_query.query} LIMIT -1) WHERE {used}"


def script(kind):
    return lambda task: Job([sys.executable, "-B", str(PEERS / f"{kind}_{task.section.peers}.py"), str(task.database),
                             str(task.folder / f"{kind}.csv")], "/dev/null")


FLOORS = {"file": "sqlite3 dump, file", "null": "sqlite3 dump, /dev/null"}
PROGRAMS = {"file": "protcsv, file", "null": "protcsv, /dev/null"}


def contenders(section, with_slow_ones):
    """In the order of a round. with_slow_ones: the plain script at any size."""
    return [
        Contender(FLOORS["file"], "file", lambda task: shell(task, task.main_query.query, task.folder / "dump.csv")),
        Contender(PROGRAMS["file"], "file", program_to_file, program_csv),
        *(scripts(with_slow_ones) if section.peers else []),
        *(to_null() if section.answers else []),
        Contender("scan only", "null" if section.answers else "file",
                  lambda task: shell(task, scan_statement(task), "/dev/null")),
    ]


def scripts(with_slow_ones):
    return [
        Contender("good script, file", "file", script("good"), lambda task: task.folder / "good.csv",
                  lambda rows: 3 if rows > 100_000 else sys.maxsize),
        Contender("plain script, file", "file", script("plain"), lambda task: task.folder / "plain.csv",
                  lambda rows: sys.maxsize if rows <= 10_000 else 1 if rows <= 100_000 or with_slow_ones else 0),
    ]


def to_null():
    return [
        Contender(FLOORS["null"], "null", lambda task: shell(task, task.main_query.query, "/dev/null")),
        Contender(PROGRAMS["null"], "null", program_to_null),
    ]
