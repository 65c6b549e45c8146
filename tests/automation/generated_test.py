#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""A page that is made from the member table is the one in the tree.

    generated_test.py GENERATE WHAT FILE
"""
import pathlib
import subprocess
import sys


def main():
    generate, what, path = sys.argv[1:]
    made = subprocess.run([generate, what], check=True, capture_output=True).stdout
    if made == pathlib.Path(path).read_bytes():
        return 0
    print(f"{path} is not what the member table says; ./dev reference writes it anew")
    return 1


if __name__ == "__main__":
    sys.exit(main())
