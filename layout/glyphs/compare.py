#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares the glyph tables of this folder with the public metric files that a machine has.

    compare.py [folder...]      (default: /usr/share /usr/lib /usr/local)

The sources are those of ../widths/compare.py. Every width where a source and a table differ is
printed with the file that says so; the differences to expect are those that the head of each table
gives. It also compares composed.txt with Python's Unicode character database. A review tool: the
build does not use it.
"""
import gzip
import importlib.util
import pathlib
import re
import sys
import unicodedata

HERE = pathlib.Path(__file__).resolve().parent
FACES = ["helvetica", "helvetica-bold", "times-roman", "times-bold", "times-italic", "times-bolditalic"]


def widths_module():
    spec = importlib.util.spec_from_file_location("widths", HERE.parent / "widths" / "compare.py")
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


def rows(name):
    lines = (HERE / name).read_text(encoding="ascii").splitlines()
    return [line.split("#")[0].split() for line in lines if line.split("#")[0].strip()]


def named_widths():
    """{table: {glyph name: width}}"""
    latin = rows("latin.txt")
    tables = {face: {row[1]: int(row[4 + i]) for row in latin} for i, face in enumerate(FACES)}
    for name in ("symbol", "zapfdingbats"):
        tables[name] = {row[3]: int(row[1]) for row in rows(name + ".txt")}
    return tables


def all_glyphs(path):
    """{glyph name: width} of an AFM file, glyphs without a code too"""
    with (gzip.open if path.endswith(".gz") else open)(path, "rt", encoding="latin-1") as file:
        metrics = re.findall(r"^C\s+-?\d+\s*;\s*WX\s+([\d.]+)\s*;\s*N\s+(\S+)", file.read(), re.M)
    return {name: float(width) for width, name in metrics}


def compare_widths(folders):
    module = widths_module()
    tables = named_widths()
    sources = module.find_sources(folders, tables)
    for table, widths in tables.items():
        paths = [path for path, _ in sources[table] if not path.endswith(".py")]
        print(f"{table}, sources: {len(paths)}")
        for path in paths:
            theirs = all_glyphs(path)
            for name, width in widths.items():
                if theirs.get(name) != width:
                    print(f"  {name}: {width}, but {theirs.get(name, 'no glyph')} in {path}")
    return all(sources.values())


def compare_letters():
    characters = [int(row[0], 16) for row in rows("latin.txt")]
    expected = set()
    for character in characters:
        parts = unicodedata.decomposition(chr(character)).split()
        if len(parts) == 2 and not parts[0].startswith("<"):
            expected.add((*parts, f"{character:04X}"))
    for row in sorted(expected.symmetric_difference(tuple(row) for row in rows("composed.txt"))):
        print("composed.txt and the Unicode character database differ in", *row)


def main():
    compare_letters()
    folders = sys.argv[1:] or ["/usr/share", "/usr/lib", "/usr/local"]
    return 0 if compare_widths(folders) else "some table has no source here to compare it with"


if __name__ == "__main__":
    sys.exit(main())
