"""Sign lists and the phonetic table, read as the program reads them."""

import unittest

from fontTools.ttLib import TTFont

from shipped import data_path

import phonetic
import signs
import nkfile


def category_table(codes):
    """The loader's table: per first character "?".."Z" the count of codes from
    A1 on and the index (1-based) of the first of them."""
    preamble = codes.index("A1")
    table = {chr(63 + k): [0, 0] for k in range(28)}
    for code in codes[preamble:]:
        c = code[0].upper()
        if not "?" <= c <= "Z":
            raise ValueError(code)
        table[c][0] += 1
    table["@"] = [preamble, 1]
    table["A"][1] = preamble + 1
    for k in range(ord("A"), ord("Z")):
        table[chr(k + 1)][1] = table[chr(k)][0] + table[chr(k)][1]
    return preamble, table


class CodeNames(unittest.TestCase):
    def test_codes_from_unicode_names(self):
        cases = {
            "EGYPTIAN HIEROGLYPH A001": "A1",
            "EGYPTIAN HIEROGLYPH A014A": "A14a",
            "EGYPTIAN HIEROGLYPH AA001": "Aa1",
            "EGYPTIAN HIEROGLYPH AA032": "Aa32",
            "EGYPTIAN HIEROGLYPH NL001": "NL1",
            "EGYPTIAN HIEROGLYPH NU001": "NU1",
            "EGYPTIAN HIEROGLYPH N035A": "N35a",
            "EGYPTIAN HIEROGLYPH Z015H": "Z15h",
        }
        for name, code in cases.items():
            with self.subTest(name=name):
                self.assertEqual(signs.code_from_unicode_name(name), code)

    def test_codes_from_font_glyph_names(self):
        cases = {"A1": "A1", "A1A": "A1a", "J15": "Aa15", "J1B": "Aa1b", "NL3": "NL3",
                 "NU12A": "NU12a", "R3AA": "R3aa", "P8h": None, "N33Av": None,
                 "O5u": None, "uni13000": None}
        for glyph, code in cases.items():
            with self.subTest(glyph=glyph):
                self.assertEqual(signs.code_from_font_name(glyph), code)

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

    def test_files_are_utf8_crlf_one_quoted_code_a_line(self):
        for name in self.lists:
            with open(data_path("Lists", name), "rb") as f:
                raw = f.read()
            lines = raw.split(b"\r\n")
            with self.subTest(list=name):
                self.assertFalse(raw.startswith(b"\xef\xbb\xbf"))
                self.assertEqual(lines[-1], b"")
                for line in lines[:-1]:
                    self.assertRegex(line, rb'^"[A-Za-z0-9]+"$')

    def test_loader_rules(self):
        for name, codes in self.lists.items():
            with self.subTest(list=name):
                self.assertLessEqual(len(codes), signs.MAX_LIST_CODES)
                self.assertEqual(codes.count("A1"), 1)
                preamble, table = category_table(codes)
                self.assertEqual(preamble, len(signs.PREAMBLE))
                # the table describes the list: each category starts where
                # its first code stands, and the letters follow each other
                for letter in map(chr, range(ord("A"), ord("Z") + 1)):
                    count, first = table[letter]
                    if count:
                        block = codes[first - 1:first - 1 + count]
                        self.assertTrue(all(c[0] == letter for c in block), letter)
                self.assertEqual(sum(table[chr(k)][0] for k in range(65, 91)),
                                 len(codes) - preamble)

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

    def test_extended_limit_drops_two_letter_variants_first(self):
        font = TTFont(signs.FONT_PATH)
        full, _ = signs.extended_signs(font)
        limit = len(signs.PREAMBLE) + len(full) - 5
        kept, left_out = signs.extended_signs(font, limit=limit)
        self.assertEqual(len(signs.PREAMBLE) + len(kept), limit)
        dropped = {c for c, _ in full} - {c for c, _ in kept}
        self.assertEqual(len(dropped), 5)
        two_letter = {c for c, _ in full if len(signs.split_code(c)[2]) == 2}
        self.assertEqual(len(two_letter), 3)
        self.assertTrue(two_letter <= dropped)
        self.assertTrue(any("limit" in reason for _, reason in left_out))


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
                            ("Hm", "U36"), ("nfr", "F35"), ("anx", "S34"), ("sA", "G39"),
                            ("mAat", "H6"), ("Sm", "N40"), ("Xr", "T28"), ("ini", "W25"),
                            ("mwt", "G14"), ("wAD", "M13"), ("sp", "O50"), ("stp", "U21"),
                            ("rnp", "M4"), ("qd", "Aa28"), ("gs", "Aa13"), ("Sd", "F30"),
                            ("kp", "R5"), ("qs", "T19"), ("Xn", "D33"), ("pD", "T9"),
                            ("im", "Aa13"), ("Hp", "Aa5"), ("wDa", "Aa21"), ("xm", "R22"),
                            ("zb", "O35"), ("imi", "Z11"), ("rdi", "D37"), ("nn", "M22a"),
                            ("di", "X8"), ("mi", "W19"), ("mH", "V22"), ("HD", "T3"),
                            ("nw", "W24"), ("Sn", "V7"), ("iw", "E9"), ("Ssp", "O42")):
            with self.subTest(value=value):
                self.assertEqual(first[value], code)

    def test_a_sign_with_two_values_has_two_rows(self):
        values = {}
        for code, value in self.rows:
            values.setdefault(code, []).append(value)
        # The first value is the one Guess reads.
        for code, expected in (("F18", ["bH", "Hw"]), ("N14", ["sbA", "dwA"]),
                               ("V29", ["wAH", "sk"]), ("G39", ["zA", "sA"]),
                               ("Q1", ["st", "ws"]), ("Y3", ["zS", "sS"]),
                               ("O50", ["zp", "sp"]), ("S3", ["n", "dSrt"])):
            with self.subTest(code=code):
                self.assertEqual(values[code], expected)


if __name__ == "__main__":
    unittest.main()
