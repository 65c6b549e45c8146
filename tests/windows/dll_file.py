# SPDX-License-Identifier: MIT
"""What a DLL's file says about itself, without loading it."""
import re
import subprocess

SYSTEM_LIBRARIES = {"advapi32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll",
                    "oleaut32.dll", "shell32.dll", "user32.dll"}


class DllFile:
    def __init__(self, path):
        self.path = path
        self.listing = subprocess.run(["x86_64-w64-mingw32-objdump", "-x", path], check=True,
                                      capture_output=True, text=True, errors="replace").stdout

    def bits(self):
        return {"pei-x86-64": 64, "pei-i386": 32}[re.search(r"file format (\S+)", self.listing)[1]]

    def exports(self):
        table = self.listing.split("[Ordinal/Name Pointer] Table", 1)[1].split("\n\n", 1)[0]
        return set(re.findall(r"\] (\w\S*)$", table, re.MULTILINE))

    def imports(self):
        """The libraries that it needs, in lower case."""
        return {name.lower() for name in re.findall(r"DLL Name: (\S+)", self.listing)}

    def resources(self):
        """Set of (type, name), such as (10, 101)."""
        return set()

    def holds(self, text):
        """Whether the text lies in the file, as UTF-16 or as bytes."""
        file = self.path.read_bytes()
        return text.encode("utf-16-le") in file or text.encode("ascii") in file
