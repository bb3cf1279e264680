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
            ("picture without code",
             lambda r: touch(os.path.join(r, "Basic", "Left", "B", "B9.GIF")),
             "Basic/Left/B/B9.GIF: no code B9 in BasicList.csv"),
            ("picture in the wrong letter folder",
             lambda r: touch(os.path.join(r, "Basic", "Left", "N", "A2.GIF")),
             "Basic/Left/N/A2.GIF: not a picture file of a code"),
            ("phonetic code missing from a list",
             lambda r: make_folder(r, phonetic=(("G1", "A"), ("N35a", "mw"))),
             "Phonetic.csv: N35a (mw) is not in BasicList.csv"),
            ("short classic-order table",
             lambda r: make_folder(r, trans_records=224),
             "Trans2Code.csv: 448 fields, 225 records of two are needed"),
            ("A1 missing",
             lambda r: make_folder(r, basic=("G1", "A2")),
             'BasicList.csv: "A1" appears 0 times'),
            ("categories not grouped",
             lambda r: make_folder(r, basic=("G1", "A1", "N35", "A2")),
             "BasicList.csv: code A2 breaks the grouping by first letter"),
        ]
        for name, fault, message in cases:
            with self.subTest(fault=name), tempfile.TemporaryDirectory() as root:
                make_folder(root)
                fault(root)
                code, out = self.run_check(root)
                self.assertEqual(code, 1)
                self.assertIn(message, out)
