#!/usr/bin/python3
"""Writes the sign lists and the phonetic table.

    /usr/bin/python3 tools/gen_lists.py [data folder]

Lists/BasicList.csv and Lists/Extendedlist.csv: the uniliteral signs first (the
browser's "@" page), then every code of the library from A1 on, grouped by
first letter (Aa after the A codes, NL and NU after the N codes), by number
within a category, variants after their base sign. One quoted code a line.

Lists/Phonetic.csv: Gardiner code and phonetic value, one value a row.
"""

from __future__ import annotations

import os
import sys

from fontTools.ttLib import TTFont

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import nkfile  # noqa: E402
import phonetic  # noqa: E402
import signs  # noqa: E402


def check_phonetic(rows, *code_lists) -> None:
    if len(rows) > phonetic.MAX_ROWS:
        raise ValueError(f"{len(rows)} phonetic rows, at most {phonetic.MAX_ROWS}")
    seen = set()
    for code, value in rows:
        if not value or set(value) - phonetic.LETTERS:
            raise ValueError(f"{code}: {value!r} is not plain transliteration")
        if (code, value) in seen:
            raise ValueError(f"{code} {value} twice")
        seen.add((code, value))
        for codes in code_lists:
            if code not in codes:
                raise ValueError(f"{code} is not in every sign list")


def main(argv) -> int:
    data = argv[1] if len(argv) > 1 else os.path.join(
        os.path.dirname(os.path.abspath(__file__)), "..", "data")
    lists = os.path.join(data, "Lists")
    basic = signs.sign_list(code for code, _ in signs.basic_signs())
    extended_table, _ = signs.extended_signs(TTFont(signs.FONT_PATH))
    extended = signs.sign_list(code for code, _ in extended_table)
    for name, codes in (("BasicList.csv", basic), ("Extendedlist.csv", extended)):
        if len(codes) > signs.MAX_LIST_CODES:
            raise ValueError(f"{name}: {len(codes)} codes, at most {signs.MAX_LIST_CODES}")
        nkfile.write_records(os.path.join(lists, name), [[c] for c in codes])
    check_phonetic(phonetic.ROWS, set(basic), set(extended))
    nkfile.write_records(os.path.join(lists, "Phonetic.csv"), phonetic.ROWS)
    print(f"BasicList.csv: {len(basic)} codes, {len(signs.PREAMBLE)} of them before A1")
    print(f"Extendedlist.csv: {len(extended)} codes, {len(signs.PREAMBLE)} of them before A1")
    print(f"Phonetic.csv: {len(phonetic.ROWS)} rows")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
