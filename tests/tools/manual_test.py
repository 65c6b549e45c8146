#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The manual, set by the command-line host; scripts/manual.py ends if a link or picture leads nowhere.

usage: manual_test.py HOST
"""
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
HOST = sys.argv[1]


def run(*command):
    done = subprocess.run(list(map(str, command)), capture_output=True, text=True, check=False)
    if done.returncode != 0 or done.stderr:
        raise AssertionError(f"{command}\n{done.stdout}{done.stderr}")
    return done.stdout


class Manual(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.temporary.cleanup)
        cls.folder = pathlib.Path(cls.temporary.name)
        run(sys.executable, ROOT / "scripts" / "manual.py", HOST, cls.folder, "--without-site")

    def test_readers_and_the_interpreter_have_nothing_to_say(self):
        run("qpdf", "--check", self.folder / "manual.pdf")
        self.assertEqual(run("gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=nullpage",
                             self.folder / "manual.ps"), "")

    def test_contents_bookmarks_and_titles_are_on_the_same_pages(self):
        pages = run("pdftotext", "-layout", self.folder / "manual.pdf", "-").split("\f")
        told = json.loads(run("qpdf", "--json", "--json-key=pages", self.folder / "manual.pdf"))
        outline = [(entry["title"], page["pageposfrom1"])
                   for page in told["pages"] for entry in page["outlines"]]
        contents = "".join(page for page in pages[:12] if " . . ." in page)
        self.assertGreater(len(outline), 150)
        for title, page in outline:
            words = title.split()
            self.assertIn("".join(words), re.sub(r"\s", "", pages[page - 1]), title)
        for title in ("The first document", "On Windows", "Reference", "Gallery"):
            page = dict(outline)[title]
            self.assertRegex(contents, rf"(?m)^ *{title}[ .]+{page}$")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
