"""The exported files as other tools read them: the TSV through Python's csv module, the
Anki package as a zip with an SQLite collection, the HTML page."""

import csv
import io
import json
import os
import sqlite3
import subprocess
import tempfile
import unittest
import zipfile

CLI = os.environ["NEBKARO_CLI"]
HOME = os.path.dirname(CLI)
STARTER = os.path.join(HOME, "Dictionaries", "Words.nkd")


def run(*args, ok=(0,)):
    p = subprocess.run([CLI, *args], capture_output=True, text=True)
    if p.returncode not in ok:
        raise AssertionError(f"{args}: exit {p.returncode}: {p.stderr}")
    return p


def starter_words():
    with open(STARTER, encoding="utf-8", newline="") as f:
        rows = list(csv.reader(f))
    return rows[1:]  # the first line is the header


class ExportedFiles(unittest.TestCase):
    def setUp(self):
        self.dir = tempfile.TemporaryDirectory()
        self.addCleanup(self.dir.cleanup)

    def path(self, name):
        return os.path.join(self.dir.name, name)

    def test_tsv_reads_as_one_row_per_word_in_unicode(self):
        run("export", STARTER, "--format", "tsv", "-o", self.path("w.tsv"))
        with open(self.path("w.tsv"), encoding="utf-8", newline="") as f:
            rows = list(csv.reader(f, dialect="excel-tab"))
        words = starter_words()
        self.assertEqual(rows[0], ["Hieroglyphs", "Transliteration", "Gardiner", "Meaning",
                                   "Comment"])
        self.assertEqual(len(rows) - 1, len(words))
        for row, word in zip(rows[1:], words):
            self.assertEqual(len(row), 5)
            self.assertEqual(row[2:], [word[3], word[5], word[6]])
            # Hieroglyphs from the Unicode block and its format controls, nothing else.
            self.assertTrue(all(0x13000 <= ord(c) <= 0x1343F for c in row[0]), row[0])
            # Scholarly letters: no plain letter that has a scholarly form is left.
            self.assertFalse(set(row[1]) & set("AaiHxXqSTD"), row[1])

    def test_apkg_is_a_collection_with_a_note_and_two_cards_per_word(self):
        run("export", STARTER, "--format", "apkg", "--time", "1700000000000", "-o",
            self.path("w.apkg"))
        words = starter_words()
        with zipfile.ZipFile(self.path("w.apkg")) as z:
            names = set(z.namelist())
            media = json.loads(z.read("media"))
            collection = z.read("collection.anki2")
            pictures = {k: z.read(k) for k in media}
        self.assertEqual(names, {"collection.anki2", "media"} | set(media))
        self.assertEqual(len(media), len(words))
        self.assertTrue(all(p.startswith(b"\x89PNG") for p in pictures.values()))
        with open(self.path("collection.anki2"), "wb") as f:
            f.write(collection)
        db = sqlite3.connect(self.path("collection.anki2"))
        self.addCleanup(db.close)
        ver, models, decks = db.execute("select ver, models, decks from col").fetchone()
        self.assertEqual(ver, 11)
        models, decks = json.loads(models), json.loads(decks)
        (model,) = models.values()
        self.assertEqual([f["name"] for f in model["flds"]],
                         ["Transliteration", "Picture", "Meaning", "Comment", "Gardiner"])
        self.assertEqual(len(model["tmpls"]), 2)
        deck = [d for d in decks.values() if d["name"] == "Words"]
        self.assertEqual(len(deck), 1)
        notes = db.execute("select id, mid, flds from notes order by id").fetchall()
        self.assertEqual(len(notes), len(words))
        referenced = set()
        for (nid, mid, flds), word in zip(notes, words):
            self.assertEqual(mid, model["id"])
            fields = flds.split("\x1f")
            self.assertEqual(len(fields), 5)
            self.assertEqual(fields[2], word[5].replace("&", "&amp;"))
            referenced.add(fields[1].split('"')[1])
            cards = db.execute("select ord, did from cards where nid = ? order by ord",
                               (nid,)).fetchall()
            self.assertEqual(cards, [(0, deck[0]["id"]), (1, deck[0]["id"])])
        self.assertEqual(referenced, set(media.values()))

    def test_html_is_one_page_with_a_picture_per_word(self):
        run("export", STARTER, "--format", "html", "-o", self.path("w.html"))
        with open(self.path("w.html"), encoding="utf-8") as f:
            page = f.read()
        self.assertEqual(page.count('<svg class="word"'), len(starter_words()))
        self.assertNotIn("src=\"file:", page)


if __name__ == "__main__":
    unittest.main()
