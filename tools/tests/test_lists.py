"""Sign lists and the phonetic table, read as the program reads them."""

import unittest

from fontTools.ttLib import TTFont

from shipped import data_path

import phonetic
import signs
import nkfile


class CodeNames(unittest.TestCase):

    def test_list_order(self):
        ordered = ["A1", "A2", "A10", "A14", "A14a", "A14b", "A15", "A70", "Aa1", "Aa2",
                   "Aa15", "B1", "N1", "N35", "N35a", "N42", "NL1", "NL20", "NU1", "O1",
                   "R3", "R3z", "R3aa", "R3ab", "R4", "Z1"]
        shuffled = ordered[::-1]
        self.assertEqual(sorted(shuffled, key=signs.list_key), ordered)


class SignLists(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.lists = {name: nkfile.read_file_fields(data_path("Lists", name))
                     for name in ("BasicList.csv", "Extendedlist.csv")}

    def test_preamble_is_the_uniliterals_in_typewriter_order(self):
        for name, codes in self.lists.items():
            with self.subTest(list=name):
                preamble = codes[:codes.index("A1")]
                self.assertEqual(preamble, signs.preamble_codes())
                self.assertEqual(len(set(preamble)), len(preamble))
                self.assertTrue(set(preamble) <= set(codes[len(preamble):]))
        order = "A i y j a w b p f m n r h H x X z s S q o k g t T d D".split()
        sounds = [s for s, _ in signs.PREAMBLE]
        self.assertEqual(sounds, [s for s in order if s in sounds])

    def test_codes_from_a1_on_are_sorted_and_unique(self):
        for name, codes in self.lists.items():
            body = codes[codes.index("A1"):]
            with self.subTest(list=name):
                self.assertEqual(body, sorted(body, key=signs.list_key))
                self.assertEqual(len(set(body)), len(body))

    def test_basic_is_the_unicode_block(self):
        codes = self.lists["BasicList.csv"]
        body = codes[codes.index("A1"):]
        self.assertEqual(len(body), 1071)
        self.assertEqual(set(body), {c for c, _ in signs.basic_signs()})

    def test_extended_holds_basic_and_the_further_font_signs(self):
        basic = set(self.lists["BasicList.csv"])
        extended = self.lists["Extendedlist.csv"]
        self.assertTrue(basic <= set(extended))
        table, left_out = signs.extended_signs(TTFont(signs.FONT_PATH))
        self.assertEqual(set(extended[extended.index("A1"):]), {c for c, _ in table})
        self.assertGreater(len(extended), 6900)
        # Marks that are not hieroglyphs stay out, while their neighbours stay in.
        for code, expected in (("T80", False), ("T80t", False), ("V20u", False),
                               ("T79", True), ("T81", True), ("V20", True), ("V20v", True)):
            with self.subTest(code=code):
                self.assertEqual(code in extended, expected)

class PhoneticTable(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.rows = nkfile.read_records(data_path("Lists", "Phonetic.csv"), 2)
        cls.basic = set(nkfile.read_file_fields(data_path("Lists", "BasicList.csv")))
        cls.extended = set(nkfile.read_file_fields(data_path("Lists", "Extendedlist.csv")))

    def test_file_is_what_the_table_says(self):
        self.assertEqual([tuple(r) for r in self.rows], phonetic.ROWS)

    def test_size_letters_and_codes(self):
        self.assertLessEqual(len(self.rows), 501)
        for code, value in self.rows:
            with self.subTest(code=code, value=value):
                self.assertTrue(value)
                self.assertTrue(set(value) <= phonetic.LETTERS)
                self.assertIn(code, self.basic)
                self.assertIn(code, self.extended)
        self.assertEqual(len({tuple(r) for r in self.rows}), len(self.rows))

    def test_a_typed_sound_brings_its_usual_sign(self):
        # The composer takes the first row whose value matches.
        first = {}
        for code, value in self.rows:
            first.setdefault(value, code)
        for sound, code in signs.PREAMBLE:
            with self.subTest(sound=sound):
                self.assertEqual(first[sound], code)
        # Values a student types, with the sign Gardiner gives first for each; a
        # rarer sign with the same value must not get ahead of it.
        for value, code in (("ib", "F34"), ("xA", "M12"), ("wn", "E34"), ("mr", "U6"),
                            ("nfr", "F35"), ("anx", "S34"), ("sA", "G39"), ("mAat", "H6"),
                            ("im", "Aa13"), ("nn", "M22a"), ("di", "X8"), ("Ssp", "O42")):
            with self.subTest(value=value):
                self.assertEqual(first[value], code)
