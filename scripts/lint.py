#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks what compilers and formatters do not see.

- Includes run one way between the rooms of the house, and start from the root of the tree; public
  headers are included as <vellumark/...>, and include nothing else of the tree.
- Hosts (the command-line host and the examples) include public headers and their own room only.
- The core uses the C++ standard library only.
- Every header compiles alone; those that need Windows with the cross compiler, where there is one.
- Every source has an SPDX line first, and at most 500 lines.
"""
import concurrent.futures
import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

# A room may include itself and every room of a lower floor; rooms of one floor do not know each
# other.
FLOORS = [
    ["include"],
    ["encoding", "platform"],
    ["layout"],
    ["document"],
    ["pdf", "ps"],
    ["api"],
    ["automation"],
    ["python", "tools", "examples", "bench", "fuzz"],
    ["tests"],
]
HOSTS = ("tools", "examples")
CORE = ("encoding", "layout", "document", "pdf", "ps")
LONGEST_FILE = 500
WINDOWS_HEADER = re.compile(r"automation/server/|(platform|include/vellumark)/windows_(?!1252)|tests/windows/")
WINDOWS_COMPILER = "x86_64-w64-mingw32-g++-posix"

STANDARD = set("""algorithm any array bit bitset cerrno cfloat charconv chrono climits cmath compare
concepts cstddef cstdint cstdio cstdlib cstring ctime deque exception fstream functional
initializer_list iomanip iostream iterator limits list locale map memory mutex new numbers numeric
optional ostream queue random set span sstream stdexcept string string_view system_error tuple
type_traits unordered_map unordered_set utility variant vector""".split())
INTRINSICS = {"immintrin.h", "emmintrin.h", "tmmintrin.h", "arm_neon.h"}


def sources():
    listed = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard", "*.h", "*.cpp"],
        cwd=ROOT, check=True, capture_output=True, text=True).stdout.split()
    return [path for path in listed if (ROOT / path).exists()]


def floor_of(path):
    room = path.split("/")[0]
    for number, rooms in enumerate(FLOORS):
        if room in rooms:
            return number
    return None


def check_text(path):
    lines = (ROOT / path).read_text(encoding="utf-8").splitlines()
    if not lines or lines[0] != "// SPDX-License-Identifier: MIT":
        yield f"{path}:1: the first line is not the SPDX line"
    if len(lines) > LONGEST_FILE:
        yield f"{path}: {len(lines)} lines; at most {LONGEST_FILE}"
    if path.endswith(".h") and "#pragma once" not in lines:
        yield f"{path}: no #pragma once"
    here, room = floor_of(path), path.split("/")[0]
    for number, line in enumerate(lines, 1):
        own = re.match(r'#include "([^"]+)"', line)
        system = re.match(r"#include <([^>]+)>", line)
        if system and system[1].startswith("vellumark/"):
            if not (ROOT / "include" / system[1]).exists():
                yield f"{path}:{number}: <{system[1]}> is not a public header"
            continue
        if own:
            there, other = floor_of(own[1]), own[1].split("/")[0]
            if there is None:
                yield f"{path}:{number}: {own[1]} is in no room"
            elif room == "include":
                yield f"{path}:{number}: a public header may not include {own[1]}"
            elif room in HOSTS and other != room:
                yield f"{path}:{number}: a host may not include {own[1]}"
            elif there > here or (there == here and other != room):
                yield f"{path}:{number}: {room} may not include {own[1]}"
        if system and room in CORE and system[1] not in STANDARD | INTRINSICS:
            yield f"{path}:{number}: the core includes the standard library only, not <{system[1]}>"


def check_compiles_alone(path):
    compiler = WINDOWS_COMPILER if WINDOWS_HEADER.match(path) else "g++"
    if compiler == WINDOWS_COMPILER and not shutil.which(compiler):
        return
    flags = ["-std=c++20", "-fsyntax-only", "-I", str(ROOT / "include"), "-Wall", "-Wextra", "-x", "c++"]
    if not path.startswith("include/"):
        flags += ["-I", str(ROOT)]
    if path.startswith("tests/"):
        flags += ['-DVELLUMARK_EXPECTED=""']
    if path.startswith("python/"):
        flags += ["-isystem", str(next(pathlib.Path("/usr/include").glob("python3.*")))]
    done = subprocess.run([compiler, *flags, "-include", str(ROOT / path), "/dev/null"],
                          capture_output=True, text=True, check=False)
    if done.returncode != 0:
        yield f"{path}: does not compile alone\n{done.stderr}"


def main():
    paths = sources()
    faults = [fault for path in paths for fault in check_text(path)]
    headers = [path for path in paths if path.endswith(".h")]
    with concurrent.futures.ThreadPoolExecutor() as pool:
        for found in pool.map(lambda path: list(check_compiles_alone(path)), headers):
            faults += found
    for fault in faults:
        print(fault, file=sys.stderr)
    print(f"lint: {len(paths)} files, {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
