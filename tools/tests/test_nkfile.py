"""Writing and reading the program's comma-separated files."""

import unittest

import shipped  # noqa: F401  (puts tools/ on the path)

import nkfile


class Reader(unittest.TestCase):
    def test_field_rules(self):
        cases = [
            ('"A1","G17"\r\n', ["A1", "G17"]),
            # line ends separate fields just as commas do
            ('"A1"\r\n"G17"\r\n', ["A1", "G17"]),
            ('"A1"\n"G17"', ["A1", "G17"]),
            # quoted fields keep commas and blanks
            ('"a, b"," "\r\n', ["a, b", " "]),
            ('",",""\r\n', [",", ""]),
            # blanks before a field are skipped, after a bare one dropped
            ('  "A1",  G17  ,x\r\n', ["A1", "G17", "x"]),
            # text after the closing quote, up to the separator, is skipped
            ('"A1"junk,"G17"\r\n', ["A1", "G17"]),
            # a bare field may hold a quote after its first character
            ('a"b,c\r\n', ['a"b', "c"]),
            # trailing blank lines are the end of the file
            ('"A1"\r\n\r\n  \r\n', ["A1"]),
        ]
        for text, fields in cases:
            with self.subTest(text=text):
                self.assertEqual(nkfile.read_fields(text), fields)


class Writer(unittest.TestCase):
    def test_every_field_quoted_crlf(self):
        text = nkfile.format_records([["L", "B", "A1(0,0) "], ["x", "", ","]])
        self.assertEqual(text, '"L","B","A1(0,0) "\r\n"x","",","\r\n')

    def test_values_the_reader_cannot_give_back_are_refused(self):
        for value in ('"', 'say "hi"', "a\r\nb", "a\nb", "a\rb"):
            with self.subTest(value=value):
                with self.assertRaises(nkfile.UnwritableValue):
                    nkfile.format_records([[value]])
