#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""A document has the same bytes whatever compiler, options, locale and time zone it meets.

    checksums_test.py CHECKSUMS_PROGRAM            compares with tests/expected/checksums.txt
    checksums_test.py CHECKSUMS_PROGRAM --write    writes that file; only if documents change on purpose
"""
import os
import pathlib
import subprocess
import sys

PROGRAM = sys.argv[1]
EXPECTED = pathlib.Path(__file__).parent.parent / "expected" / "checksums.txt"
PLACES = [{}, {"TZ": "Pacific/Kiritimati", "LC_ALL": "de_DE.UTF-8"},
          {"TZ": "XYZ+23:59:59", "LC_ALL": "tr_TR.UTF-8"}, {"TZ": ":/nowhere", "SOURCE_DATE_EPOCH": "soon"}]


def printed(place):
    return subprocess.run([PROGRAM], env={**os.environ, **place}, check=True, capture_output=True,
                          text=True).stdout


if "--write" in sys.argv:
    EXPECTED.write_text(printed({}))
for each in PLACES:
    for found, expected in zip(printed(each).splitlines(), EXPECTED.read_text().splitlines(), strict=True):
        assert found == expected, f"document {found}, expected {expected}, with {each}"
