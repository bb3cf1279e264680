#!/bin/sh
# Makes every generated file under data/ (or the folder given), then checks it.
# Debian's own python3 is used on purpose: it has python3-fonttools and
# python3-pil, and its unicodedata knows the hieroglyph block.
set -e
here=$(dirname "$0")
data=${1:-$here/../data}
py=/usr/bin/python3
$py "$here/gen_pictures.py" "$data"
$py "$here/gen_lists.py" "$data"
$py "$here/gen_trans2code.py" "$data"
$py "$here/gen_font.py" "$data"
$py "$here/gen_outlines.py" "$data"
$py "$here/gen_dictionary.py" "$data"
$py "$here/gen_program_files.py" "$data"
$py "$here/check_data.py" "$data"
