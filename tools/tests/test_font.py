"""The Transliteration font: its name and which drawing each letter gets."""

import unittest

from fontTools.ttLib import TTFont

from shipped import data_path

import gen_font

TYPEWRITER_LETTERS = "A a b d D f g h H x X i j k q m n p o r s S t T w y z"


class TransliterationFont(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.font = TTFont(data_path("Fonts", "Transliteration.ttf"))
        cls.cmap = cls.font.getBestCmap()
        cls.source_cmap = TTFont(gen_font.SOURCE).getBestCmap()

    def test_family_name_is_transliteration(self):
        name = self.font["name"]
        for platform in ((3, 1, 0x409), (1, 0, 0)):
            with self.subTest(platform=platform):
                self.assertEqual(name.getName(1, *platform).toUnicode(), "Transliteration")
        self.assertIsNone(name.getName(16, 3, 1, 0x409))

    def test_sound_letters_draw_their_scholarly_forms(self):
        cases = {"A": "ꜣ", "a": "ꜥ", "i": "ỉ", "H": "ḥ", "x": "ḫ", "X": "ẖ",
                 "S": "š", "T": "ṯ", "D": "ḏ", "q": "ḳ", "o": "q", "I": "Ỉ"}
        for plain, scholarly in cases.items():
            with self.subTest(letter=plain):
                self.assertEqual(self.cmap[ord(plain)], self.source_cmap[ord(scholarly)])

    def test_composed_letters_put_their_mark_on_the_right_letter(self):
        # j is the weak yod with the breve below; the Egyptological yod, which
        # DejaVu lacks, gets the half ring above, clear of a capital's top.
        glyf = self.font["glyf"]
        for char, base, mark in (("j", "i", 0x032F), ("\uA7BD", "\u0131", 0x0357),
                                 ("\uA7BC", "I", 0x0357)):
            with self.subTest(char=char):
                glyph = glyf[self.cmap[ord(char)]]
                self.assertTrue(glyph.isComposite())
                parts = [c.glyphName for c in glyph.components]
                self.assertEqual(parts, [self.source_cmap[ord(base)], self.source_cmap[mark]])
                if mark == 0x0357:
                    base_top = glyf[parts[0]].yMax
                    mark_bottom = glyf[parts[1]].yMin + glyph.components[1].y
                    self.assertGreater(mark_bottom, base_top)

    def test_other_letters_digits_and_punctuation_keep_their_drawings(self):
        changed = set(gen_font.SCHOLARLY) | set(gen_font.COMPOSED)
        keys = [k for k in TYPEWRITER_LETTERS.split() if k not in changed]
        keys += list("0123456789?/.,= -BCEFGJKLMNOPQRUVWYZceluv")
        for ch in keys:
            with self.subTest(char=ch):
                self.assertEqual(self.cmap[ord(ch)], self.source_cmap[ord(ch)])
