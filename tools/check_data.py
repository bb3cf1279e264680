#!/usr/bin/python3
"""Checks the program folder's sign lists, pictures and tables against each other.

    /usr/bin/python3 tools/check_data.py [data folder]

For each sign list (Lists/BasicList.csv with the Basic pictures,
Lists/Extendedlist.csv with the Extended ones) it reports
  - codes without a picture, in Left and in Right;
  - pictures without a code (and files that are not <code>.GIF in the folder
    of the code's first letter);
  - list order the program's loader cannot use: "A1" missing or repeated, codes
    from A1 on not grouped by first letter, a first letter outside "?".."Z",
    more than 7000 codes.
It also reports Phonetic.csv rows whose code is missing from a list, and a
Trans2Code.csv that does not hold exactly 225 records of two fields.

Prints every problem and exits with 1 when there is any, 0 otherwise.
"""

from __future__ import annotations

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import nkfile  # noqa: E402

LISTS = (("BasicList.csv", "Basic"), ("Extendedlist.csv", "Extended"))
DIRECTIONS = ("Left", "Right")
MAX_CODES = 7000
TRANS2CODE_RECORDS = 225


def list_order_problems(name: str, codes: list[str]) -> list[str]:
    problems = []
    if len(codes) > MAX_CODES:
        problems.append(f"{name}: {len(codes)} codes, at most {MAX_CODES}")
    firsts = [i for i, c in enumerate(codes) if c == "A1"]
    if len(firsts) != 1:
        problems.append(f"{name}: \"A1\" appears {len(firsts)} times, it must appear once")
        if not firsts:
            return problems
    done = set()
    current = None
    for code in codes[firsts[0]:]:
        letter = code[:1].upper()
        if not letter or not "?" <= letter <= "Z":
            problems.append(f"{name}: code {code!r} does not start with a letter from ? to Z")
            continue
        if letter != current:
            if letter in done or (current is not None and letter < current):
                problems.append(f"{name}: code {code} breaks the grouping by first letter")
            if current is not None:
                done.add(current)
            current = letter
    return problems


def picture_problems(data: str, name: str, library: str, codes: set[str]) -> list[str]:
    problems = []
    for direction in DIRECTIONS:
        root = os.path.join(data, library, direction)
        missing = sorted(c for c in codes
                         if not os.path.isfile(os.path.join(root, c[:1], c + ".GIF")))
        for code in missing:
            problems.append(f"{name}: {code} has no picture in {library}/{direction}")
        if not os.path.isdir(root):
            continue
        for folder, _, files in os.walk(root):
            for file in sorted(files):
                rel = os.path.relpath(os.path.join(folder, file), root)
                parts = rel.split(os.sep)
                stem, ext = os.path.splitext(file)
                if ext != ".GIF" or len(parts) != 2 or parts[0] != stem[:1]:
                    problems.append(f"{library}/{direction}/{rel}: not a picture file of a code")
                elif stem not in codes:
                    problems.append(f"{library}/{direction}/{rel}: no code {stem} in {name}")
    return problems


def check(data: str) -> list[str]:
    problems = []
    lists = os.path.join(data, "Lists")
    code_sets = {}
    for name, library in LISTS:
        path = os.path.join(lists, name)
        if not os.path.isfile(path):
            problems.append(f"{name}: missing")
            continue
        codes = nkfile.read_file_fields(path)
        code_sets[name] = set(codes)
        problems += list_order_problems(name, codes)
        problems += picture_problems(data, name, library, set(codes))

    path = os.path.join(lists, "Phonetic.csv")
    if not os.path.isfile(path):
        problems.append("Phonetic.csv: missing")
    else:
        fields = nkfile.read_file_fields(path)
        if len(fields) % 2:
            problems.append("Phonetic.csv: the last record has one field")
        for k in range(0, len(fields) - 1, 2):
            code, value = fields[k], fields[k + 1]
            for name, codes in code_sets.items():
                if code not in codes:
                    problems.append(f"Phonetic.csv: {code} ({value}) is not in {name}")

    path = os.path.join(lists, "Trans2Code.csv")
    if not os.path.isfile(path):
        problems.append("Trans2Code.csv: missing")
    else:
        fields = nkfile.read_file_fields(path)
        if len(fields) != 2 * TRANS2CODE_RECORDS:
            problems.append(f"Trans2Code.csv: {len(fields)} fields, "
                            f"{TRANS2CODE_RECORDS} records of two are needed")
    return problems


def main(argv) -> int:
    data = argv[1] if len(argv) > 1 else os.path.join(
        os.path.dirname(os.path.abspath(__file__)), "..", "data")
    problems = check(data)
    for p in problems:
        print(p)
    print(f"{len(problems)} problem(s) in {os.path.abspath(data)}")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
