#!/usr/bin/env python3
"""Checks the #include lines of src/ against the libraries' allowed dependencies.

    python3 tools/check_layers.py [src folder]

The table is src/layers.txt. A file belongs to the library of its folder (the first folder
under src/), or to <folder>_qt when its name ends in _qt. It may include its own library and
every library reachable from it in the table. Files outside the Qt libraries, ui and app may
include no Qt header. The table itself must have no cycle. Prints every violation and exits 1
when there is one.
"""
import os
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
QT_LAYERS_ALWAYS = {"ui", "app"}


def read_table(path):
    deps = {}
    with open(path, encoding="utf-8") as f:
        for number, line in enumerate(f, 1):
            line = line.split("#", 1)[0].strip()
            if not line:
                continue
            name, sep, rest = line.partition(":")
            if not sep or not name.strip():
                sys.exit(f"{path}:{number}: expected 'library: dependencies'")
            deps[name.strip()] = rest.split()
    for name, uses in deps.items():
        for use in uses:
            if use not in deps:
                sys.exit(f"{path}: {name} uses {use}, which has no line")
    return deps


def find_cycle(deps):
    state = {}

    def visit(node, trail):
        state[node] = "open"
        for use in deps[node]:
            if state.get(use) == "open":
                return trail + [node, use]
            if use not in state:
                found = visit(use, trail + [node])
                if found:
                    return found
        state[node] = "done"
        return None

    for node in deps:
        if node not in state:
            found = visit(node, [])
            if found:
                return found
    return None


def reachable(deps, start):
    seen, todo = {start}, [start]
    while todo:
        for use in deps[todo.pop()]:
            if use not in seen:
                seen.add(use)
                todo.append(use)
    return seen


def layer_of(path):
    """The library of a path relative to src/, None for a file outside the folders."""
    parts = path.split("/")
    if len(parts) < 2:
        return None
    stem = os.path.splitext(parts[-1])[0]
    return parts[0] + "_qt" if stem.endswith("_qt") else parts[0]


def check(src):
    deps = read_table(os.path.join(src, "layers.txt"))
    cycle = find_cycle(deps)
    if cycle:
        return ["layers.txt: cycle " + " -> ".join(cycle)]
    allowed = {name: reachable(deps, name) for name in deps}
    problems = []
    for folder, _, files in sorted(os.walk(src)):
        for name in sorted(files):
            if not name.endswith((".h", ".cpp")):
                continue
            full = os.path.join(folder, name)
            rel = os.path.relpath(full, src).replace(os.sep, "/")
            layer = layer_of(rel)
            if layer is None:
                continue
            if layer not in deps:
                problems.append(f"src/{rel}: library {layer} has no line in layers.txt")
                continue
            qt_allowed = layer in QT_LAYERS_ALWAYS or layer.endswith("_qt")
            with open(full, encoding="utf-8") as f:
                for number, line in enumerate(f, 1):
                    m = INCLUDE.match(line)
                    if not m:
                        continue
                    kind, target = m.groups()
                    where = f"src/{rel}:{number}"
                    if kind == "<":
                        if target.startswith("Q") and not qt_allowed:
                            problems.append(f"{where}: {layer} may not include Qt <{target}>")
                        continue
                    used = layer_of(target) if "/" in target else layer
                    if used not in allowed[layer]:
                        problems.append(f'{where}: {layer} may not include "{target}" ({used})')
    return problems


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    src = sys.argv[1] if len(sys.argv) > 1 else os.path.join(here, "..", "src")
    problems = check(src)
    for p in problems:
        print(p, file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
