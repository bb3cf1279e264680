"""The starter dictionary and the settings file as shipped: what the generators make, sign
placements the program's own reading order leaves alone."""

import os
import re
import subprocess
import tempfile
import unittest

from shipped import data_path

import gen_dictionary
import layout
import nkfile
import phonetic
import words

TWIPS = layout.TWIPS_PER_PIXEL
ENTRY = re.compile(r"([A-Za-z0-9]+)\((\d+),(\d+)\)")


class Dictionary(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        path = data_path("Dictionaries", "Words.nkd")
        with open(path, "rb") as f:
            cls.raw = f.read()
        fields = nkfile.read_fields(cls.raw.decode("utf-8"))
        cls.header = fields[:7]
        cls.words = [fields[k:k + 7] for k in range(7, len(fields), 7)]
        cls.basic = set(nkfile.read_file_fields(data_path("Lists", "BasicList.csv")))
        cls.size = staticmethod(layout.picture_sizes(data_path(), "Basic"))

    def test_file_is_what_the_generator_makes(self):
        expected = nkfile.format_records([gen_dictionary.HEADER]
                                         + gen_dictionary.records(data_path()))
        self.assertEqual(self.raw, expected.encode("utf-8"))

    def test_at_least_600_left_basic_words_whose_values_survive_file_and_clipboard(self):
        self.assertGreaterEqual(len(self.words), 600)
        for w in self.words:
            with self.subTest(word=w[4]):
                self.assertEqual(w[:2], ["L", "B"])
                for k, value in enumerate(w):
                    self.assertTrue(value)
                    self.assertFalse(set(value) & set('"|\r\n'), value)
                    if k != 2:  # the layout string ends in a blank on purpose
                        self.assertEqual(value, value.strip())

    def test_gardiner_notation_matches_layout_and_list(self):
        for w in self.words:
            with self.subTest(word=w[4]):
                codes = [c for c, _, _ in ENTRY.findall(w[2])]
                self.assertEqual(w[3], "-".join(codes))
                self.assertEqual(set(codes) - self.basic, set())

    def test_placements_from_real_picture_sizes(self):
        for w in self.words:
            with self.subTest(word=w[4]):
                boxes = []
                for code, x, y in ENTRY.findall(w[2]):
                    x, y = int(x), int(y)
                    self.assertEqual((x % TWIPS, y % TWIPS), (0, 0))
                    pw, ph = self.size(code)
                    boxes.append((x, y, x + pw * TWIPS, y + ph * TWIPS))
                self.assertEqual(min(b[0] for b in boxes), 0)
                self.assertEqual(min(b[1] for b in boxes), 0)
                for a in range(len(boxes)):
                    for b in range(a + 1, len(boxes)):
                        p, q = boxes[a], boxes[b]
                        overlap = p[0] < q[2] and q[0] < p[2] and p[1] < q[3] and q[1] < p[3]
                        self.assertFalse(overlap, f"signs {a} and {b} overlap")

    def test_every_sound_sign_has_a_phonetic_row(self):
        # A sign of a starter word is either read as a sound, and then the
        # composer and Guess must know it, or it is named as a determinative,
        # stroke or numeral; it cannot be both.
        with_row = {code for code, _ in phonetic.ROWS}
        self.assertEqual(words.NOT_SOUND_SIGNS & with_row, set())
        for w in self.words:
            with self.subTest(word=w[4]):
                self.assertEqual(set(w[3].split("-")) - with_row - words.NOT_SOUND_SIGNS,
                                 set())

    @unittest.skipUnless(os.environ.get("NEBKARO_CLI"), "needs the built nebkaro-cli")
    def test_the_programs_sort_gardiner_keeps_every_word(self):
        with tempfile.TemporaryDirectory() as tmp:
            out = os.path.join(tmp, "sorted.nkd")
            subprocess.run([os.environ["NEBKARO_CLI"], "--home", data_path(), "reading-order",
                            data_path("Dictionaries", "Words.nkd"), "-o", out],
                           check=True, capture_output=True)
            with open(out, encoding="utf-8") as f:
                fields = nkfile.read_fields(f.read())
        again = [fields[k:k + 7] for k in range(7, len(fields), 7)]
        self.assertEqual(len(again), len(self.words))
        for w, a in zip(self.words, again):
            with self.subTest(word=w[4]):
                self.assertEqual(a[3].replace(" ", ""), w[3])
                self.assertEqual(ENTRY.findall(a[2].replace(" ", "")), ENTRY.findall(w[2]))


class ProgramFiles(unittest.TestCase):
    def test_default_settings_and_an_empty_images_folder(self):
        with open(data_path("System", "Settings.nks"), "rb") as f:
            self.assertEqual(
                f.read(),
                b"Nebkaro Settings: \r\n\r\nLibrary = Basic\r\nDirection = Left\r\n"
                b"Dictionary Name = Words.nkd\r\nShow About = True\r\n"
                b"Show Dictionary Info = True\r\n\r\n")
        self.assertEqual(os.listdir(data_path("Images")), [".gitkeep"])
