# SPDX-License-Identifier: MIT
"""The command-line host as a user runs it, in a directory of its own, and its documents as other
programs read them. A test program takes the host as its first argument.

Needs pdftotext, pdfinfo (poppler-utils) and qpdf.
"""
import os
import re
import struct
import subprocess
import sys
import tempfile
import unittest

TOOL = os.path.abspath(sys.argv.pop(1))
# No fonts of this machine: a text would come out otherwise elsewhere.
os.environ["FONTCONFIG_FILE"] = os.path.join(os.path.dirname(os.path.abspath(__file__)), "no_fonts.conf")


class HostTest(unittest.TestCase):
    def setUp(self):
        self.directory = tempfile.TemporaryDirectory()
        self.addCleanup(self.directory.cleanup)
        self.here = self.directory.name

    def path(self, name):
        return os.path.join(self.here, name)

    def put(self, name, text):
        with open(self.path(name), "wb") as file:
            file.write(text if isinstance(text, bytes) else text.encode())
        return name

    def run_tool(self, *arguments, stdin=b"", environment=None):
        return subprocess.run([TOOL, *arguments], cwd=self.here, input=stdin, capture_output=True,
                              env={**os.environ, **(environment or {})})

    def typeset(self, text, *options):
        """Typesets the text, and returns the text on standard error."""
        done = self.run_tool(self.put("in.md", text), "-o", "out.pdf", *options)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stderr.decode()

    def refused(self, *arguments, stdin=b""):
        """The one line on standard error of a run that fails and leaves no file behind."""
        before = sorted(os.listdir(self.here))
        done = self.run_tool(*arguments, stdin=stdin)
        self.assertEqual(done.returncode, 2)
        self.assertRegex(done.stderr.decode(), r"\Avellumark: [^\n]+\n\Z")
        self.assertEqual(sorted(os.listdir(self.here)), before)
        return done.stderr.decode()

    def reader(self, *command):
        return subprocess.run(command, cwd=self.here, capture_output=True).stdout

    def text(self):
        return self.reader("pdftotext", "out.pdf", "-").decode()

    def info(self, field):
        found = re.search(field + r": *(.*)", self.reader("pdfinfo", "out.pdf").decode())
        return found.group(1) if found else ""

    def expanded(self):
        return self.reader("qpdf", "--qdf", "--object-streams=disable", "out.pdf", "-")

    def big_picture(self, name, width, height):
        """A black BMP of 1 bit per pixel."""
        row = (width + 31) // 32 * 4
        header = struct.pack("<2sIIIIiiHHIIiiII", b"BM", 62 + row * height, 0, 62, 40, width,
                             height, 1, 1, 0, row * height, 0, 0, 2, 2)
        self.put(name, header + b"\0\0\0\0\xff\xff\xff\0" + bytes(row * height))
