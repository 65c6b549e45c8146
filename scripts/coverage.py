#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints which branches of the core rooms the tests take, room by room.

    coverage.py BUILD_FOLDER [ROOM]     lists the lines with missed branches of one room

BUILD_FOLDER is a build with gcc's --coverage whose tests have run. Branches that the compiler adds
for exceptions are not counted.
"""
import collections
import gzip
import json
import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
ROOMS = ("encoding", "layout", "document", "pdf", "ps", "platform", "api", "automation")


def counts(build):
    """How often each branch was taken, by file, line and place in the line."""
    taken = collections.Counter()
    notes = [str(path.resolve()) for path in pathlib.Path(build).rglob("*.gcda")]
    with tempfile.TemporaryDirectory() as folder:
        for at in range(0, len(notes), 50):
            subprocess.run(["gcov", "--branch-probabilities", "--json-format", "--hash-filenames",
                            *notes[at:at + 50]], cwd=folder, check=True, capture_output=True)
        for report in pathlib.Path(folder).glob("*.gcov.json.gz"):
            data = json.loads(gzip.decompress(report.read_bytes()))
            base = pathlib.Path(data["current_working_directory"])
            for file in data["files"]:
                path = (base / file["file"]).resolve()
                if not path.is_relative_to(ROOT) or path.relative_to(ROOT).parts[0] not in ROOMS:
                    continue
                for line in file["lines"]:
                    for place, branch in enumerate(line["branches"]):
                        if not branch["throw"]:
                            key = (str(path.relative_to(ROOT)), line["line_number"], place)
                            taken[key] += branch["count"]
    return taken


def main():
    taken = counts(sys.argv[1])
    if not taken:
        sys.exit("coverage: no branch was counted; build with --coverage and run the tests first")
    wanted = sys.argv[2] if len(sys.argv) > 2 else None
    missed = collections.defaultdict(set)
    for (path, line, _), count in taken.items():
        if count == 0:
            missed[path].add(line)
    if wanted:
        for path in sorted(path for path in missed if path.startswith(wanted + "/")):
            print(f"{path}: lines {', '.join(map(str, sorted(missed[path])))}")
        return
    for room in ROOMS:
        counted = [count for (path, _, _), count in taken.items() if path.startswith(room + "/")]
        if counted:
            share = sum(count > 0 for count in counted) / len(counted)
            print(f"{room:<12}{len(counted):6} branches {share:8.1%} taken")


if __name__ == "__main__":
    main()
