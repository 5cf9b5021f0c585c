"""The log sections that are measured, which are those of scripts/sections.txt."""

import pathlib
from dataclasses import dataclass
from typing import Optional

# Answers of an interactive export of everything into /dev/null, where the form offers such a choice: the range of
# currencies as proposed, then the name of the file. That of the open items asks for one client.
ANSWERS = {"exchange-rates": b"\n\n/dev/null\n"}

# Those that peers/ exports, too: good_rates.py, plain_rates.py, ...
PEERS = {"exchange-rates": "rates", "customers": "customers"}

# The share of the dump's time that a million rows may take.
AIMS = {"suppliers": (3.0,), "customers": (3.0,), "report-frameworks": (3.0,)}
AIMS_OF_OTHERS = (1.5, 1.0)


@dataclass(frozen=True)
class Section:
    """parameters: of an export of everything, or of one client. answers: likewise; None where the form offers no such
    choice. peers: the last word of the scripts' names, None without scripts. aims: of the dump's time, at most."""
    number: str
    title: str
    parameters: str
    answers: Optional[bytes]
    peers: Optional[str]
    aims: tuple


def read_sections(path):
    for line in path.read_text(encoding="utf-8").splitlines():
        if not line.startswith("#"):
            number, name, _, _, everything, _ = line.split(maxsplit=5)
            yield Section(number, name.replace("-", " "), everything, ANSWERS.get(name),
                          PEERS.get(name), AIMS.get(name, AIMS_OF_OTHERS))


SECTIONS = list(read_sections(pathlib.Path(__file__).resolve().parent.parent / "scripts/sections.txt"))
