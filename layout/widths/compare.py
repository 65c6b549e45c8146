#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares the width tables of this folder with the public metric files that a machine has.

    compare.py [folder...]      (default: /usr/share /usr/lib /usr/local)

Two kinds of files count as a source: Adobe Font Metrics (*.afm, *.afm.gz), taken by the font name
inside, the metric-compatible URW fonts too; and the standard-font data of ReportLab
(_fontdata_widths_*.py), which go by glyph name and therefore say nothing about codes. Typical
carriers on Debian: python-matplotlib-data, ruby-prawn, r-base-core, texlive-fonts-recommended,
a2ps, enscript, groff, fonts-urw-base35, python3-reportlab.

Every code where a source and a table differ is printed with the files that say so. A fill agrees
with a source that has no glyph at its code. The differences to expect are those that the header of
each table gives. A review tool: the build does not use it.
"""
import ast
import gzip
import os
import re
import sys

URW = {
    "NimbusSans-Regular": "helvetica", "NimbusSans-Bold": "helvetica-bold",
    "NimbusSans-Italic": "helvetica-oblique", "NimbusSans-BoldItalic": "helvetica-boldoblique",
    "NimbusRoman-Regular": "times-roman", "NimbusRoman-Bold": "times-bold",
    "NimbusRoman-Italic": "times-italic", "NimbusRoman-BoldItalic": "times-bolditalic",
    "StandardSymbolsPS": "symbol", "D050000L": "zapfdingbats",
}  # fmt: skip


def read_tables(folder):
    """{table: {code: (width, glyph name, or None for a fill)}}"""
    tables = {}
    for file in sorted(os.listdir(folder)):
        name, extension = os.path.splitext(file)
        if extension != ".txt" or name == "CMakeLists":
            continue
        table = tables[name] = {}
        with open(os.path.join(folder, file), encoding="ascii") as lines:
            for line in lines:
                if fill := re.match(r"fill (\d+)(?:-(\d+))? (\d+)", line):
                    first, last, width = fill.groups()
                    for code in range(int(first), int(last or first) + 1):
                        table[code] = (int(width), None)
                elif glyph := re.match(r" *(\d+) +(\d+) +(\S+)", line):
                    table[int(glyph[1])] = (int(glyph[2]), glyph[3])
    return tables


def read_afm(path):
    """(table it belongs to, {code: (width, glyph name)}) of an AFM file"""
    with (gzip.open if path.endswith(".gz") else open)(path, "rt", encoding="latin-1") as file:
        text = file.read()
    font = re.search(r"^FontName\s+(\S+)", text, re.M)
    metrics = re.findall(r"^C\s+(\d+)\s*;\s*WX\s+([\d.]+)\s*;\s*N\s+(\S+)", text, re.M)
    name = font[1] if font else ""
    return URW.get(name, name.lower()), {int(c): (float(w), n) for c, w, n in metrics}


def read_reportlab(path, tables):
    """The same of a ReportLab file, with the codes that the table itself gives the names."""
    key = re.search(r"widths_(\w+)\.py", path)[1]
    table = next((name for name in tables if name.replace("-", "") == key), "")
    with open(path, encoding="latin-1") as file:
        widths = ast.literal_eval(file.read().split("=", 1)[1].strip())
    named = {code: name for code, (_, name) in tables.get(table, {}).items() if name}
    return table, {code: (widths[name], name) for code, name in named.items() if name in widths}


def find_sources(folders, tables):
    """{table: [(path, glyphs)]}, each file once however many links lead to it"""
    sources = {name: [] for name in tables}
    seen = set()
    for root, _, files in (step for folder in folders for step in os.walk(folder)):
        for file in sorted(files):
            path = os.path.realpath(os.path.join(root, file))
            is_afm = re.search(r"\.afm(\.gz)?$", file)
            if path in seen or not os.path.isfile(path):
                continue
            if not is_afm and not re.match(r"_fontdata_widths_\w+\.py$", file):
                continue
            seen.add(path)
            table, glyphs = read_afm(path) if is_afm else read_reportlab(path, tables)
            if table in sources:
                sources[table].append((path, glyphs))
    return sources


def compare(name, table, sources):
    print(f"{name}, sources: {len(sources)}")
    for code in range(256):
        width, glyph = table.get(code, (None, None))
        others = {}
        for path, glyphs in sources:
            other = glyphs.get(code)
            if other != (width, glyph) and not (other is None and glyph is None):
                others.setdefault(other, []).append(path)
        for other, paths in others.items():
            theirs = f"{other[0]:g} {other[1]}" if other else "no glyph"
            print(f"  {code:3}: {width} {glyph or '(fill)'}, but {theirs} in {len(paths)}:")
            print("".join(f"         {path}\n" for path in paths), end="")


def main():
    folders = sys.argv[1:] or ["/usr/share", "/usr/lib", "/usr/local"]
    tables = read_tables(os.path.dirname(os.path.abspath(__file__)))
    sources = find_sources(folders, tables)
    for name, table in tables.items():
        compare(name, table, sources[name])
    return 0 if all(sources.values()) else "some table has no source here to compare it with"


if __name__ == "__main__":
    sys.exit(main())
