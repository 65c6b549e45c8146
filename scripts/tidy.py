#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs clang-tidy over the sources of a build folder, one for each processor at a time.

A source that was clean stays clean until it, a header of the tree, a .clang-tidy file or the way it is
compiled changes: a digest of them is kept in the build folder, so that a second run takes seconds.
"""
import concurrent.futures
import hashlib
import json
import os
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent


def digest(*paths):
    sha = hashlib.sha256()
    for path in paths:
        sha.update(path.read_bytes())
    return sha.hexdigest()


def main():
    build = ROOT / sys.argv[1]
    commands = json.loads((build / "compile_commands.json").read_text())
    compiled = {pathlib.Path(c["file"]): c["command"] for c in commands
                if str(build) not in c["file"]}
    sources = sorted(compiled)
    listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard", "*.h",
                             "*.clang-tidy"],
                            cwd=ROOT, check=True, capture_output=True, text=True).stdout.split()
    shared = digest(*(ROOT / name for name in sorted(listed) if (ROOT / name).exists()))
    memory = build / "tidy.json"
    clean = json.loads(memory.read_text()) if memory.exists() else {}

    def run(source):
        key = shared + digest(source) + hashlib.sha256(compiled[source].encode()).hexdigest()
        if clean.get(str(source)) == key:
            return source, key, ""
        done = subprocess.run(["clang-tidy", "--quiet", "-p", str(build), str(source)],
                              capture_output=True, text=True, check=False)
        return source, key, done.stdout if done.returncode != 0 else ""

    faults = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for source, key, output in pool.map(run, sources):
            if output:
                print(output, file=sys.stderr)
                faults += 1
                clean.pop(str(source), None)
            else:
                clean[str(source)] = key
    memory.write_text(json.dumps(clean))
    print(f"clang-tidy: {len(sources)} files, {faults} with faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
