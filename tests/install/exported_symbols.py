#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The names that a shared library exports, demangled; a change of them changes what hosts link to.

usage: exported_symbols.py LIBRARY      writes them to exported_symbols.txt, beside this file

LIBRARY is of a Release build: without optimization, functions that are otherwise inlined come too.
"""
import pathlib
import re
import subprocess
import sys

LIST = pathlib.Path(__file__).with_name("exported_symbols.txt")

# As the headers write it, and without the width of the machine's words.
SHORTER = [
    (r"std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >",
     "std::string"),
    (r"std::basic_string_view<char, std::char_traits<char> >", "std::string_view"),
    (r"(std::span<[^<>,]*), \d+ul?>", r"\1>"),
    (r"(std::vector<[^<>,]*), std::allocator<[^<>]*> >", r"\1>"),
    (r"\[abi:cxx11\]", ""),
]


def exported_symbols(library):
    table = subprocess.run(["nm", "-D", "--defined-only", "-C", library], check=True,
                           capture_output=True, text=True).stdout
    names = set()
    for line in table.splitlines():
        name = re.sub(r"^[0-9a-f]* *\w ", "", line)
        for long, short in SHORTER:
            name = re.sub(long, short, name)
        names.add(name)
    return sorted(names)


if __name__ == "__main__":
    LIST.write_text("".join(f"{name}\n" for name in exported_symbols(sys.argv[1])))
