#!/usr/bin/python3
"""Makes the font "Transliteration" from DejaVu Sans.

    /usr/bin/python3 tools/gen_font.py [data folder]

The dictionary stores transliteration in plain letters, upper and lower case
standing for different sounds; this font draws those plain letters in their
scholarly forms, so the same text reads "nfr", "Htp", "Dd" on disk and "nfr",
"ḥtp", "ḏd" on screen. Letters that are not transliteration sounds, digits and
punctuation keep DejaVu's drawings.

    A  ꜣ  aleph (U+A723)          H  ḥ  (U+1E25)
    a  ꜥ  ayin (U+A725)           x  ḫ  (U+1E2B)
    i  ỉ  yod (U+1EC9)            X  ẖ  (U+1E96)
    I  Ỉ  yod, capital (U+1EC8), for a name typed with a capital
    j  i̯  consonantal yod, i with the inverted breve below (i + U+032F),
          the form used for a weak yod in endings such as mri̯
    q  ḳ  (U+1E33)                S  š  (U+0161)
    o  q  plain q: the typewriter's o is the other way of writing the sound
          of ḳ, which is why the alphabetical typewriter puts o where q stands
          in the Latin alphabet
    T  ṯ  (U+1E6F)                D  ḏ  (U+1E0F)

The scholarly characters themselves keep their own drawings too, and the
Egyptological yod ꞽ and Ꞽ (U+A7BD, U+A7BC), which DejaVu lacks, is drawn as a
dotless i (or a capital I) with the right half ring above (U+0357), the form
scholars typed before the letter had a code point; a text pasted from a modern
edition then shows its yod instead of an empty box. The font is cut
down to the Latin ranges, combining marks and punctuation, which keeps it small.

Needs Debian's fonts-dejavu-core and python3-fonttools. DejaVu's licence
(Bitstream Vera terms; DejaVu changes in the public domain) asks that a changed
font not carry the names Bitstream or Vera, and that the notices go with it: the
font is renamed, its copyright and licence name records are kept, and the
licence file is copied beside it.
"""

from __future__ import annotations

import os
import shutil
import sys

from fontTools import subset
from fontTools.ttLib import TTFont
from fontTools.ttLib.tables._g_l_y_f import Glyph, GlyphComponent

SOURCE = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
SOURCE_LICENCE = "/usr/share/doc/fonts-dejavu-core/copyright"
FAMILY = "Transliteration"

# Plain letter -> the character whose drawing it takes.
SCHOLARLY = {
    "A": "\uA723", "a": "\uA725", "i": "\u1EC9", "H": "\u1E25", "x": "\u1E2B",
    "X": "\u1E96", "S": "\u0161", "T": "\u1E6F", "D": "\u1E0F", "q": "\u1E33",
    "o": "q", "I": "\u1EC8",
}
# Letters drawn by a glyph made here: name, base character, combining mark.
COMPOSED = {
    "j": ("i.yod", "i", "\u032F"),
    "\uA7BD": ("uniA7BD", "\u0131", "\u0357"),
    "\uA7BC": ("uniA7BC", "I", "\u0357"),
}

KEEP = ([(0x20, 0x7E), (0xA0, 0x36F), (0x1E00, 0x1EFF), (0x2000, 0x206F),
         (0x20AC, 0x20AC), (0xA720, 0xA7FF)])


def compose(font: TTFont, name: str, base: str, mark: str) -> None:
    """A glyph of the base with the mark centred under or over it. A mark
    above is lifted by what the base rises over a dotless i, so that it sits
    on a capital as it sits on a small letter."""
    cmap = font.getBestCmap()
    glyf, hmtx = font["glyf"], font["hmtx"]
    base_glyph, mark_glyph = cmap[ord(base)], cmap[ord(mark)]
    b, m = glyf[base_glyph], glyf[mark_glyph]
    dx = round((b.xMin + b.xMax) / 2 - (m.xMin + m.xMax) / 2)
    dy = 0
    if m.yMin > 0:
        dy = max(0, b.yMax - glyf[cmap[0x0131]].yMax)
    parts = []
    for glyph_name, x, y in ((base_glyph, 0, 0), (mark_glyph, dx, dy)):
        c = GlyphComponent()
        c.glyphName, c.x, c.y = glyph_name, x, y
        c.flags = 0
        parts.append(c)
    parts[0].flags = 0x0200  # the composite takes the base's advance
    g = Glyph()
    g.numberOfContours = -1
    g.components = parts
    font.setGlyphOrder(font.getGlyphOrder() + [name])
    glyf[name] = g
    glyf[name].recalcBounds(glyf)
    hmtx[name] = hmtx[base_glyph]


def remap(font: TTFont) -> None:
    original = font.getBestCmap()
    targets = {ord(k): original[ord(v)] for k, v in SCHOLARLY.items()}
    targets.update({ord(k): name for k, (name, _, _) in COMPOSED.items()})
    for table in font["cmap"].tables:
        if table.isUnicode():
            for cp, glyph in targets.items():
                if cp in table.cmap or cp > 0x7F:
                    table.cmap[cp] = glyph


def rename(font: TTFont, version: str) -> None:
    name = font["name"]
    for rec_id in (16, 17, 21, 22):
        name.removeNames(nameID=rec_id)
    values = {
        1: FAMILY,
        2: "Regular",
        3: f"{FAMILY} Regular; from DejaVu Sans {version}",
        4: FAMILY,
        6: FAMILY,
    }
    for rec_id, value in values.items():
        name.removeNames(nameID=rec_id)
        name.setName(value, rec_id, 3, 1, 0x409)
        name.setName(value, rec_id, 1, 0, 0)


def build(out_path: str) -> None:
    font = TTFont(SOURCE, recalcTimestamp=False)
    version = font["name"].getDebugName(5) or ""
    version = version.replace("Version ", "")
    for key, (name, base, mark) in COMPOSED.items():
        compose(font, name, base, mark)
    remap(font)

    opts = subset.Options()
    opts.layout_features = ["*"]
    opts.name_IDs = ["*"]
    opts.name_languages = ["*"]
    opts.name_legacy = True
    opts.notdef_outline = True
    opts.glyph_names = True
    opts.drop_tables += ["FFTM", "MATH"]
    sub = subset.Subsetter(opts)
    unicodes = [cp for lo, hi in KEEP for cp in range(lo, hi + 1)]
    sub.populate(unicodes=unicodes)
    sub.subset(font)

    rename(font, version)
    os.makedirs(os.path.dirname(out_path), exist_ok=True)
    # The source's dates are kept, so a rerun writes the same bytes.
    font.save(out_path, reorderTables=True)


def main(argv) -> int:
    data = argv[1] if len(argv) > 1 else os.path.join(
        os.path.dirname(os.path.abspath(__file__)), "..", "data")
    fonts = os.path.join(data, "Fonts")
    build(os.path.join(fonts, "Transliteration.ttf"))
    shutil.copyfile(SOURCE_LICENCE, os.path.join(fonts, "LICENSE-DejaVu.txt"))
    print("Fonts/Transliteration.ttf written")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
