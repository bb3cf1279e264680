"""Placing the signs of a spelling: rows, stacks, groups, twips."""

import unittest

import shipped  # noqa: F401  (puts tools/ on the path)

import layout

SIZES = {
    "A1": (30, 38),   # tall
    "G17": (38, 38),  # tall
    "N35": (42, 8),   # flat
    "X1": (22, 12),   # flat, narrower
    "Q3": (14, 16),   # small square
    "R4": (40, 14),   # flat
    "Z1": (6, 18),    # narrow stroke
}


def size(code):
    return SIZES[code]


class Placing(unittest.TestCase):
    def test_rules(self):
        cases = [
            # spelling, expected (code, x, y) in pixels, reading order
            ("A1", [("A1", 0, 0)]),
            # groups touch left to right and are centred on one line
            ("A1-G17", [("A1", 0, 0), ("G17", 30, 0)]),
            ("N35-A1", [("N35", 0, 15), ("A1", 42, 0)]),
            # a stack: rows top to bottom, centred horizontally
            ("N35:X1", [("N35", 0, 0), ("X1", 10, 8)]),
            # a row inside a stack: signs side by side, centred on each other
            ("R4:X1*Q3", [("R4", 0, 0), ("X1", 2, 16), ("Q3", 24, 14)]),
            # a stack beside a tall sign sits in the middle of the line
            ("A1-N35:X1", [("A1", 0, 0), ("N35", 30, 9), ("X1", 40, 17)]),
        ]
        for spelling, expected in cases:
            with self.subTest(spelling=spelling):
                self.assertEqual(layout.place(spelling, size), expected)

    def test_bad_spellings_are_refused(self):
        for spelling in ("", "A1--G17", "A1:", "a1", "A1(0,0)", "A 1", "A1-g17"):
            with self.subTest(spelling=spelling):
                with self.assertRaises(ValueError):
                    layout.place(spelling, size)


class Writing(unittest.TestCase):
    def test_layout_string_in_twips_ending_in_bracket_blank(self):
        placed = [("A1", 0, 3), ("G17", 20, 0)]
        self.assertEqual(layout.layout_string(placed), "A1(0,45) - G17(300,0) ")
        self.assertEqual(layout.layout_string([("N35", 0, 0)]), "N35(0,0) ")

    def test_gardiner_notation_joins_codes_in_reading_order(self):
        placed = layout.place("R4:X1*Q3-A1", size)
        self.assertEqual(layout.gardiner_notation(placed), "R4-X1-Q3-A1")
