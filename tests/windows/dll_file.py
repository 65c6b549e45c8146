# SPDX-License-Identifier: MIT
"""What a DLL's file says about itself, without loading it."""
import re
import subprocess

SYSTEM_LIBRARIES = {"advapi32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll",
                    "oleaut32.dll", "shell32.dll", "user32.dll"}



class DllFile:
    def __init__(self, path):
        self.path = path
        self.listing = self.tool("objdump", "-x", path)

    @staticmethod
    def tool(name, *arguments):
        """The tools of either target read the files of both."""
        return subprocess.run([f"x86_64-w64-mingw32-{name}", *arguments], check=True,
                              capture_output=True, text=True, errors="replace").stdout

    def bits(self):
        return {"pei-x86-64": 64, "pei-i386": 32}[re.search(r"file format (\S+)", self.listing)[1]]

    def exports(self):
        names = self.listing.split("[Ordinal/Name Pointer] Table", 1)[1].split("\n\n", 1)[0]
        return set(re.findall(r"\] (\S+)$", names, re.MULTILINE))

    def imports(self):
        """The libraries that it needs, in lower case."""
        return {name.lower() for name in re.findall(r"DLL Name: (\S+)", self.listing)}

    def resources(self):
        """Such as "RCDATA 101"."""
        listing = self.tool("windres", "-i", self.path, "-J", "coff", "-O", "rc")
        return {f"{kind} {number}" for number, kind in
                re.findall(r'^(\d+) "?([A-Z]+)"?$', listing, re.MULTILINE)}

    def holds(self, text):
        """Whether the text lies in the file, as bytes or as UTF-16."""
        file = self.path.read_bytes()
        return text.encode("ascii") in file or text.encode("utf-16-le") in file
