#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The names that a shared library exports, demangled; a change of them changes what hosts link to.

usage: exported_symbols.py LIBRARY      writes them to exported_symbols.txt, beside this file, and
                                        to the symbols file of the Debian package

LIBRARY is of a Release build: without optimization, functions that are otherwise inlined come too.
A name in the symbols file has the version behind it that brought it.
"""
import pathlib
import re
import subprocess
import sys

LIST = pathlib.Path(__file__).with_name("exported_symbols.txt")
ROOT = LIST.parent.parent.parent
SYMBOLS_FILE = ROOT / "debian" / "libvellumark1.symbols"
SYMBOL = re.compile(r' \(c\+\+.*?\)"(.*)@Base" (\S+)')

# As the headers write it, and without the width of the machine's words.
SHORTER = [
    (r"std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >",
     "std::string"),
    (r"std::basic_ostream<char, std::char_traits<char> >", "std::ostream"),
    (r"std::basic_string_view<char, std::char_traits<char> >", "std::string_view"),
    (r"(std::span<[^<>,]*), \d+ul?>", r"\1>"),
    (r"(std::vector<[^<>,]*), std::allocator<[^<>]*> >", r"\1>"),
    (r"\[abi:cxx11\]", ""),
]


def shortened(name):
    for long, short in SHORTER:
        name = re.sub(long, short, name)
    return name


def demangled(library):
    table = subprocess.run(["nm", "-D", "--defined-only", "--format=just-symbols", library],
                           check=True, capture_output=True, text=True).stdout
    names = subprocess.run(["c++filt"], input=table, check=True, capture_output=True, text=True)
    return sorted(set(names.stdout.splitlines()))


def exported_symbols(library):
    return sorted({shortened(name) for name in demangled(library)})


def packaged_symbols():
    """The names in the symbols file, shortened, and the version behind each as it is there."""
    text = SYMBOLS_FILE.read_text(encoding="utf-8") if SYMBOLS_FILE.exists() else ""
    return dict(SYMBOL.findall(text))


def symbols_file(library):
    header = (ROOT / "include/vellumark/version.h").read_text(encoding="utf-8")
    version = ".".join(re.findall(r"define VELLUMARK_VERSION_(?:MAJOR|MINOR|PATCH) ([0-9]+)", header))
    since = packaged_symbols()
    lines = ["libvellumark.so.1 libvellumark1 #MINVER#"]
    for name in demangled(library):
        # A span's size is as wide as the machine's words: other machines have other names.
        tags = "c++|optional" if re.search(r"\d+ul?>", name) else "c++"
        lines.append(f' ({tags})"{name}@Base" {since.get(name, version)}')
    return "\n".join(lines) + "\n"


if __name__ == "__main__":
    LIST.write_text("".join(f"{name}\n" for name in exported_symbols(sys.argv[1])), encoding="utf-8")
    SYMBOLS_FILE.write_text(symbols_file(sys.argv[1]), encoding="utf-8")
