#!/usr/bin/python3
"""Writes Lists/Trans2Code.csv, the table behind the classic transliteration sort.

    /usr/bin/python3 tools/gen_trans2code.py [data folder]

The sort encodes each transliteration character by character (character c
becomes column 0 of row c), compares the encoded texts by code point, and
decodes them again (character c becomes column 1 of row c). The file holds 225
records, for the characters 31 to 255 in order.

How the encoding is made
------------------------
The 27 letters of the classic order "A i y j a w b p f m n r h H x X z s S q o
k g t T d D" become 27 Latin-1 signs in rising order, from the inverted
exclamation mark (161) to the inverted question mark (191). The typewriter's j
(the glide i̯) and o (a second q) stand where its own Egyptological keys put
them, j after y and o after q; without a place of their own they would sort
before every other letter. These signs have no case, so upper-casing (the
sort's case-blind mode, which covers ASCII and Latin-1) leaves them alone: the
order holds with and without "Case sensitive", and h and H stay apart. The
soft hyphen (173) is skipped because editors may drop it, and the micro sign
(181) and the two ordinal indicators (170, 186) because some upper-casing turns
them into other characters.

The 27 signs that stood on those codes move, in order, onto the codes the
letters left free; every other character stays itself. So the encoding is a
one-to-one mapping of the characters 32..255, and column 1 is its inverse.

What the file format cannot hold
--------------------------------
No value of these files can contain a double quote: a quoted field ends at the
next double quote, and an unquoted field that starts with one is read as a
quoted field. A value consisting of a double quote alone is therefore not
writable at all, and no row can decode to a double quote. A transliteration
cannot hold one either (the dictionary file cannot store it), so the double
quote gets the nearest writable treatment: it is encoded as two apostrophes,
which sort where it would and decode to two apostrophes. No encoded text holds
a double quote, so its decoding column is empty.

Character 31 is a control character that never stands in a transliteration;
its row is empty both ways.

All other values are single characters, written quoted, which keeps blanks and
commas intact ('" "', '","').
"""

from __future__ import annotations

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import nkfile  # noqa: E402

CLASSIC_ORDER = "A i y j a w b p f m n r h H x X z s S q o k g t T d D".split()

FIRST_ROW, LAST_ROW = 31, 255
QUOTE = 34
# Latin-1 codes that upper-casing might change or that editors might lose.
_AVOID = {170, 173, 181, 186}
LETTER_CODES = [c for c in range(161, 192) if c not in _AVOID]
assert len(LETTER_CODES) == len(CLASSIC_ORDER)


def encoding_map() -> dict[int, int]:
    """The one-to-one mapping of the characters 32..255 other than the double
    quote onto themselves."""
    mapping = {c: c for c in range(32, 256) if c != QUOTE}
    letters = [ord(ch) for ch in CLASSIC_ORDER]
    displaced = sorted(LETTER_CODES)
    freed = sorted(letters)
    for letter, code in zip(letters, LETTER_CODES):
        mapping[letter] = code
    for sign, code in zip(displaced, freed):
        mapping[sign] = code
    return mapping


def build_table() -> list[tuple[str, str]]:
    """Column 0 and column 1 of every row, 31 to 255."""
    mapping = encoding_map()
    inverse = {v: k for k, v in mapping.items()}
    if len(inverse) != len(mapping):
        raise AssertionError("the encoding is not one-to-one")
    rows = []
    for c in range(FIRST_ROW, LAST_ROW + 1):
        if c == QUOTE:
            enc = chr(mapping[ord("'")]) * 2
        elif c in mapping:
            enc = chr(mapping[c])
        else:
            enc = ""
        dec = chr(inverse[c]) if c in inverse else ""
        rows.append((enc, dec))
    return rows


def as_rows(table) -> dict[int, tuple[str, str]]:
    return {FIRST_ROW + k: row for k, row in enumerate(table)}


def translate(text: str, table, column: int) -> str:
    """What the sort does to one field: each character replaced by its row's text."""
    rows = as_rows(table)
    out = []
    for ch in text:
        c = ord(ch)
        if c >= 256:
            raise ValueError(f"character U+{c:04X} has no row")
        out.append(rows[c][column] if c in rows else "")
    return "".join(out)


def main(argv) -> int:
    data = argv[1] if len(argv) > 1 else os.path.join(
        os.path.dirname(os.path.abspath(__file__)), "..", "data")
    table = build_table()
    nkfile.write_records(os.path.join(data, "Lists", "Trans2Code.csv"), table)
    print(f"Trans2Code.csv: {len(table)} records")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
