"""The starter dictionary: file form, layout strings the program can read, and
sign placements that the program's own reading-order rules leave alone."""

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
MONTHS = ("January February March April May June July August September October "
          "November December").split()
TRANSLIT_CHARS = set("AiyawbpfmnrhHxXzsSqkgtTdD") | set(" .-")
ENTRY = re.compile(r"([A-Za-z0-9]+)\((\d+),(\d+)\)")


def parse_layout_like_the_program(s):
    """The program's parser: find "(", "," and ")" in turn, then look for the
    separating "-" from one character before the ")"; positions are 1-based."""
    def instr(start, sub):
        k = s.find(sub, start - 1)
        return k + 1  # 0 when not found

    out, j, n = [], 1, len(s)
    while j <= n:
        p = instr(j, "(")
        if p == 0:
            raise ValueError("no '(' where an entry should start")
        code = s[j - 1:p - 1].strip()
        j = p
        q = instr(j, ",")
        x = s[j:q - 1].strip()
        j = q
        r = instr(j, ")")
        y = s[j:r - 1].strip()
        d = instr(r - 1, "-")
        j = d + 1 if d else r + 1
        out.append((code, int(x), int(y)))
        j += 1
    return out


def composer_reading_order(slots):
    """The composer's OK sort for a left-to-right word: signs that overlap
    horizontally (each starts before 92 % of the other's right edge) go upper
    first, others leftmost first. slots: [code, x, y, w] in twips."""
    s = [list(t) for t in slots]
    for i in range(len(s) - 1):
        for j in range(i + 1, len(s)):
            li, ti, wi = s[i][1], s[i][2], s[i][3]
            lj, tj, wj = s[j][1], s[j][2], s[j][3]
            if (li + wi) * 0.92 > lj and (lj + wj) * 0.92 > li:
                swap = ti > tj
            else:
                swap = li > lj
            if swap:
                s[i], s[j] = s[j], s[i]
    return [t[0] for t in s]


def sort_gardiner_order(slots, tol=0.8):
    """The "Sort Gardiner" reordering of a left-to-right word with the default
    20 % overlap: the tolerance multiplies the right edge, and each row's
    threshold is taken once before its inner loop."""
    s = [list(t) for t in slots]
    for i in range(len(s) - 1):
        ti_edge = int((s[i][1] + s[i][3]) * tol)
        for j in range(i + 1, len(s)):
            tj_edge = int((s[j][1] + s[j][3]) * tol)
            xi, xj = s[i][1], s[j][1]
            if xi < tj_edge and xj < ti_edge:
                swap = s[j][2] < s[i][2]
            else:
                swap = xj < xi
            if swap:
                s[i], s[j] = s[j], s[i]
    return [t[0] for t in s]


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

    def test_file_form(self):
        self.assertFalse(self.raw.startswith(b"\xef\xbb\xbf"))
        lines = self.raw.split(b"\r\n")
        self.assertEqual(lines[-1], b"")
        self.assertEqual(len(lines) - 1, 1 + len(self.words))
        for line in lines[:-1]:
            self.assertNotIn(b"\n", line)
            self.assertEqual(line.count(b'"'), 14)

    def test_header(self):
        self.assertEqual(len(self.header), 7)
        self.assertEqual(self.header[0], "Nebkaro starter dictionary")
        self.assertNotIn(self.header[0], ("R", "L"))
        m = re.fullmatch(r"([1-9]\d?) (\w+) (\d{4})", self.header[2])
        self.assertIsNotNone(m, self.header[2])
        self.assertIn(m.group(2), MONTHS)

    def test_at_least_600_words_all_left_basic(self):
        self.assertGreaterEqual(len(self.words), 600)
        for w in self.words:
            with self.subTest(word=w[4]):
                self.assertEqual(len(w), 7)
                self.assertEqual(w[0], "L")
                self.assertEqual(w[1], "B")

    def test_values_survive_the_file_and_the_clipboard(self):
        for w in self.words:
            for k, value in enumerate(w):
                with self.subTest(word=w[4], value=value):
                    self.assertNotIn('"', value)
                    self.assertNotIn("|", value)
                    self.assertNotIn("\r", value)
                    self.assertNotIn("\n", value)
                    self.assertTrue(value)
                    if k != 2:  # the layout string ends in a blank on purpose
                        self.assertEqual(value, value.strip())

    def test_transliteration_uses_typewriter_letters(self):
        for w in self.words:
            with self.subTest(word=w[4]):
                self.assertTrue(set(w[4]) <= TRANSLIT_CHARS, w[4])

    def test_layout_string_reads_back_as_written(self):
        for w in self.words:
            with self.subTest(word=w[4]):
                s = w[2]
                self.assertTrue(s.endswith(") "))
                self.assertRegex(s, r"^[A-Za-z0-9]+\(\d+,\d+\)( - [A-Za-z0-9]+\(\d+,\d+\))* $")
                entries = [(c, int(x), int(y)) for c, x, y in ENTRY.findall(s)]
                self.assertEqual(parse_layout_like_the_program(s), entries)
                self.assertLessEqual(len(entries), 20)

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

    def test_no_group_rises_above_the_line(self):
        # A full-height sign is 39 pixels; a low sign may go under or over
        # another, but two full-height signs stacked make a word half as tall
        # again as its neighbours, which scribes avoid.
        for w in self.words:
            with self.subTest(word=w[4], layout=w[3]):
                bottom = max(int(y) // TWIPS + self.size(code)[1]
                             for code, _, y in ENTRY.findall(w[2]))
                self.assertLessEqual(bottom, 45)

    def test_comment_names_the_word_class(self):
        classes = ("noun", "verb", "adjective", "adverb", "preposition", "particle",
                   "pronoun", "demonstrative", "numeral", "title", "epithet", "formula",
                   "negation", "auxiliary", "form of")
        for w in self.words:
            first_clause = w[6].split(";")[0]
            with self.subTest(word=w[4], comment=w[6]):
                self.assertTrue(any(c in first_clause for c in classes))

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

    def test_program_reading_order_rules_keep_the_order(self):
        for w in self.words:
            slots = [[code, int(x), int(y), self.size(code)[0] * TWIPS]
                     for code, x, y in ENTRY.findall(w[2])]
            codes = [s[0] for s in slots]
            with self.subTest(word=w[4]):
                self.assertEqual(composer_reading_order(slots), codes)
                self.assertEqual(sort_gardiner_order(slots), codes)


if __name__ == "__main__":
    unittest.main()
