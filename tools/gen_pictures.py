#!/usr/bin/python3
"""Draws the sign pictures of the Basic and Extended libraries.

    /usr/bin/python3 tools/gen_pictures.py [data folder]

Every sign is drawn from the Aegyptus font at one scale (the em square is
EM_PIXELS wide), so signs keep their sizes relative to each other: a full-height
sign such as A1 stands about 36 pixels, a flat one such as N35 stays flat. The
outline is drawn SUPERSAMPLE times larger and averaged down, which gives smooth
edges in a few grey levels; ink is black (thin lines are darkened), the
background white. Each picture is cropped to the ink with a one-pixel margin. Left pictures face as the font draws
them (to the left); Right pictures are their mirror images.

Files: <library>/<Left|Right>/<first letter of the code>/<code>.GIF. Pictures
that no longer belong to a library are removed, so a rerun gives the same tree.
"""

from __future__ import annotations

import os
import shutil
import sys

from fontTools.ttLib import TTFont
from PIL import Image, ImageDraw, ImageFont, ImageOps

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import signs  # noqa: E402

EM_PIXELS = 40
SUPERSAMPLE = 4
GREY_LEVELS = 16  # ink coverage is kept in 16 steps: small files, smooth edges
# The font draws its signs in thin outline; at 40 pixels a line covers about
# half a pixel and would come out grey. Doubling the coverage makes lines
# black while edges stay smooth.
INK_GAIN = 2
MARGIN = 1

# The palette: index k is ink coverage k/15, from white (0) to black (15).
PALETTE = []
for k in range(GREY_LEVELS):
    v = 255 - round(k * 255 / (GREY_LEVELS - 1))
    PALETTE += [v, v, v]


def render(font: ImageFont.FreeTypeFont, cp: int) -> Image.Image:
    """The sign at code point cp, facing left, as a palette picture."""
    big = EM_PIXELS * SUPERSAMPLE
    # A canvas with room for any glyph of the font (the widest reaches past two
    # and a half ems): half an em left of the origin and three ems right of it,
    # one em above and below the baseline. The origin sits on a multiple of
    # SUPERSAMPLE so that every sign is sampled with the same phase.
    canvas = Image.new("L", (4 * big, 2 * big), 0)
    ImageDraw.Draw(canvas).text((big // 2, big), chr(cp), font=font, fill=255, anchor="ls")
    small = canvas.reduce(SUPERSAMPLE)
    steps = GREY_LEVELS - 1
    levels = small.point(lambda v: (min(255, v * INK_GAIN) * steps + 127) // 255)
    box = levels.getbbox()
    if box is None:
        raise ValueError(f"U+{cp:X} draws no ink")
    left, top, right, bottom = box
    crop = levels.crop((left - MARGIN, top - MARGIN, right + MARGIN, bottom + MARGIN))
    pic = Image.new("P", crop.size, 0)
    pic.putpalette(PALETTE)
    pic.paste(crop)
    return pic


def save_gif(pic: Image.Image, path: str) -> None:
    os.makedirs(os.path.dirname(path), exist_ok=True)
    pic.save(path, format="GIF", optimize=False)


def picture_path(data: str, library: str, direction: str, code: str) -> str:
    return os.path.join(data, library, direction, code[0], code + ".GIF")


def write_library(data: str, library: str, sign_table, font) -> None:
    wanted = set()
    for code, cp in sign_table:
        left = render(font, cp)
        right = ImageOps.mirror(left)
        for direction, pic in (("Left", left), ("Right", right)):
            path = picture_path(data, library, direction, code)
            save_gif(pic, path)
            wanted.add(os.path.normpath(path))
    # Remove pictures of codes that left the library.
    for direction in ("Left", "Right"):
        root = os.path.join(data, library, direction)
        for folder, _, files in os.walk(root):
            for name in files:
                path = os.path.normpath(os.path.join(folder, name))
                if path not in wanted:
                    os.remove(path)
    shutil.copyfile(signs.FONT_LICENCE, os.path.join(data, library, "LICENSE-Aegyptus.txt"))


def main(argv) -> int:
    data = argv[1] if len(argv) > 1 else os.path.join(
        os.path.dirname(os.path.abspath(__file__)), "..", "data")
    font = ImageFont.truetype(signs.FONT_PATH, size=EM_PIXELS * SUPERSAMPLE)
    extended, left_out = signs.extended_signs(TTFont(signs.FONT_PATH))
    write_library(data, "Basic", signs.basic_signs(), font)
    write_library(data, "Extended", extended, font)
    print(f"Basic: {len(signs.basic_signs())} signs; Extended: {len(extended)} signs")
    print(f"Font glyphs left out of the Extended library ({len(left_out)}):")
    for glyph, reason in left_out:
        print(f"  {glyph}: {reason}")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
