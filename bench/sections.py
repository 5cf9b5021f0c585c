"""The log sections that are measured: what their export of the whole log is called."""

from dataclasses import dataclass
from typing import Optional


@dataclass(frozen=True)
class Section:
    """answers: those of an interactive export of everything into /dev/null; None where the form offers no such choice.

    scripts: whether peers/ exports this section, too.
    """
    number: str
    title: str
    parameters: str
    answers: Optional[bytes]
    scripts: bool


# The range of currencies as proposed, then the name of the file. The form of the open items asks for one client.
SECTIONS = [
    Section("15", "exchange rates", "/autostart", b"\n\n/dev/null\n", True),
    Section("6", "open items", "/autostart/vonkonto:1/biskonto:999999999", None, False),
]
