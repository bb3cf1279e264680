#!/usr/bin/python3
"""Ships the outlines the sign pictures were drawn from.

    /usr/bin/python3 tools/gen_outlines.py [data folder]

The program draws a sign from its vector outline wherever it is shown larger
than its picture or printed. The outlines are the Aegyptus font's, the font
gen_pictures.py draws the pictures from, so an outline and its picture are the
same sign at the same scale (EM_PIXELS pixels to the em).

Writes:
  Fonts/Aegyptus.ttf             the font, as Debian ships it
  Fonts/LICENSE-Aegyptus.txt     its licence
  Lists/SignGlyphs.csv           one record a sign code of either library:
                                 "code","code point in hex"; a code means the
                                 same sign in both libraries (signs.py), so one
                                 table serves both
"""

from __future__ import annotations

import os
import shutil
import sys

from fontTools.ttLib import TTFont

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import nkfile  # noqa: E402
import signs  # noqa: E402


def glyph_table(font) -> list[tuple[str, int]]:
    extended, _ = signs.extended_signs(font)
    table: dict[str, int] = {}
    for code, cp in list(signs.basic_signs()) + list(extended):
        if table.setdefault(code, cp) != cp:
            raise ValueError(f"{code} names two glyphs: U+{table[code]:X} and U+{cp:X}")
    return sorted(table.items(), key=lambda item: signs.list_key(item[0]))


def main(argv) -> int:
    data = argv[1] if len(argv) > 1 else os.path.join(
        os.path.dirname(os.path.abspath(__file__)), "..", "data")
    fonts = os.path.join(data, "Fonts")
    os.makedirs(fonts, exist_ok=True)
    shutil.copyfile(signs.FONT_PATH, os.path.join(fonts, "Aegyptus.ttf"))
    shutil.copyfile(signs.FONT_LICENCE, os.path.join(fonts, "LICENSE-Aegyptus.txt"))
    table = glyph_table(TTFont(signs.FONT_PATH))
    nkfile.write_records(os.path.join(data, "Lists", "SignGlyphs.csv"),
                         [(code, f"{cp:X}") for code, cp in table])
    print(f"SignGlyphs.csv: {len(table)} codes")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
