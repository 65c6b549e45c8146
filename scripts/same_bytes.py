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
    ("gcc, 32 bits", "g++", "-O2 -m32 -msse2 -mfpmath=sse"),
]


def has(compiler, flags):
    """Whether programs can be linked; 32 bits need the picture libraries too."""
    libraries = ["-ljpeg", "-lgif", "-lpng"]
    return shutil.which(compiler) is not None and subprocess.run(
        [compiler, *flags.split(), "-x", "c++", "-", "-o", "/dev/null", *libraries],
        input=b"int main() {}", capture_output=True, check=False).returncode == 0


def main():
    failed = False
    for what, compiler, flags in BUILDS:
        if not has(compiler, flags):
            print(f"{what}: not on this machine")
            continue
        build = ROOT / "build" / "same_bytes" / "".join(c if c.isalnum() else "_" for c in what)
        subprocess.run(["cmake", "-S", ROOT, "-B", build, "-G", "Ninja", f"-DCMAKE_CXX_COMPILER={compiler}",
                        "-DCMAKE_BUILD_TYPE=None", f"-DCMAKE_CXX_FLAGS={flags}", "-DVELLUMARK_TOOLS=OFF",
                        "-DVELLUMARK_PYTHON=OFF", "-DVELLUMARK_EXAMPLES=OFF"],
                       check=True, capture_output=True)
        subprocess.run(["cmake", "--build", build, "--target", "checksums"], check=True,
                       stdout=subprocess.DEVNULL)
        done = subprocess.run([sys.executable, ROOT / "tests/same_bytes/checksums_test.py",
                               build / "tests" / "checksums"], check=False)
        print(f"{what}: {'the same bytes' if done.returncode == 0 else 'OTHER BYTES'}", flush=True)
        failed = failed or done.returncode != 0
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
