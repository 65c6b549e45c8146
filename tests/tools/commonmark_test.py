#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Typesets every example that CommonMark's own documentation has, and compares the visible text.

    commonmark_test.py VELLUMARK_EXECUTABLE

The examples and the HTML that they become are those of the Debian package cmark-gfm; without it the
test is skipped. Needs pdftotext (poppler-utils).
"""
import concurrent.futures
import gzip
import html.parser
import os
import re
import subprocess
import sys
import tempfile
import unittest

TOOL = os.path.abspath(sys.argv.pop(1))
EXAMPLES = "/usr/share/doc/cmark-gfm/spec.txt.gz"


class VisibleText(html.parser.HTMLParser):
    """The text of a page, and how many characters its markers may have."""

    def __init__(self):
        super().__init__()
        self.text = ""
        self.markers = 0
        self.local_pictures = 0
        self.hidden = 0

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        self.markers += {"li": 4, "ol": len(values.get("start", ""))}.get(tag, 0)
        self.hidden += tag in ("script", "style")
        if tag == "img" and values.get("src"):
            self.text += values.get("alt") or os.path.basename(values["src"])
            self.local_pictures += ":" not in values["src"]

    def handle_endtag(self, tag):
        self.hidden -= tag in ("script", "style")

    def handle_data(self, data):
        if not self.hidden:
            self.text += data


def examples():
    with gzip.open(EXAMPLES, "rt", encoding="utf-8") as file:
        # "tagfilter" is not used: it makes some tags visible, for web sites.
        found = re.findall(r"^`{32} example(?! tagfilter)[^\n]*\n(.*?)^\.\n(.*?)^`{32}$",
                           file.read(), re.M | re.S)
    return [(markdown.replace("→", "\t"), page.replace("→", "\t")) for markdown, page in found]


def ascii_without_blanks(text):
    """What every font has and every reader shows alike."""
    return re.sub(r"[^!-~]|['`]", "", text)


def fault(markdown, page):
    """What is wrong with the document of an example; None if nothing is."""
    visible = VisibleText()
    visible.feed(page)
    visible.close()
    with tempfile.TemporaryDirectory() as here:
        done = subprocess.run([TOOL, "--markdown", "-", "-o", "out.pdf", "--footer", ""], cwd=here, input=markdown.encode(),
                              capture_output=True, check=False)
        if done.returncode != 0 and not (done.returncode == 1 and visible.local_pictures):
            return f"status {done.returncode}: {done.stderr.decode()}"
        text = subprocess.run(["pdftotext", "-raw", "out.pdf", "-"], cwd=here, capture_output=True,
                              check=True).stdout.decode()
    shown = ascii_without_blanks(text)
    wanted = ascii_without_blanks(visible.text)
    rest = iter(shown)
    if not all(character in rest for character in wanted):
        return f"wanted {wanted!r}, found {shown!r}"
    foreign = len(re.sub(r"[\x00-\x7f]", "", visible.text))
    if len(shown) > len(wanted) + visible.markers + 5 * foreign:
        return f"too much: wanted {wanted!r}, found {shown!r}"
    return None


class CommonMark(unittest.TestCase):
    @unittest.skipUnless(os.path.exists(EXAMPLES), "cmark-gfm is not installed")
    def test_the_text_of_every_example_comes_out_in_order(self):
        found = examples()
        self.assertGreater(len(found), 600)
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            faults = list(pool.map(lambda example: fault(*example), found))
        for (markdown, _), wrong in zip(found, faults):
            with self.subTest(markdown=markdown):
                self.assertIsNone(wrong)


if __name__ == "__main__":
    unittest.main()
