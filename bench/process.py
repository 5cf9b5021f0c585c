"""Runs one program and measures it."""

import contextlib
import os
import shutil
import subprocess
import sys
import tempfile
import time
from dataclasses import dataclass
from typing import NamedTuple

# All that is measured runs on these two.
PROCESSORS = set(sorted(os.sched_getaffinity(0))[:2])


@dataclass
class Job:
    """A program to run. output: the file that takes its standard output. busy: another keeps one of its processors busy."""
    arguments: list
    output: str
    busy: bool = False


class Measured(NamedTuple):
    wall: float     # seconds, from before the start until the end
    cpu: float      # seconds, user and system
    memory: int     # bytes, resident at the peak


@contextlib.contextmanager
def one_processor_busy():
    """A program that computes until the end of the block, or of this process."""
    program = f"import os\nwhile os.getppid() == {os.getpid()}: sum(range(100_000))"
    loop = subprocess.Popen([sys.executable, "-c", program],
                            preexec_fn=lambda: os.sched_setaffinity(0, {max(PROCESSORS)}))
    try:
        yield
    finally:
        loop.kill()
        loop.wait()


def run(job):
    """Runs `job` and waits for it. A program that fails ends the benchmark, with its own words.

    The peak memory is what GNU time reports: a child that this process starts itself would be charged with the memory
    of this process as well, because the kernel counts from before the exec.
    """
    with tempfile.TemporaryFile() as complaints, tempfile.NamedTemporaryFile("r") as peak, \
            open(job.output, "wb") as output, one_processor_busy() if job.busy else contextlib.nullcontext():
        command = [shutil.which("time"), "-o", peak.name, "-f", "%M", *job.arguments]
        os.sync()  # nobody pays for what the one before left to be written
        start = time.perf_counter()
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=output, stderr=complaints,
                                   preexec_fn=lambda: os.sched_setaffinity(0, PROCESSORS))
        _, status, usage = os.wait4(process.pid, 0)
        wall = time.perf_counter() - start
        process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode != 0:
            complaints.seek(0)
            sys.exit(f"{' '.join(job.arguments)}\nended with status {process.returncode}\n"
                     + complaints.read().decode(errors="replace"))
        return Measured(round(wall, 4), round(usage.ru_utime + usage.ru_stime, 4), int(peak.read().split()[-1]) * 1024)
