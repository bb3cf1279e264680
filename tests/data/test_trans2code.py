"""The classic-order table: encoding, decoding and the order it gives."""

import random
import unittest

from shipped import data_path, program_upper

import gen_trans2code
import nkfile

CLASSIC = gen_trans2code.CLASSIC_ORDER
QUOTE = '"'


def load_table():
    records = nkfile.read_records(data_path("Lists", "Trans2Code.csv"), 2)
    return [tuple(r) for r in records]


def encode(text, table):
    return gen_trans2code.translate(text, table, 0)


def decode(text, table):
    return gen_trans2code.translate(text, table, 1)


def classic_key(word):
    """The order a scholar expects: letters by their place in the classic
    order, everything else (blanks, dots, hyphens, digits) before the letters."""
    return [1000 + CLASSIC.index(ch) if ch in CLASSIC else ord(ch) for ch in word]


class FileShape(unittest.TestCase):
    def test_exactly_225_records_of_two_fields(self):
        self.assertEqual(len(load_table()), 225)

    def test_file_is_what_the_generator_makes(self):
        self.assertEqual(load_table(), gen_trans2code.build_table())

    def test_no_value_holds_what_the_reader_cannot_give_back(self):
        for row, (enc, dec) in enumerate(load_table(), start=31):
            for value in (enc, dec):
                with self.subTest(row=row, value=value):
                    self.assertNotIn(QUOTE, value)
                    self.assertNotIn("\r", value)
                    self.assertNotIn("\n", value)

    def test_file_is_utf8_crlf_every_field_quoted(self):
        with open(data_path("Lists", "Trans2Code.csv"), "rb") as f:
            raw = f.read()
        self.assertFalse(raw.startswith(b"\xef\xbb\xbf"))
        lines = raw.decode("utf-8").split("\r\n")
        self.assertEqual(lines[-1], "")
        self.assertEqual(len(lines) - 1, 225)
        for line in lines[:-1]:
            with self.subTest(line=line):
                self.assertNotIn("\n", line)
                self.assertTrue(line.startswith('"') and line.endswith('"'))
                self.assertEqual(line.count('"'), 4)


class RoundTrip(unittest.TestCase):
    def setUp(self):
        self.table = load_table()

    def test_decoding_undoes_encoding_for_every_writable_character(self):
        for c in range(32, 256):
            if chr(c) == QUOTE:
                continue
            with self.subTest(code=c):
                self.assertEqual(decode(encode(chr(c), self.table), self.table), chr(c))

    def test_encoding_is_one_to_one_single_characters(self):
        seen = {}
        for c in range(32, 256):
            if chr(c) == QUOTE:
                continue
            enc = encode(chr(c), self.table)
            with self.subTest(code=c):
                self.assertEqual(len(enc), 1)
                self.assertNotIn(enc, seen)
            seen[enc] = c

    def test_double_quote_becomes_two_apostrophes(self):
        # The one character no value of the file can hold: its text comes back
        # as the nearest writable thing instead of vanishing.
        self.assertEqual(decode(encode(QUOTE, self.table), self.table), "''")

    def test_no_encoded_text_holds_a_double_quote(self):
        for c in range(32, 256):
            with self.subTest(code=c):
                self.assertNotIn(QUOTE, encode(chr(c), self.table))

    def test_whole_transliterations_come_back(self):
        words = ["nfr", "Htp-di-nswt", "anx wDA snb", "zA ra", "Dd mdw", "ir.t", "A",
                 "xpr", "ÿ, à Ü ½ ¡?", "=k", "1 2 3"]
        for w in words:
            with self.subTest(word=w):
                self.assertEqual(decode(encode(w, self.table), self.table), w)

    def test_characters_beyond_255_are_refused(self):
        with self.assertRaises(ValueError):
            encode("ꜣ", self.table)


class ClassicOrder(unittest.TestCase):
    def setUp(self):
        self.table = load_table()
        self.letters = [encode(ch, self.table) for ch in CLASSIC]

    def test_encoded_letters_rise_in_classic_order(self):
        codes = [ord(e) for e in self.letters]
        self.assertEqual(codes, sorted(codes))
        self.assertEqual(len(set(codes)), len(codes))

    def test_upper_casing_changes_no_encoded_letter(self):
        for upper in (program_upper, str.upper):
            for ch, enc in zip(CLASSIC, self.letters):
                with self.subTest(letter=ch, upper=upper.__name__):
                    self.assertEqual(upper(enc), enc)

    def test_sorting_encoded_words_gives_classic_order(self):
        rng = random.Random(7)
        words = list(CLASSIC)
        words += ["".join(rng.choice(CLASSIC) for _ in range(rng.randint(1, 5)))
                  for _ in range(400)]
        words += ["nb", "nbt", "nb.t", "nb-t", "hm", "Hm", "xt", "Xt", "st", "zt",
                  "s", "S", "t", "T", "d", "D", "A", "a", "i", "y"]
        expected = sorted(words, key=classic_key)
        for mode, fold in (("case sensitive", lambda s: s), ("case blind", program_upper)):
            with self.subTest(mode=mode):
                shuffled = words[:]
                rng.shuffle(shuffled)
                keyed = sorted(shuffled, key=lambda w: fold(encode(w, self.table)))
                self.assertEqual([decode(encode(w, self.table), self.table) for w in keyed],
                                 expected)

    def test_case_pairs_of_the_order_stay_apart_when_case_blind(self):
        for low, up in (("h", "H"), ("x", "X"), ("s", "S"), ("t", "T"), ("d", "D"), ("a", "A")):
            with self.subTest(pair=low + up):
                a = program_upper(encode(low, self.table))
                b = program_upper(encode(up, self.table))
                self.assertNotEqual(a, b)
                self.assertEqual(a < b, CLASSIC.index(low) < CLASSIC.index(up))

    def test_typewriter_only_letters_sort_beside_their_kin(self):
        # The typewriter types j and o; a word with them must not jump ahead of
        # the aleph words.
        for sequence in (["Ab", "yb", "jb", "ab"], ["qA", "oA", "kA"], ["Abw", "jAw"]):
            with self.subTest(sequence=sequence):
                keyed = sorted(reversed(sequence), key=lambda w: encode(w, self.table))
                self.assertEqual(keyed, sequence)

    def test_blank_and_punctuation_sort_before_letters(self):
        # So that "nb" < "nb.t" < "nbt": a shorter word and its punctuated form
        # come before longer words that go on with a letter.
        first_letter = min(ord(e) for e in self.letters)
        for ch in " .-=":
            with self.subTest(char=ch):
                self.assertLess(ord(encode(ch, self.table)), first_letter)


if __name__ == "__main__":
    unittest.main()
