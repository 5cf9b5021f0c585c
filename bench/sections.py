"""The log sections that are measured, which are those of scripts/sections.txt."""

import pathlib
from dataclasses import dataclass
from typing import Optional

# Answers of an interactive export of everything into /dev/null, where the form offers such a choice: the range of
# currencies as proposed, then the name of the file. That of the open items asks for one client.
ANSWERS = {"exchange-rates": b"\n\n/dev/null\n"}

# Those that peers/ exports, too.
PEERS = {"exchange-rates"}


@dataclass(frozen=True)
class Section:
    """parameters: of an export of everything. answers: likewise; None where the form offers no such choice."""
    number: str
    title: str
    parameters: str
    answers: Optional[bytes]
    scripts: bool


def read_sections(path):
    for line in path.read_text(encoding="utf-8").splitlines():
        if not line.startswith("#"):
            number, name, _, _, everything, _ = line.split(maxsplit=5)
            yield Section(number, name.replace("-", " "), everything, ANSWERS.get(name), name in PEERS)


SECTIONS = list(read_sections(pathlib.Path(__file__).resolve().parent.parent / "scripts/sections.txt"))
