"""The data check: it must pass on the shipped folder and catch each kind of fault."""

import contextlib
import io
import os
import tempfile
import unittest

from shipped import data_path

import check_data
import nkfile

GIF = b"GIF89a\x01\x00\x01\x00\x00\x00\x00;"


def make_folder(root, basic=("G1", "A1", "A2", "N35"), extended=("G1", "A1", "A2", "N35", "N35a"),
                phonetic=(("G1", "A"), ("N35", "n")), trans_records=225):
    for name, lib, codes in (("BasicList.csv", "Basic", basic),
                             ("Extendedlist.csv", "Extended", extended)):
        nkfile.write_records(os.path.join(root, "Lists", name), [[c] for c in codes])
        for code in codes:
            for direction in ("Left", "Right"):
                path = os.path.join(root, lib, direction, code[0], code + ".GIF")
                os.makedirs(os.path.dirname(path), exist_ok=True)
                with open(path, "wb") as f:
                    f.write(GIF)
    nkfile.write_records(os.path.join(root, "Lists", "Phonetic.csv"), phonetic)
    nkfile.write_records(os.path.join(root, "Lists", "Trans2Code.csv"),
                         [["x", "x"]] * trans_records)


def touch(path):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    open(path, "wb").close()


class CheckData(unittest.TestCase):
    def run_check(self, root):
        out = io.StringIO()
        with contextlib.redirect_stdout(out):
            code = check_data.main(["check_data.py", root])
        return code, out.getvalue()

    def test_shipped_data_passes(self):
        code, out = self.run_check(data_path())
        self.assertEqual(code, 0, out)

    def test_a_sound_folder_passes(self):
        with tempfile.TemporaryDirectory() as root:
            make_folder(root)
            self.assertEqual(self.run_check(root), (0, f"0 problem(s) in {root}\n"))

    def test_each_fault_is_reported(self):
        cases = [
            ("picture missing in Right",
             lambda r: os.remove(os.path.join(r, "Basic", "Right", "A", "A2.GIF")),
             "BasicList.csv: A2 has no picture in Basic/Right"),
            ("picture missing in Left",
             lambda r: os.remove(os.path.join(r, "Extended", "Left", "N", "N35a.GIF")),
             "Extendedlist.csv: N35a has no picture in Extended/Left"),
            ("picture without code",
             lambda r: touch(os.path.join(r, "Basic", "Left", "B", "B9.GIF")),
             "Basic/Left/B/B9.GIF: no code B9 in BasicList.csv"),
            ("picture in the wrong letter folder",
             lambda r: touch(os.path.join(r, "Basic", "Left", "N", "A2.GIF")),
             "Basic/Left/N/A2.GIF: not a picture file of a code"),
            ("lower-case extension",
             lambda r: touch(os.path.join(r, "Extended", "Right", "A", "A3.gif")),
             "Extended/Right/A/A3.gif: not a picture file of a code"),
            ("phonetic code missing from a list",
             lambda r: make_folder(r, phonetic=(("G1", "A"), ("N35a", "mw"))),
             "Phonetic.csv: N35a (mw) is not in BasicList.csv"),
            ("short classic-order table",
             lambda r: make_folder(r, trans_records=224),
             "Trans2Code.csv: 448 fields, 225 records of two are needed"),
            ("A1 missing",
             lambda r: make_folder(r, basic=("G1", "A2")),
             'BasicList.csv: "A1" appears 0 times'),
            ("A1 twice",
             lambda r: make_folder(r, basic=("G1", "A1", "A1", "N35")),
             'BasicList.csv: "A1" appears 2 times'),
            ("categories not grouped",
             lambda r: make_folder(r, basic=("G1", "A1", "N35", "A2")),
             "BasicList.csv: code A2 breaks the grouping by first letter"),
            ("first letter outside ? to Z",
             lambda r: make_folder(r, extended=("A1", "1A")),
             "Extendedlist.csv: code '1A' does not start with a letter from ? to Z"),
        ]
        for name, fault, message in cases:
            with self.subTest(fault=name), tempfile.TemporaryDirectory() as root:
                make_folder(root)
                fault(root)
                code, out = self.run_check(root)
                self.assertEqual(code, 1)
                self.assertIn(message, out)

    def test_too_many_codes(self):
        codes = ["A1"] + [f"B{k}" for k in range(1, 7001)]
        problems = check_data.list_order_problems("X.csv", codes)
        self.assertEqual(problems, ["X.csv: 7001 codes, at most 7000"])

    def test_preamble_codes_need_pictures_too(self):
        with tempfile.TemporaryDirectory() as root:
            make_folder(root, basic=("Q3", "A1"))
            os.remove(os.path.join(root, "Basic", "Left", "Q", "Q3.GIF"))
            code, out = self.run_check(root)
            self.assertIn("BasicList.csv: Q3 has no picture in Basic/Left", out)


if __name__ == "__main__":
    unittest.main()
