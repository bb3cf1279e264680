"""Placing the signs of a spelling: rows, stacks, groups, twips."""

import os
import tempfile
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

    def test_word_starts_at_the_origin(self):
        for spelling in ("N35", "Z1-N35", "N35:N35-Z1", "X1*Q3:R4"):
            with self.subTest(spelling=spelling):
                placed = layout.place(spelling, size)
                self.assertEqual(min(x for _, x, _ in placed), 0)
                self.assertEqual(min(y for _, _, y in placed), 0)

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


class GifSize(unittest.TestCase):
    def test_reads_the_logical_screen(self):
        with tempfile.TemporaryDirectory() as tmp:
            path = os.path.join(tmp, "x.GIF")
            with open(path, "wb") as f:
                f.write(b"GIF89a" + (300).to_bytes(2, "little") + (7).to_bytes(2, "little")
                        + b"\x00" * 20)
            self.assertEqual(layout.gif_size(path), (300, 7))

    def test_refuses_what_is_not_a_gif(self):
        with tempfile.TemporaryDirectory() as tmp:
            path = os.path.join(tmp, "x.GIF")
            with open(path, "wb") as f:
                f.write(b"\x89PNG\r\n\x1a\n\x00\x00")
            with self.assertRaises(ValueError):
                layout.gif_size(path)


if __name__ == "__main__":
    unittest.main()
