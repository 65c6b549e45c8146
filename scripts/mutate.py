#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Changes the core rooms in random places, one at a time, and lists the changes that no test sees.

    mutate.py N [--seed NUMBER] [--room ROOM] [--file PATH]... [--jobs N]

Works on copies below build/mutate, so the tree itself is never touched; each change rebuilds what
depends on the file, and runs the tests that need no other program: first optimized, and a change
that lives there once more with the sanitizers, as ./dev test does. A change after which the compiler
makes the same program (the start value of what is written over) is counted apart.
"""
import argparse
import concurrent.futures
import hashlib
import os
import pathlib
import queue
import random
import re
import shutil
import subprocess
import sys
import threading

ROOT = pathlib.Path(__file__).resolve().parent.parent
PLACE = ROOT / "build" / "mutate"
ROOMS = ("encoding", "layout", "document", "pdf", "ps", "platform")
LONGEST_RUN = 40  # seconds, several times what the tests take; a change that makes a test hang is seen too
# These take most of the time, so they come last; with the sanitizers they are left out.
SLOW = "DamagedFonts.*:LongDocumentsAtTheLimit.*:LazyMatchFinder.*:FontsTest.EveryCharacter*"

CHANGES = [
    (r" < ", (" <= ", " > ")), (r" <= ", (" < ",)), (r" > ", (" >= ", " < ")), (r" >= ", (" > ",)),
    (r" == ", (" != ",)), (r" != ", (" == ",)), (r" && ", (" || ",)), (r" \|\| ", (" && ",)),
    (r" \+ ", (" - ",)), (r" - ", (" + ",)), (r" \* ", (" + ",)), (r" / ", (" * ",)),
    (r" % ", (" / ",)), (r"\+\+", ("--",)), (r" \+= ", (" -= ",)), (r" -= ", (" += ",)),
    (r"\btrue\b", ("false",)), (r"\bfalse\b", ("true",)), (r"\breturn \{\};", ("{}",)),
    (r"std::min\b", ("std::max",)), (r"std::max\b", ("std::min",)), (r"(?<=[ (])!(?=[\w(])", ("",)),
    (r"(?<![\w.'\"])\d+(?![\w.'\"])", ("+1", "-1")),
]


def places(room=None, files=None):
    """Every change that could be made: file, offset, what is there, what would be. What memory is
    reserved for is left out: no document shows it."""
    names = files or [f"{each}/*.cpp" for each in ([room] if room else ROOMS)]
    listed = subprocess.run(["git", "ls-files", *names], cwd=ROOT, check=True, capture_output=True,
                            text=True).stdout.split()
    for path in listed:
        if "windows_" in path and "1252" not in path:
            continue
        text = (ROOT / path).read_text(encoding="utf-8")
        at = 0
        for line in text.splitlines(keepends=True):
            code = line.split("//")[0]
            if not (code.startswith("#") or "static_assert" in code or '"' in code or ".reserve(" in code):
                for pattern, others in CHANGES:
                    for found in re.finditer(pattern, code):
                        for other in others:
                            new = str(int(found[0]) + int(other)) if other in ("+1", "-1") else other
                            yield path, at + found.start(), found[0], new
            at += len(line)


class Copy:
    """A copy of the tree with its build, in which changes are tried."""

    def __init__(self, name, preset, programs, options):
        self.tree, self.build_directory = PLACE / name / "tree", PLACE / name / "build"
        self.programs = programs
        listed = subprocess.run(["git", "ls-files"], cwd=ROOT, check=True, capture_output=True, text=True)
        for each in listed.stdout.splitlines():
            source, target = ROOT / each, self.tree / each
            if source.is_file() and (not target.exists() or target.read_bytes() != source.read_bytes()):
                target.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(source, target)
        configured = self.run("cmake", "--preset", preset, "-B", self.build_directory, "-DVELLUMARK_WERROR=OFF",
                              "-DVELLUMARK_PYTHON=OFF", "-DVELLUMARK_TOOLS=OFF", "-DVELLUMARK_EXAMPLES=OFF", *options)
        if configured != 0 or self.build() != 0 or self.seen():
            sys.exit("mutate: the tests fail without a change, or do not build")
        self.unchanged = self.contents()

    def run(self, *command, seconds=None):
        try:
            return subprocess.run(list(map(str, command)), cwd=self.tree, capture_output=True, timeout=seconds,
                                  check=False).returncode
        except subprocess.TimeoutExpired:
            return -1

    def build(self):
        return self.run("cmake", "--build", self.build_directory, "--target", *self.programs)

    def contents(self):
        """What tells two builds apart."""
        tests = self.build_directory / "tests"
        return [hashlib.sha256((tests / each).read_bytes()).digest() for each in self.programs]

    def seen(self):
        """Whether a test fails."""
        tests = self.build_directory / "tests"
        runs = [[tests / each, "--gtest_brief=1", "--gtest_fail_fast", f"--gtest_filter=-{SLOW}"]
                for each in self.programs if each != "checksums"]
        if "checksums" in self.programs:
            runs.insert(1, [sys.executable, self.tree / "tests/same_bytes/checksums_test.py", tests / "checksums"])
            runs.append([tests / "vellumark_tests", "--gtest_brief=1", "--gtest_fail_fast", f"--gtest_filter={SLOW}"])
        return any(self.run(*each, seconds=LONGEST_RUN) != 0 for each in runs)

    def tried(self, path, at, before, after):
        """What became of a change: "invalid", "same program", "dies" or "lives"."""
        file = self.tree / path
        text = (ROOT / path).read_text(encoding="utf-8")
        try:
            file.write_text(text[:at] + after + text[at + len(before):], encoding="utf-8")
            if self.build() != 0:
                return "invalid"
            if self.contents() == self.unchanged:
                return "same program"
            return "dies" if self.seen() else "lives"
        finally:
            file.write_text(text, encoding="utf-8")


def optimized(name):
    return Copy(name, "release", ("vellumark_tests", "checksums", "vellumark_system_call_tests", "vellumark_fault_tests"),
                ("-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS=-O1 -g0 -D_GLIBCXX_ASSERTIONS"))


def sanitized():
    return Copy("sanitized", "asan", ("vellumark_tests",),
                ("-DCMAKE_UNITY_BUILD=OFF", "-DVELLUMARK_FUZZ=OFF", "-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O1 -g0"))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("count", type=int)
    parser.add_argument("--seed", type=int, default=None)
    parser.add_argument("--room", choices=ROOMS)
    parser.add_argument("--file", action="append", help="only this file; may stand several times")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    arguments = parser.parse_args()
    possible = list(places(arguments.room, arguments.file))
    chosen = random.Random(arguments.seed).sample(possible, min(arguments.count, len(possible)))
    copies = queue.Queue()
    for number in range(arguments.jobs):
        copies.put(optimized(f"optimized{number}"))
    last, one_at_a_time = sanitized(), threading.Lock()

    def fate(change):
        copy = copies.get()
        try:
            became = copy.tried(*change)
        finally:
            copies.put(copy)
        if became == "lives":
            with one_at_a_time:
                became = "dies" if last.tried(*change) == "dies" else "lives"
        return became

    count = {"invalid": 0, "same program": 0, "dies": 0, "lives": 0}
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        for (path, at, before, after), became in zip(chosen, pool.map(fate, chosen)):
            count[became] += 1
            print(f"\r{sum(count.values())} of {len(chosen)}", end="", file=sys.stderr, flush=True)
            if became == "lives":
                text = (ROOT / path).read_text(encoding="utf-8")
                line = text.count("\n", 0, at) + 1
                print(f"\n{path}:{line}: \"{before.strip()}\" as \"{after.strip()}\": "
                      f"{text.splitlines()[line - 1].strip()}", flush=True)
    print(f"mutate: {count['dies'] + count['lives']} changes, {count['lives']} survive; "
          f"{count['same program']} more make the same program, {count['invalid']} do not compile")


if __name__ == "__main__":
    main()
