"""Where the tests find the shipped data and the generators."""

import os
import sys

ROOT = os.path.abspath(os.path.join(os.path.dirname(__file__), "..", ".."))
TOOLS = os.path.join(ROOT, "tools")
DATA = os.environ.get("NEBKARO_DATA", os.path.join(ROOT, "data"))

if TOOLS not in sys.path:
    sys.path.insert(0, TOOLS)


def data_path(*parts: str) -> str:
    return os.path.join(DATA, *parts)


def program_upper(text: str) -> str:
    """Upper-casing as the program's case-blind sort does it: ASCII, Latin-1
    (but not the division sign), y with diaeresis to U+0178."""
    out = []
    for ch in text:
        c = ord(ch)
        if ord("a") <= c <= ord("z"):
            c -= 32
        elif 0xE0 <= c <= 0xFE and c != 0xF7:
            c -= 32
        elif c == 0xFF:
            c = 0x178
        out.append(chr(c))
    return "".join(out)
