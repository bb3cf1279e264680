#!/usr/bin/python3
"""Draws the program's icon: the scribe's outfit (Gardiner Y3) from the Aegyptus font,
dark on a papyrus-coloured rounded square.

    /usr/bin/python3 tools/gen_icon.py [packaging folder]

Writes icons/hicolor/scalable/apps/<id>.svg and icons/hicolor/<n>x<n>/apps/<id>.png for
the usual sizes. The font draws its signs in thin outline, so the ink is thickened in
proportion to the icon (a stroke in the SVG, a widening filter in the PNGs), which keeps
the sign readable at 16 pixels.
"""

from __future__ import annotations

import os
import sys
import unicodedata

from fontTools.pens.boundsPen import BoundsPen
from fontTools.pens.svgPathPen import SVGPathPen
from fontTools.ttLib import TTFont
from PIL import Image, ImageDraw, ImageFilter, ImageFont

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import signs  # noqa: E402

APP_ID = "io.github.nebkaro.Nebkaro"
SIGN = "EGYPTIAN HIEROGLYPH Y003"
SIZES = [16, 22, 24, 32, 48, 64, 128, 256]
VIEW = 256  # the SVG's user units
CORNER = 40
INSET = 8  # the square leaves this much room at each edge
INNER = 176  # the sign fits in a box this wide and high, centred
STROKE = 6  # added ink width, in the SVG's units
PAPER, EDGE, INK = "#ead9ab", "#9c7a45", "#3a2a18"


def sign_outline(font: TTFont, cp: int):
    name = font.getBestCmap()[cp]
    glyphs = font.getGlyphSet()
    bounds = BoundsPen(glyphs)
    glyphs[name].draw(bounds)
    path = SVGPathPen(glyphs)
    glyphs[name].draw(path)
    return bounds.bounds, path.getCommands()


def placement(bounds):
    """Scale and offsets putting the glyph box (font units, y up) in the centre."""
    x0, y0, x1, y1 = bounds
    scale = INNER / max(x1 - x0, y1 - y0)
    tx = (VIEW - (x1 - x0) * scale) / 2 - x0 * scale
    ty = (VIEW + (y1 - y0) * scale) / 2 + y0 * scale
    return scale, tx, ty


def svg(bounds, commands: str) -> str:
    scale, tx, ty = placement(bounds)
    return (
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{VIEW}" height="{VIEW}" '
        f'viewBox="0 0 {VIEW} {VIEW}">\n'
        f'  <rect x="{INSET}" y="{INSET}" width="{VIEW - 2 * INSET}" '
        f'height="{VIEW - 2 * INSET}" rx="{CORNER}" fill="{PAPER}" stroke="{EDGE}" '
        f'stroke-width="6"/>\n'
        f'  <path transform="matrix({scale:.6f} 0 0 {-scale:.6f} {tx:.3f} {ty:.3f})" '
        f'fill="{INK}" stroke="{INK}" stroke-width="{STROKE / scale:.3f}" '
        f'stroke-linejoin="round" d="{commands}"/>\n'
        "</svg>\n"
    )


def png(font_path: str, cp: int, bounds, size: int) -> Image.Image:
    big = 1024  # drawn at this size, then reduced
    k = big / VIEW
    scale, tx, ty = placement(bounds)
    font = ImageFont.truetype(font_path, round(TTFont(font_path)["head"].unitsPerEm * scale * k))
    mask = Image.new("L", (big, big), 0)
    # The glyph's origin lands where the SVG's transform puts it.
    ImageDraw.Draw(mask).text((tx * k, ty * k), chr(cp), font=font, fill=255, anchor="ls")
    # Thicken the ink: more at small sizes, where a hairline would vanish.
    widen = STROKE * k * max(1.0, 48 / size)
    mask = mask.filter(ImageFilter.MaxFilter(int(widen) | 1))
    picture = Image.new("RGBA", (big, big), (0, 0, 0, 0))
    draw = ImageDraw.Draw(picture)
    draw.rounded_rectangle(
        [INSET * k, INSET * k, (VIEW - INSET) * k, (VIEW - INSET) * k],
        radius=CORNER * k, fill=PAPER, outline=EDGE, width=round(6 * k * max(1.0, 32 / size)),
    )
    picture.paste(Image.new("RGBA", (big, big), INK), (0, 0), mask)
    return picture.resize((size, size), Image.LANCZOS)


def main() -> None:
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(
        os.path.dirname(os.path.abspath(__file__)), "..", "packaging")
    cp = ord(unicodedata.lookup(SIGN))
    font = TTFont(signs.FONT_PATH)
    bounds, commands = sign_outline(font, cp)
    base = os.path.join(out, "icons", "hicolor")
    os.makedirs(os.path.join(base, "scalable", "apps"), exist_ok=True)
    with open(os.path.join(base, "scalable", "apps", APP_ID + ".svg"), "w") as f:
        f.write(svg(bounds, commands))
    for size in SIZES:
        folder = os.path.join(base, f"{size}x{size}", "apps")
        os.makedirs(folder, exist_ok=True)
        png(signs.FONT_PATH, cp, bounds, size).save(
            os.path.join(folder, APP_ID + ".png"), optimize=True)


if __name__ == "__main__":
    main()
