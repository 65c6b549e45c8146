#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Changes the core rooms in random places, one at a time, and lists the changes that no test sees.

    mutate.py N [--seed NUMBER] [--room ROOM]

Works on a copy below build/mutate, so the tree itself is never touched; each change rebuilds what
depends on the file, and runs the tests that need no other program.
"""
import argparse
import pathlib
import random
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
PLACE = ROOT / "build" / "mutate"
TREE, BUILD = PLACE / "tree", PLACE / "build"
ROOMS = ("encoding", "layout", "document", "pdf", "ps", "platform")
PROGRAMS = ("vellumark_tests", "vellumark_fault_tests", "vellumark_system_call_tests", "checksums")
LONGEST_RUN = 120  # seconds; a change that makes a test hang is seen too

CHANGES = [
    (r" < ", (" <= ", " > ")), (r" <= ", (" < ",)), (r" > ", (" >= ", " < ")), (r" >= ", (" > ",)),
    (r" == ", (" != ",)), (r" != ", (" == ",)), (r" && ", (" || ",)), (r" \|\| ", (" && ",)),
    (r" \+ ", (" - ",)), (r" - ", (" + ",)), (r" \* ", (" + ",)), (r" / ", (" * ",)),
    (r" % ", (" / ",)), (r"\+\+", ("--",)), (r" \+= ", (" -= ",)), (r" -= ", (" += ",)),
    (r"\btrue\b", ("false",)), (r"\bfalse\b", ("true",)), (r"\breturn \{\};", ("{}",)),
    (r"std::min\b", ("std::max",)), (r"std::max\b", ("std::min",)), (r"(?<=[ (])!(?=[\w(])", ("",)),
    (r"(?<![\w.'\"])\d+(?![\w.'\"])", ("+1", "-1")),
]


def places(room):
    """Every change that could be made: file, offset, what is there, what would be."""
    listed = subprocess.run(["git", "ls-files", *(f"{each}/*.cpp" for each in ([room] if room else ROOMS))],
                            cwd=ROOT, check=True, capture_output=True, text=True).stdout.split()
    for path in listed:
        if "windows_" in path and "1252" not in path:
            continue
        text = (ROOT / path).read_text(encoding="utf-8")
        at = 0
        for line in text.splitlines(keepends=True):
            code = line.split("//")[0]
            if not code.startswith("#") and "static_assert" not in code and '"' not in code:
                for pattern, others in CHANGES:
                    for found in re.finditer(pattern, code):
                        for other in others:
                            new = str(int(found[0]) + int(other)) if other in ("+1", "-1") else other
                            yield path, at + found.start(), found[0], new
            at += len(line)


def run(*command, seconds=None):
    try:
        return subprocess.run(list(map(str, command)), cwd=TREE, capture_output=True, timeout=seconds,
                              check=False).returncode
    except subprocess.TimeoutExpired:
        return -1


def build():
    return run("cmake", "--build", BUILD, "--target", *PROGRAMS)


def seen():
    """Whether a test fails."""
    for program in PROGRAMS:
        path = BUILD / "tests" / program
        command = [path, "--gtest_brief=1", "--gtest_fail_fast"]
        if program == "checksums":
            command = [sys.executable, TREE / "tests/same_bytes/checksums_test.py", path]
        if run(*command, seconds=LONGEST_RUN) != 0:
            return True
    return False


def prepare():
    listed = subprocess.run(["git", "ls-files"], cwd=ROOT, check=True, capture_output=True, text=True)
    for name in listed.stdout.splitlines():
        source, target = ROOT / name, TREE / name
        if not source.is_file():
            continue
        if not target.exists() or target.read_bytes() != source.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)
    configured = run("cmake", "--preset", "release", "-B", BUILD, "-DCMAKE_BUILD_TYPE=Debug",
                     "-DCMAKE_CXX_FLAGS=-O1 -g0 -D_GLIBCXX_ASSERTIONS", "-DVELLUMARK_WERROR=OFF", "-DVELLUMARK_PYTHON=OFF",
                     "-DVELLUMARK_TOOLS=OFF", "-DVELLUMARK_EXAMPLES=OFF")
    if configured != 0 or build() != 0 or seen():
        sys.exit("mutate: the tests fail without a change, or do not build")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("count", type=int)
    parser.add_argument("--seed", type=int, default=None)
    parser.add_argument("--room", choices=ROOMS)
    arguments = parser.parse_args()
    prepare()
    chosen = random.Random(arguments.seed).sample(list(places(arguments.room)), arguments.count)
    survivors = invalid = 0
    for path, at, before, after in chosen:
        file = TREE / path
        text = (ROOT / path).read_text(encoding="utf-8")
        line = text.count("\n", 0, at) + 1
        try:
            file.write_text(text[:at] + after + text[at + len(before):], encoding="utf-8")
            if build() != 0:
                invalid += 1
            elif not seen():
                survivors += 1
                print(f"{path}:{line}: \"{before.strip()}\" as \"{after.strip()}\": "
                      f"{text.splitlines()[line - 1].strip()}", flush=True)
        finally:
            file.write_text(text, encoding="utf-8")
    valid = arguments.count - invalid
    print(f"mutate: {valid} changes, {survivors} survive; {invalid} more do not compile")


if __name__ == "__main__":
    main()
