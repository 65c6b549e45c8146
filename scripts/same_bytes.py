#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares the checksums of documents (tests/same_bytes) over the compilers and options that this
machine has.

    same_bytes.py
"""
import pathlib
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILDS = [
    ("gcc, -O0, unsigned char", "g++", "-O0 -funsigned-char"),
    ("gcc, -O3, this processor", "g++", "-O3 -march=native"),
    ("clang, -O3", "clang++", "-O3"),
    ("clang, -O0, unsigned char", "clang++", "-O0 -funsigned-char"),
]
# The picture and font libraries are installed for this machine's own width: the widths are compared without.
NO_LIBRARIES = ["-DVELLUMARK_PICTURE_DECODERS=OFF", "-DVELLUMARK_FONTS=OFF"]
WIDTHS = [("gcc, 64 bits", "-O2 -m64"), ("gcc, 32 bits", "-O2 -m32 -msse2 -mfpmath=sse")]


def has(compiler, flags):
    """Whether programs can be linked."""
    return shutil.which(compiler) is not None and subprocess.run(
        [compiler, *flags.split(), "-x", "c++", "-", "-o", "/dev/null"],
        input=b"int main() {}", capture_output=True, check=False).returncode == 0


def program(what, compiler, flags, options=()):
    """The program that prints the checksums, compiled so; nothing if this machine cannot."""
    if not has(compiler, flags):
        print(f"{what}: not on this machine")
        return None
    build = ROOT / "build" / "same_bytes" / "".join(c if c.isalnum() else "_" for c in what)
    off = [f"-DVELLUMARK_{part}=OFF" for part in ("TOOLS", "PYTHON", "EXAMPLES", "TESTS")]
    subprocess.run(["cmake", "-S", ROOT, "-B", build, "-G", "Ninja", f"-DCMAKE_CXX_COMPILER={compiler}",
                    "-DCMAKE_BUILD_TYPE=None", f"-DCMAKE_CXX_FLAGS={flags}", *off, *options],
                   check=True, capture_output=True)
    subprocess.run(["cmake", "--build", build, "--target", "vellumark", "vellumark_automation"], check=True,
                   stdout=subprocess.DEVNULL)
    made = build / "checksums"
    subprocess.run([compiler, "-std=c++20", *flags.split(), f"-I{ROOT}", f"-I{ROOT}/include",
                    ROOT / "tests/same_bytes/checksums.cpp", build / "automation/libvellumark_automation.a",
                    build / "libvellumark.a", "-ldl", "-o", made], check=True)
    return made


def report(what, same):
    print(f"{what}: {'the same bytes' if same else 'OTHER BYTES'}", flush=True)
    return same


def main():
    all_same = True
    for what, compiler, flags in BUILDS:
        if made := program(what, compiler, flags):
            test = [sys.executable, ROOT / "tests/same_bytes/checksums_test.py", made]
            all_same = report(what, subprocess.run(test, check=False).returncode == 0) and all_same
    widths = [made for what, flags in WIDTHS if (made := program(what, "g++", flags, NO_LIBRARIES))]
    if len(widths) == len(WIDTHS):
        first, second = (subprocess.run([made], check=True, capture_output=True).stdout for made in widths)
        all_same = report("gcc, 32 bits and 64, without picture libraries", first == second) and all_same
    return 0 if all_same else 1


if __name__ == "__main__":
    sys.exit(main())
