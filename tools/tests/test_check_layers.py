#!/usr/bin/env python3
"""The layering checker on small trees: what it must refuse, and what it must let through."""
import os
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), ".."))
import check_layers  # noqa: E402

TABLE = "core:\ndisplay: core\ndisplay_qt: display\nui: display_qt\n"

# (what, table, {file: text}, the problem expected, "" for none)
CASES = [
    ("a lower layer may be used", TABLE,
     {"display/a.cpp": '#include "core/x.h"\n'}, ""),
    ("what a used layer uses may be used", TABLE,
     {"ui/a.cpp": '#include "core/x.h"\n#include <QWidget>\n'}, ""),
    ("a higher layer may not", TABLE,
     {"core/a.h": '#include "display/x.h"\n'}, 'core may not include "display/x.h"'),
    ("a folder's _qt part is above it", TABLE,
     {"display/a.cpp": '#include "display/b_qt.h"\n'}, "display may not include"),
    ("the logic includes no Qt", TABLE,
     {"display/a.cpp": "#include <QImage>\n"}, "display may not include Qt <QImage>"),
    ("a folder needs a line", TABLE,
     {"print/a.cpp": "\n"}, "library print has no line"),
    ("the table has no cycle", "core: display\ndisplay: core\n",
     {}, "cycle"),
]


class CheckLayers(unittest.TestCase):
    def test_cases(self):
        for what, table, files, expected in CASES:
            with self.subTest(what), tempfile.TemporaryDirectory() as src:
                with open(os.path.join(src, "layers.txt"), "w") as f:
                    f.write(table)
                for name, text in files.items():
                    os.makedirs(os.path.join(src, os.path.dirname(name)), exist_ok=True)
                    with open(os.path.join(src, name), "w") as f:
                        f.write(text)
                problems = check_layers.check(src)
                if expected:
                    self.assertTrue(any(expected in p for p in problems), problems)
                else:
                    self.assertEqual(problems, [])


if __name__ == "__main__":
    unittest.main()
