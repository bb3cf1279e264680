"""Reading and writing the program's comma-separated files.

The program reads its lists and dictionaries field by field, not line by line:
leading blanks are skipped; a field that begins with a double quote runs to the
next double quote and whatever follows it up to the next comma or line end is
skipped; any other field runs to the next comma or line end and loses its
trailing blanks. Nothing is escaped, so a quoted value can hold commas and
blanks but never a double quote or a line break.

Every generator writes through `write_records`, which refuses values the reader
could not give back, so a bad value fails the generator instead of the program.
"""

from __future__ import annotations

import os

CRLF = "\r\n"


class UnwritableValue(ValueError):
    """A value that would not read back as one field."""


def check_value(value: str) -> None:
    if '"' in value or "\r" in value or "\n" in value:
        raise UnwritableValue(f"value {value!r} holds a double quote or a line break")


def quoted(value: str) -> str:
    check_value(value)
    return '"' + value + '"'


def format_records(records) -> str:
    """One line per record, every field quoted, CR LF after each line."""
    return "".join(",".join(quoted(v) for v in rec) + CRLF for rec in records)


def write_text(path: str, text: str) -> None:
    """Writes UTF-8 without a byte-order mark, bytes exactly as given."""
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as f:
        f.write(text.encode("utf-8"))


def write_records(path: str, records) -> None:
    write_text(path, format_records(records))


def read_fields(text: str) -> list[str]:
    """Every field of the text, in order, by the program's reader rules."""
    fields = []
    i, n = 0, len(text)

    def at_end(pos: int) -> bool:
        return all(c in "\r\n \t" for c in text[pos:])

    def skip_separator(pos: int) -> int:
        while pos < n:
            c = text[pos]
            if c == ",":
                return pos + 1
            if c == "\r":
                return pos + 2 if text[pos + 1:pos + 2] == "\n" else pos + 1
            if c == "\n":
                return pos + 1
            pos += 1
        return pos

    while not at_end(i):
        while i < n and text[i] in " \t":
            i += 1
        if text[i] == '"':
            close = text.find('"', i + 1)
            end = n if close < 0 else close
            fields.append(text[i + 1:end])
            i = skip_separator(n if close < 0 else close + 1)
        else:
            start = i
            while i < n and text[i] not in ",\r\n":
                i += 1
            fields.append(text[start:i].rstrip(" \t"))
            i = skip_separator(i)
    return fields


def read_file_fields(path: str) -> list[str]:
    with open(path, "rb") as f:
        return read_fields(f.read().decode("utf-8"))


def read_records(path: str, width: int) -> list[list[str]]:
    fields = read_file_fields(path)
    if len(fields) % width:
        raise ValueError(f"{path}: {len(fields)} fields do not make records of {width}")
    return [fields[k:k + width] for k in range(0, len(fields), width)]
