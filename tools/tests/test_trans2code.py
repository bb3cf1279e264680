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

    def test_file_is_what_the_generator_makes(self):
        self.assertEqual(load_table(), gen_trans2code.build_table())

class RoundTrip(unittest.TestCase):
    def setUp(self):
        self.table = load_table()

    def test_decoding_undoes_encoding_for_every_writable_character(self):
        for c in range(32, 256):
            if chr(c) == QUOTE:
                continue
            with self.subTest(code=c):
                self.assertEqual(decode(encode(chr(c), self.table), self.table), chr(c))

    def test_double_quote_becomes_two_apostrophes(self):
        # The one character no value of the file can hold: its text comes back
        # as the nearest writable thing instead of vanishing.
        self.assertEqual(decode(encode(QUOTE, self.table), self.table), "''")

class ClassicOrder(unittest.TestCase):
    def setUp(self):
        self.table = load_table()
        self.letters = [encode(ch, self.table) for ch in CLASSIC]

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

    def test_typewriter_only_letters_sort_beside_their_kin(self):
        # The typewriter types j and o; a word with them must not jump ahead of
        # the aleph words.
        for sequence in (["Ab", "yb", "jb", "ab"], ["qA", "oA", "kA"], ["Abw", "jAw"]):
            with self.subTest(sequence=sequence):
                keyed = sorted(reversed(sequence), key=lambda w: encode(w, self.table))
                self.assertEqual(keyed, sequence)
