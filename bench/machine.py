"""The machine: what it is, and whether anything else is at work on it."""

import datetime
import os
import pathlib
import platform
import subprocess
import time

BUSY = 0.3      # of one processor; from here on nothing is recorded
TAKEN = 0.1    # of the time that programs wanted a processor; likewise
TAKEN_FIELD = 7     # of the first line of /proc/stat: what other virtual machines had of it ("steal")
IDLE_FIELDS = (3, 4)    # of the first line of /proc/stat: idle, and waiting for a disk
FIELDS = 8              # the rest are parts of these


def first_line(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, encoding="utf-8", check=True).stdout.partition("\n")[0]


def processor():
    for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            return line.partition(":")[2].strip()
    return platform.machine()


def description(program):
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30
    return (f"{datetime.date.today()}, {first_line(program, '--version')}, {os.cpu_count()} × {processor()}, {memory:.0f} GiB,"
            f" sqlite3 {first_line('sqlite3', '--version').partition(' ')[0]}")


def load():
    """Programs that wanted a processor, on average over the last minute."""
    return float(pathlib.Path("/proc/loadavg").read_text().split()[0])


def ticks():
    """Of all processors since the machine's start, by field."""
    return [int(each) for each in pathlib.Path("/proc/stat").read_text().split("\n", 1)[0].split()[1:1 + FIELDS]]


def work():
    """Ticks that all processors have worked since the machine's start."""
    return sum(each for number, each in enumerate(ticks()) if number not in IDLE_FIELDS)


class Taken:
    """What the host of a virtual machine gave to others while programs here wanted a processor."""

    def __init__(self):
        self.work, self.taken = work(), ticks()[TAKEN_FIELD]

    def share(self):
        """Since this object was made, of the time that programs wanted a processor."""
        wanted = work() - self.work
        return round((ticks()[TAKEN_FIELD] - self.taken) / wanted, 3) if wanted else 0.0


def processors_busy(seconds=2):
    """How many processors work, on average, while this program does not."""
    os.sync()
    before, start = work(), time.perf_counter()
    time.sleep(seconds)
    return round((work() - before) / os.sysconf("SC_CLK_TCK") / (time.perf_counter() - start), 2)
