#!/usr/bin/python3
"""Writes Dictionaries/Words.nkd, the starter dictionary.

    /usr/bin/python3 tools/gen_dictionary.py [data folder]

Run it after gen_pictures.py: the signs are placed from the real sizes of the
Basic Left pictures. The file starts with a header line of seven values, then
one line of seven quoted fields per word: direction "L", library "B", glyph
layout, Gardiner notation, transliteration, meaning, comment.
"""

from __future__ import annotations

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import layout  # noqa: E402
import nkfile  # noqa: E402
import words  # noqa: E402

# A fixed date keeps the file the same on every run; it is the day the word
# list was last revised.
HEADER = [
    "Nebkaro starter dictionary",
    "Nebkaro developers",
    "21 November 2026",
    "",
    "Common Middle Egyptian words",
    "Spellings after Gardiner's Egyptian Grammar",
    "Sign pictures from the Aegyptus font",
]


def records(data: str):
    size = layout.picture_sizes(data, "Basic")
    out = []
    for translit, spelling, meaning, comment in words.WORDS:
        for value in (translit, meaning, comment):
            if "|" in value:
                raise ValueError(f"{translit}: a value may not hold '|'")
        placed = layout.place(spelling, size)
        out.append(["L", "B", layout.layout_string(placed), layout.gardiner_notation(placed),
                    translit, meaning, comment])
    return out


def main(argv) -> int:
    data = argv[1] if len(argv) > 1 else os.path.join(
        os.path.dirname(os.path.abspath(__file__)), "..", "data")
    rows = [HEADER] + records(data)
    nkfile.write_records(os.path.join(data, "Dictionaries", "Words.nkd"), rows)
    print(f"Words.nkd: {len(rows) - 1} words")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
