"""The record: record.json holds every run, README.md shows the tables that follow from it."""

import json
import pathlib
from dataclasses import asdict

import report
from process import Measured
from sections import SECTIONS

HERE = pathlib.Path(__file__).parent
RUNS = HERE / "record.json"
PAGE = HERE / "README.md"
BEGIN, END = "<!-- record begins -->\n", "<!-- record ends -->\n"


def put(section, size):
    """Records this size of the section; all others stay."""
    runs = read()
    runs[f"{section.number} {size.rows}"] = size
    lines = [f'"{key}": {json.dumps(asdict(runs[key]), ensure_ascii=False)}' for key in sorted(runs)]
    RUNS.write_text("{\n" + ",\n".join(lines) + "\n}\n", encoding="utf-8")
    write_page(runs)


def read():
    """From the section's number and the log rows ("15 100000") to the size."""
    if not RUNS.exists():
        return {}
    return {key: size_of(recorded) for key, recorded in json.loads(RUNS.read_text(encoding="utf-8")).items()}


def size_of(recorded):
    size = report.Size(**recorded)
    size.results = {name: [Measured(*run) for run in runs] for name, runs in size.results.items()}
    return size


def write_page(runs):
    before, _, rest = PAGE.read_text(encoding="utf-8").partition(BEGIN)
    _, _, after = rest.partition(END)
    PAGE.write_text(before + BEGIN + "".join(section_text(section, runs) for section in SECTIONS) + END + after,
                    encoding="utf-8")


def section_text(section, runs):
    sizes = sorted((runs[key] for key in runs if key.split()[0] == section.number), key=lambda size: size.rows)
    text = "Not recorded yet."
    if sizes:
        text = f"```text\n{report.table(section, sizes)}\n\n{report.conclusion(section, sizes)}\n```"
    return f"### {section.title.capitalize()} ({section.number})\n\n{text}\n\n"
