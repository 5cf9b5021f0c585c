"""What the program aims at."""

from contenders import DEFAULT, DEFAULT_BUSY, DUMP, NARROW, NARROW_BEFORE, ONE_THREAD, ONE_THREAD_BUSY

MEGABYTE = 1_000_000
MILLION = 1_000_000

NOT_SLOWER = 1.05   # README.md says why not 1

# contender, what its wall time is compared with, at most, remark
ALWAYS = [
    (DEFAULT_BUSY, ONE_THREAD_BUSY, NOT_SLOWER, ""),
    (NARROW, NARROW_BEFORE, NOT_SLOWER, ""),
]
ROW_BY_ROW = [
    (ONE_THREAD, DUMP, 1.0, ""),
    (DEFAULT, DUMP, 0.75, ""),
    (DEFAULT, DUMP, 0.6, " (the aim)"),
]
WITH_LOOKUPS = [
    (DEFAULT, DUMP, 3.0, ""),
]

# log rows: megabytes
PEAKS = {MILLION: 32, 5 * MILLION: 64}
PEAKS_OF_OPEN_ITEMS = {**PEAKS, 5 * MILLION: 80}

# The CPU time a row may grow by so much between these numbers of log rows.
GROWTH = 1.25
GROWS = (100_000, 5 * MILLION)


def number(value):
    return f"{value:,}".replace(",", " ")


def targets(section, sizes):
    """Those that these sizes tell about: log rows, measured value, at most, words."""
    for size in sizes:
        for contender, base, at_most, remark in compared(section, size.rows):
            if contender in size.results and base in size.results:
                yield size.rows, size.ratios(contender, base)[1], at_most, f"wall time, {contender} / {base}{remark}"
        peaks = PEAKS_OF_OPEN_ITEMS if section.number == "6" else PEAKS
        for contender in (DEFAULT, ONE_THREAD):
            if size.rows in peaks:
                yield size.rows, size.median(contender, "memory") / MEGABYTE, peaks[size.rows], f"MB at the peak, {contender}"
    small, large = (next((size for size in sizes if size.rows == rows), None) for rows in GROWS)
    if small and large:
        yield (large.rows, cpu_per_row(large) / cpu_per_row(small), GROWTH,
               f"CPU time a row, {DEFAULT}, here / at {number(small.rows)} rows")


def compared(section, rows):
    if not section.lookups_prevail():
        return ROW_BY_ROW + ALWAYS
    return WITH_LOOKUPS + ALWAYS if rows == MILLION else ALWAYS


def cpu_per_row(size):
    return size.median(DEFAULT, "cpu") / size.rows
