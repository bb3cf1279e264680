"""Gardiner codes of the two sign libraries and the order of the sign lists.

The Basic library is the Unicode block of Egyptian hieroglyphs; its codes come
from the Unicode character names. The Extended library adds the private-use
glyphs of the Aegyptus font, whose glyph names are Gardiner-style codes.
"""

from __future__ import annotations

import re
import unicodedata

FONT_PATH = "/usr/share/fonts/truetype/ancient-scripts/AegyptusR_hint.ttf"
FONT_LICENCE = "/usr/share/doc/fonts-ancient-scripts/copyright"

BLOCK_FIRST, BLOCK_LAST = 0x13000, 0x1342E

# A sign list holds at most this many codes, the preamble included.
MAX_LIST_CODES = 7000

# The uniliteral signs, in the Egyptological order of the typewriter
# ("A i y j a w b p f m n r h H x X z s S q o k g t T d D"). The typewriter's
# j and o are spellings of yod and q, not sounds with a sign of their own.
PREAMBLE = [
    ("A", "G1"), ("i", "M17"), ("y", "M17a"), ("a", "D36"), ("w", "G43"),
    ("b", "D58"), ("p", "Q3"), ("f", "I9"), ("m", "G17"), ("n", "N35"),
    ("r", "D21"), ("h", "O4"), ("H", "V28"), ("x", "Aa1"), ("X", "F32"),
    ("z", "O34"), ("s", "S29"), ("S", "N37"), ("q", "N29"), ("k", "V31"),
    ("g", "W11"), ("t", "X1"), ("T", "V13"), ("d", "D46"), ("D", "I10"),
]

_UNICODE_NAME = re.compile(r"EGYPTIAN HIEROGLYPH ([A-Z]{1,2})0*(\d+)([A-Z]?)$")
# Category, number and at most two upper-case variant letters: A1, A1A, R3AA.
_FONT_NAME = re.compile(r"^([A-Z]{1,2})(\d+)([A-Z]{0,2})$")
_CODE = re.compile(r"^([A-Z][a-z]?|NL|NU)(\d+)([a-z]{0,2})$")


def _category(cat: str) -> str:
    # Two-letter categories are written with a small second letter (Aa), except
    # NL and NU, which Gardiner's successors write in capitals.
    if cat in ("NL", "NU"):
        return cat
    return cat[0] + cat[1:].lower()


def code_from_unicode_name(name: str) -> str:
    """'EGYPTIAN HIEROGLYPH A014A' -> 'A14a', 'AA001' -> 'Aa1'."""
    m = _UNICODE_NAME.match(name)
    if not m:
        raise ValueError(f"not a hieroglyph name: {name}")
    cat, num, suf = m.groups()
    return _category(cat) + str(int(num)) + suf.lower()


def code_from_font_name(glyph: str) -> str | None:
    """'A1A' -> 'A1a'; the font's J category is Gardiner's Aa: 'J15' -> 'Aa15'.

    None for names that are not Gardiner-style (lower-case marks such as the
    rotation marks of 'P8h' or 'N33Av')."""
    m = _FONT_NAME.match(glyph)
    if not m:
        return None
    cat, num, suf = m.groups()
    cat = "Aa" if cat == "J" else _category(cat)
    return cat + str(int(num)) + suf.lower()


def split_code(code: str) -> tuple[str, int, str]:
    m = _CODE.match(code)
    if not m:
        raise ValueError(f"not a Gardiner code: {code}")
    cat, num, suf = m.groups()
    return cat, int(num), suf


def list_key(code: str):
    """Order of the sign lists from A1 on: by first letter; within it the plain
    category before its two-letter ones (A before Aa, N before NL before NU);
    then by number; then the base sign before its variants (A14, A14a, A14aa)."""
    cat, num, suf = split_code(code)
    return (cat[0], len(cat), cat, num, len(suf), suf)


def basic_signs() -> list[tuple[str, int]]:
    """(code, code point) of every sign of the Unicode block, in block order."""
    out = []
    for cp in range(BLOCK_FIRST, BLOCK_LAST + 1):
        out.append((code_from_unicode_name(unicodedata.name(chr(cp))), cp))
    return out


def preamble_codes() -> list[str]:
    return [code for _, code in PREAMBLE]


def sign_list(codes) -> list[str]:
    """The preamble, then every code in list order."""
    return preamble_codes() + sorted(set(codes), key=list_key)


def font_cmap(font) -> dict[int, str]:
    return font.getBestCmap()


# Font glyphs with a code that are not hieroglyphs of their own: the arrows the
# font files under T80 (editorial marks, not signs) and V20u, the hobble V20
# turned on its side, which a word draws by turning V20 itself.
NOT_SIGNS = {
    "T80": "an arrow, an editorial mark rather than a hieroglyph",
    "T80a": "an arrow, an editorial mark rather than a hieroglyph",
    "T80b": "an arrow, an editorial mark rather than a hieroglyph",
    "T80p": "an arrow, an editorial mark rather than a hieroglyph",
    "T80q": "an arrow, an editorial mark rather than a hieroglyph",
    "T80r": "an arrow, an editorial mark rather than a hieroglyph",
    "T80s": "an arrow, an editorial mark rather than a hieroglyph",
    "T80t": "an arrow, an editorial mark rather than a hieroglyph",
    "V20u": "V20 turned on its side, not a sign of its own",
}


def extended_signs(font, limit: int = MAX_LIST_CODES):
    """The codes of the Extended library and the font glyph that draws each.

    Returns (signs, left_out): signs is a list of (code, code point) with every
    Basic sign first, then the font's further signs; left_out is a list of
    (glyph name, reason) for the further glyphs that got no code.
    """
    cmap = font_cmap(font)
    basic = basic_signs()
    basic_codes = {code for code, _ in basic}
    block_glyphs = {cmap[cp] for _, cp in basic}
    further = sorted((cp, g) for cp, g in cmap.items()
                     if cp >= 0xF0000 and g not in block_glyphs)

    left_out = []
    candidates = []  # (code, cp, glyph)
    seen = {}
    for cp, glyph in further:
        code = code_from_font_name(glyph)
        if code is None:
            left_out.append((glyph, "oddly suffixed: a lower-case mark, not a variant letter"))
        elif code in NOT_SIGNS:
            left_out.append((glyph, NOT_SIGNS[code]))
        elif code in basic_codes:
            left_out.append((glyph, f"{code} is a different sign of the Unicode block"))
        elif code in seen:
            left_out.append((glyph, f"{code} is already the glyph {seen[code]}"))
        else:
            seen[code] = glyph
            candidates.append((code, cp, glyph))

    # Within the limit the list keeps every candidate. Over it, the two-letter
    # variants go first, then the highest variants of all, until it fits.
    room = limit - len(PREAMBLE) - len(basic)
    if len(candidates) > room:
        def drop_order(item):
            cat, num, suf = split_code(item[0])
            return (len(suf) < 2, -len(suf), tuple(-ord(c) for c in suf), list_key(item[0]))
        doomed = sorted(candidates, key=drop_order)[:len(candidates) - room]
        doomed_codes = {c for c, _, _ in doomed}
        for code, _, glyph in doomed:
            left_out.append((glyph, f"over the limit of {limit} codes"))
        candidates = [c for c in candidates if c[0] not in doomed_codes]

    signs = list(basic) + [(code, cp) for code, cp, _ in candidates]
    return signs, left_out
