#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs clang-tidy over the sources of a build folder, a group for each processor at a time.

usage: tidy.py BUILD

Most of the time goes into the headers of the standard library, which every source includes. So sources
that are compiled and checked alike are checked in groups, each as one source that includes its
members; a member whose names clash with those before it is checked apart. A group that was clean stays clean
until one of its sources, a header of the tree, a .clang-tidy file or the way it is compiled
changes: a digest of them is kept in the build folder, so that a second run takes seconds.
"""
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
GROUP_SIZE = 24


def digest(*paths):
    sha = hashlib.sha256()
    for path in paths:
        sha.update(path.read_bytes())
    return sha.hexdigest()


def how_compiled(command):
    """The options of a compiler command, without its files."""
    return re.sub(r" -(o|MF|MT|c) \S+", "", command)


def checked_by(source):
    """The nearest folder with a configuration."""
    return next(folder for folder in source.parents if (folder / ".clang-tidy").exists())


def groups(commands):
    """The sources that are compiled and checked alike, so many at a time."""
    alike = {}
    for source, command in sorted(commands.items()):
        alike.setdefault((checked_by(source), how_compiled(command)), []).append(source)
    for (_, command), sources in alike.items():
        for start in range(0, len(sources), GROUP_SIZE):
            yield command, sources[start:start + GROUP_SIZE]


class Tidy:
    def __init__(self, build, rooms):
        self.build = build
        self.rooms = rooms
        self.scratch = build / "tidy"
        shutil.rmtree(self.scratch, ignore_errors=True)

    def folder(self, room):
        """A folder for what stands for the sources of a room, with the room's configuration."""
        scratch = self.scratch / room.relative_to(ROOT)
        scratch.mkdir(parents=True, exist_ok=True)
        if room != ROOT:
            shutil.copy(room / ".clang-tidy", scratch)
        name = f"{len(list(scratch.iterdir()))}"
        (scratch / name).mkdir()
        return scratch / name

    def run(self, command, sources, folder):
        """What clang-tidy has to say, or an empty text."""
        together = folder / "group.cpp"
        if len(sources) > 1:  # each may have a main, and names of its own that shadow a neighbor's
            options = "-Wno-return-type -Wno-shadow"
            together.write_text("".join(
                f"#undef main\n#define main Main{number}\n"
                f'#include "{source}"  // NOLINT(bugprone-suspicious-include)\n'
                for number, source in enumerate(sources)))
        else:
            options = ""
            together.write_text(f'#include "{sources[0]}"  // NOLINT(bugprone-suspicious-include)\n')
        (folder / "compile_commands.json").write_text(json.dumps(
            [{"directory": str(self.build), "file": str(together), "command": f"{command} {options} -c {together}"}]))
        # A file that is included counts as a header.
        done = subprocess.run(["clang-tidy", "--quiet", "-p", str(folder),
                               f"--header-filter=^{ROOT}/({'|'.join(self.rooms)})/", str(together)],
                              capture_output=True, text=True, check=False)
        if done.returncode == 0:
            return ""
        clash = set(re.findall(r"(\S+?):\d+:\d+: error: .*\[clang-diagnostic-error\]", done.stdout))
        apart = [source for source in sources if str(source) in clash]
        if len(sources) > 1 and apart:
            rest = [source for source in sources if source not in apart] or [apart.pop()]
            return self.run(command, apart, folder) + self.run(command, rest, folder)
        return done.stdout


def main():
    build = ROOT / sys.argv[1]
    commands = {pathlib.Path(entry["file"]): entry["command"]
                for entry in json.loads((build / "compile_commands.json").read_text())
                if str(build) not in entry["file"]}
    listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard", "*.h",
                             "*.clang-tidy"],
                            cwd=ROOT, check=True, capture_output=True, text=True).stdout.split()
    shared = digest(*(ROOT / name for name in sorted(listed) if (ROOT / name).exists()))
    memory = build / "tidy.json"
    clean = json.loads(memory.read_text()) if memory.exists() else {}
    rooms = sorted({name.split("/")[0] for name in listed if "/" in name})
    tidy = Tidy(build, rooms)

    def check(group):
        (command, sources), folder = group
        key = shared + digest(*sources) + hashlib.sha256(command.encode()).hexdigest()
        if clean.get(str(sources[0])) == key:
            return sources, key, ""
        return sources, key, tidy.run(command, sources, folder)

    work = [(group, tidy.folder(checked_by(group[1][0]))) for group in groups(commands)]
    faults = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for sources, key, output in pool.map(check, work):
            if output:
                print(output, file=sys.stderr)
                faults += 1
                clean.pop(str(sources[0]), None)
            else:
                clean[str(sources[0])] = key
    memory.write_text(json.dumps(clean))
    print(f"clang-tidy: {len(commands)} files, {faults} groups with faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
