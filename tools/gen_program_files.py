#!/usr/bin/python3
"""Writes the default settings file and keeps the empty Images folder.

    /usr/bin/python3 tools/gen_program_files.py [data folder]

System/Settings.nks holds the defaults in the form the program writes: a banner
line, an empty line, one "key = value" line per setting, and an empty line at
the end, all with CR LF.
"""

from __future__ import annotations

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import nkfile  # noqa: E402

SETTINGS = (
    "Nebkaro Settings: \r\n"
    "\r\n"
    "Library = Basic\r\n"
    "Direction = Left\r\n"
    "Dictionary Name = Words.nkd\r\n"
    "Show About = True\r\n"
    "Show Dictionary Info = True\r\n"
    "\r\n"
)


def main(argv) -> int:
    data = argv[1] if len(argv) > 1 else os.path.join(
        os.path.dirname(os.path.abspath(__file__)), "..", "data")
    nkfile.write_text(os.path.join(data, "System", "Settings.nks"), SETTINGS)
    nkfile.write_text(os.path.join(data, "Images", ".gitkeep"), "")
    print("System/Settings.nks and Images/ written")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
