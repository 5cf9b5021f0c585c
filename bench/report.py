"""The benchmark's words and tables."""

import datetime
import os
import pathlib
import platform
import statistics
import subprocess
import sys
from dataclasses import dataclass

from contenders import FLOORS, PROGRAMS

MEGABYTE = 1_000_000


@dataclass
class Size:
    """What one size gave. results: the contender's name, then its runs in the order of the rounds."""
    rows: int
    fetched: object
    lines: int
    bytes: int
    results: dict
    kinds: list

    def median(self, name, what):
        return statistics.median(getattr(run, what) for run in self.results[name])

    def ratios(self, name, base):
        """Wall time against `base`, round by round: lowest, median, highest."""
        pairs = zip(self.results[name], self.results[base])
        ratios = sorted(run.wall / base_run.wall for run, base_run in pairs)
        return ratios[0], statistics.median(ratios), ratios[-1]


def number(value):
    return f"{value:,}".replace(",", " ")


def first_line(*command):
    try:
        return subprocess.run(command, stdout=subprocess.PIPE, encoding="utf-8").stdout.partition("\n")[0]
    except OSError:
        return "unknown"


def processor():
    for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            return line.partition(":")[2].strip()
    return platform.machine()


def machine(program):
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES")
    return "\n".join([
        f"{datetime.date.today()}: {first_line(program, '--version')}",
        f"{os.cpu_count()} cores ({processor()}), {memory / 2**30:.0f} GiB; {platform.system()} {platform.machine()}",
        f"{first_line('c++', '--version')}; sqlite3 {first_line('sqlite3', '--version').partition(' ')[0]};"
        f" Python {platform.python_version()}",
    ])


def ratio_text(ratios):
    lowest, median, highest = ratios
    return f"{median:6.2f} ({lowest:.2f}-{highest:.2f})"


def table(section, size, contenders):
    head = (f"{section.title}, {number(size.rows)} log rows: {number(size.fetched.count)} fetched, {size.fetched.size / MEGABYTE:.1f} MB"
            f" of cells; {number(size.lines)} lines written, {size.bytes / MEGABYTE:.1f} MB")
    lines = [head, "", f"{'contender':24}{'runs':>4}{'wall s':>9}  {'of the dump':19} {'of protcsv':20}{'CPU s':>8}"
                       f"{'peak MB':>9}{'of cells':>9}"]
    skipped = []
    for contender in contenders:
        runs = size.results[contender.name]
        if not runs:
            skipped.append(contender.name)
            continue
        memory = size.median(contender.name, "memory")
        lines.append(
            f"{contender.name:24}{len(runs):4}{size.median(contender.name, 'wall'):9.3f}"
            f"  {ratio_text(size.ratios(contender.name, FLOORS[contender.group])):19}"
            f" {ratio_text(size.ratios(contender.name, PROGRAMS[contender.group])):20}"
            f"{size.median(contender.name, 'cpu'):8.3f}{memory / MEGABYTE:9.1f}{memory / size.fetched.size:9.2f}")
    lines += [f"left out: {name} (--all runs it)" for name in skipped]
    return "\n".join(lines + ["", statement_table(size.kinds)])


def statement_table(kinds):
    sent = sum(len(kind.times) for kind in kinds)
    total = sum(sum(kind.times) for kind in kinds)
    lines = [f"{number(sent)} statements sent, {total:.0f} ms altogether", "",
             f"{'sent':>8}{'median ms':>11}{'mean ms':>9}{'total ms':>10}  statement"]
    for kind in kinds:
        shape = kind.shape if len(kind.shape) <= 78 else kind.shape[:38] + " .. " + kind.shape[-36:]
        lines.append(f"{len(kind.times):8}{kind.median():11.3f}{statistics.mean(kind.times):9.3f}"
                     f"{sum(kind.times):10.1f}  {shape}")
    return "\n".join(lines)


def targets(section, sizes):
    """What the program aims at, and whether the largest size reached it. The script is only asked where there is one."""
    largest = sizes[-1]
    program = PROGRAMS["file"]
    of_dump = largest.ratios(program, FLOORS["file"])[1]
    memory = largest.median(program, "memory") / largest.fetched.size
    # measured value, whether it is reached, target
    rows = [(of_dump, of_dump <= aim, f"of the dump's time, at most {aim}") for aim in section.aims]
    if section.peers:
        good = largest.ratios("good script, file", program)[1]
        rows.append((good, good >= 10, "times as fast as the good script, at least 10"))
    rows.append((memory, memory <= 2, "of the cells' size as peak memory, at most 2"))
    for smaller in sizes[-2:-1]:
        for what, name in (("cpu", "CPU time"), ("memory", "memory")):
            growth = largest.median(program, what) / smaller.median(program, what) / (largest.rows / smaller.rows)
            rows.append((growth, growth <= 1.25, f"of the {name} a row at {number(smaller.rows)} rows, at most 1.25"))
    lines = [f"{section.title}, targets of protcsv to a file at {number(largest.rows)} rows"]
    lines += [f"{value:8.2f} {aim:64}{'reached' if reached else 'NOT reached'}" for value, reached, aim in rows]
    return "\n".join(lines)


def record(readme, section, text):
    """Replaces the section's record in the README by `text`."""
    begin, end = (f"<!-- record of section {section.number} {word} -->\n" for word in ("begins", "ends"))
    before, _, rest = readme.read_text(encoding="utf-8").partition(begin)
    _, found_end, after = rest.partition(end)
    if not found_end:
        sys.exit(f"{readme} has no place for the record of section {section.number}")
    readme.write_text(f"{before}{begin}```text\n{text}\n```\n{end}{after}", encoding="utf-8")
