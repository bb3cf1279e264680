"""Places the signs of a word as a scribe groups them.

A spelling is written in a small notation:

    "M17-Y5:N35-A40"     groups left to right, joined by "-"
    "Y5:N35"             inside a group, rows from top to bottom, joined by ":"
    "X1*Q3"              inside a row, signs side by side, joined by "*"

so "R4:X1*Q3" is the offering mat with t and p side by side beneath it.

Signs touch each other (each picture already has a one-pixel margin). Inside a
row the signs are centred vertically; the rows of a group are centred
horizontally over each other; the groups of a word are centred vertically on
one line. The word is then moved so that its top-left corner is (0, 0), and
positions are given in twips, 15 to a picture pixel, as the program keeps them.
Signs are listed in reading order: group by group, top row first, left to right.
"""

from __future__ import annotations

import os
import re

TWIPS_PER_PIXEL = 15
_CODE = re.compile(r"^[A-Z][A-Za-z]?\d+[a-z]{0,2}$")


def gif_size(path: str) -> tuple[int, int]:
    """Width and height from the GIF's logical screen, as the program reads them."""
    with open(path, "rb") as f:
        head = f.read(10)
    if head[:6] not in (b"GIF87a", b"GIF89a"):
        raise ValueError(f"{path} is not a GIF")
    return int.from_bytes(head[6:8], "little"), int.from_bytes(head[8:10], "little")


def picture_sizes(data: str, library: str = "Basic"):
    """A function giving the Left picture size of a code."""
    def size(code: str) -> tuple[int, int]:
        return gif_size(os.path.join(data, library, "Left", code[0], code + ".GIF"))
    return size


def parse(spelling: str) -> list[list[list[str]]]:
    groups = []
    for g in spelling.split("-"):
        rows = []
        for r in g.split(":"):
            signs = r.split("*")
            for s in signs:
                if not _CODE.match(s):
                    raise ValueError(f"{spelling!r}: {s!r} is not a sign code")
            rows.append(signs)
        groups.append(rows)
    return groups


def place(spelling: str, size) -> list[tuple[str, int, int]]:
    """(code, x, y) of every sign in reading order, in pixels, top-left at (0, 0)."""
    placed_groups = []  # (width, height, [(code, x, y)])
    for rows in parse(spelling):
        row_boxes = []
        for signs in rows:
            dims = [size(s) for s in signs]
            width = sum(w for w, _ in dims)
            height = max(h for _, h in dims)
            items, x = [], 0
            for s, (w, h) in zip(signs, dims):
                items.append((s, x, (height - h) // 2))
                x += w
            row_boxes.append((width, height, items))
        gw = max(w for w, _, _ in row_boxes)
        gh = sum(h for _, h, _ in row_boxes)
        items, y = [], 0
        for w, h, row_items in row_boxes:
            dx = (gw - w) // 2
            items += [(s, x + dx, yy + y) for s, x, yy in row_items]
            y += h
        placed_groups.append((gw, gh, items))
    line = max(h for _, h, _ in placed_groups)
    out, x = [], 0
    for gw, gh, items in placed_groups:
        dy = (line - gh) // 2
        out += [(s, sx + x, sy + dy) for s, sx, sy in items]
        x += gw
    min_x = min(x for _, x, _ in out)
    min_y = min(y for _, _, y in out)
    return [(s, x - min_x, y - min_y) for s, x, y in out]


def layout_string(placed) -> str:
    """The word's glyph-layout text: entries joined by " - ", ending in ") "."""
    entries = [f"{code}({x * TWIPS_PER_PIXEL},{y * TWIPS_PER_PIXEL})" for code, x, y in placed]
    return " - ".join(entries) + " "


def gardiner_notation(placed) -> str:
    return "-".join(code for code, _, _ in placed)
