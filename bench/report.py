"""The benchmark's words and tables."""

import statistics
from dataclasses import dataclass

from contenders import DUMP, NARROW, NARROW_BEFORE
from targets import MEGABYTE, number, targets


@dataclass
class Size:
    """What one number of log rows gave. results: the contender's name, then its runs in the order of the rounds.

    busy: processors at work while the benchmark was not, right before or after. taken: share of the rounds' processor time
    that went to other virtual machines. kinds: as databases.statements gives them.
    """
    rows: int
    machine: str
    busy: float
    taken: float
    load: float
    fetched: int
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


def ratio_text(size, name):
    """Against the dump; nothing where other rows were asked for."""
    if name in (NARROW, NARROW_BEFORE):
        return ""
    lowest, median, highest = size.ratios(name, DUMP)
    return f"{median:6.2f}" + (f" ({lowest:.2f}-{highest:.2f})" if len(size.results[name]) > 1 else "")


def table(section, sizes):
    lines = [f"{section.title:28}{'runs':>4}{'wall s':>9}  {'of the dump':19}{'CPU s':>9}{'peak MB':>9}"]
    for size in sizes:
        lines += ["", f"{number(size.rows)} log rows: {number(size.fetched)} fetched, {number(size.lines)} lines written,"
                      f" {size.bytes / MEGABYTE:.1f} MB",
                  f"{size.machine}; {size.busy:.2f} processors busy, load {size.load:.2f},"
                  f" {100 * size.taken:.0f} % taken by other machines"]
        for name, runs in size.results.items():
            lines.append(f"{name:28}{len(runs):4}{size.median(name, 'wall'):9.3f}  {ratio_text(size, name):19}"
                         f"{size.median(name, 'cpu'):9.3f}{size.median(name, 'memory') / MEGABYTE:9.1f}")
    return "\n".join(lines)


def statement_table(size):
    lines = [f"statements at {number(size.rows)} rows, --threads 1, kinds of 1 % of the time and more", "",
             f"{'sent':>9}{'median ms':>11}{'total ms':>10}  statement"]
    for shape, sent, median, total in size.kinds:
        lines.append(f"{sent:9}{median:11.3f}{total:10.0f}  {shape}")
    return "\n".join(lines)


def target_table(section, sizes):
    lines = ["targets"]
    for rows, value, at_most, words in targets(section, sizes):
        lines.append(f"{number(rows):>9} rows {value:7.2f}, at most {at_most:<5} {words:62}"
                     f" {'reached' if value <= at_most else 'NOT reached'}")
    return "\n".join(lines)


def conclusion(section, sizes):
    """What stands below the table."""
    parts = [statement_table(sizes[-1])] if section.lookups_prevail() else []
    return "\n\n".join(parts + [target_table(section, sizes)])
