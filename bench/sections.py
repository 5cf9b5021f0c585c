"""The log sections that are measured, which are those of scripts/sections.txt."""

import pathlib
from dataclasses import dataclass
from typing import Optional

# Those that peers/ exports, too: good_rates.py, plain_rates.py, ...
PEERS = {"exchange-rates": "rates", "customers": "customers"}

# Parameter texts for one customer and one framework.
NARROW = {
    "customers": "/autostart/mandant:123/vonkonto:10000/biskonto:10000",
    "report-frameworks": "/autostart/auswertung:Bilanz/auswertungsrahmen:Bilanz Handwerk",
}


@dataclass(frozen=True)
class Section:
    """parameters: of an export of everything, or of one client. peers: the last word of the scripts' names, None without
    scripts. narrow: parameters of a selection of few rows, None without one."""
    number: str
    title: str
    parameters: str
    peers: Optional[str]
    narrow: Optional[str]

    def lookups_prevail(self):
        """Whether a row asks for more than the row itself."""
        return self.number in ("8", "9", "10")

    def is_whole_log(self):
        """Whether the main query walks over the log by date alone, so that an index on the date spares a sort."""
        return self.number == "15"


def read_sections(path):
    for line in path.read_text(encoding="utf-8").splitlines():
        if not line.startswith("#"):
            number, name, _, _, everything, _ = line.split(maxsplit=5)
            yield Section(number, name.replace("-", " "), everything, PEERS.get(name), NARROW.get(name))


SECTIONS = list(read_sections(pathlib.Path(__file__).resolve().parent.parent / "scripts/sections.txt"))
