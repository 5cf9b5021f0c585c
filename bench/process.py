"""Runs one program and measures it."""

import os
import shutil
import subprocess
import sys
import tempfile
import time
from dataclasses import dataclass


@dataclass
class Job:
    """A program to run. output: the file that takes its standard output."""
    arguments: list
    output: str
    answers: bytes = b""


@dataclass
class Measured:
    wall: float     # seconds, from before the start until the end
    cpu: float      # seconds, user and system
    memory: int     # bytes, resident at the peak


def run(job):
    """Runs `job` and waits for it. A program that fails ends the benchmark, with its own words.

    The peak memory is what GNU time reports: a child that this process starts itself would be charged with the memory
    of this process as well, because the kernel counts from before the exec.
    """
    with tempfile.TemporaryFile() as answers, tempfile.TemporaryFile() as complaints, \
            tempfile.NamedTemporaryFile("r") as peak, open(job.output, "wb") as output:
        answers.write(job.answers)
        answers.seek(0)
        command = [shutil.which("time"), "-o", peak.name, "-f", "%M", *job.arguments]
        os.sync()  # nobody pays for what the one before left to be written
        start = time.perf_counter()
        process = subprocess.Popen(command, stdin=answers, stdout=output, stderr=complaints)
        _, status, usage = os.wait4(process.pid, 0)
        wall = time.perf_counter() - start
        process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode != 0:
            complaints.seek(0)
            sys.exit(f"{' '.join(job.arguments)}\nended with status {process.returncode}\n"
                     + complaints.read().decode(errors="replace"))
        return Measured(wall, usage.ru_utime + usage.ru_stime, int(peak.read().split()[-1]) * 1024)
