#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Drives the command-line host as a user does and reads its documents with other people's readers.

    cli_test.py VELLUMARK_EXECUTABLE

Needs pdftotext, pdfinfo (poppler-utils) and qpdf.
"""
import os
import re
import stat
import subprocess
import sys
import tempfile
import unicodedata
import unittest

TOOL = os.path.abspath(sys.argv.pop(1))


class CommandLine(unittest.TestCase):
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

    def run_tool(self, *arguments, stdin=b""):
        return subprocess.run([TOOL, *arguments], cwd=self.here, input=stdin, capture_output=True)

    def typeset(self, text, *options):
        """Typesets the text; what was said on standard error."""
        done = self.run_tool(self.put("in.md", text), "-o", "out.pdf", *options)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stderr.decode()

    def refused(self, *arguments, stdin=b""):
        """The one line on standard error of a run that leaves nothing behind."""
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
        return re.search(field + r": *(.*)", self.reader("pdfinfo", "out.pdf").decode()).group(1)

    def expanded(self):
        return self.reader("qpdf", "--qdf", "--object-streams=disable", "out.pdf", "-")

    def test_text_comes_out_in_reading_order(self):
        said = self.typeset(
            "# Title\n\nOne two\nthree.\n\n- item\n  1. nested\n\n"
            "```\ncode  here\n```\n\n> quote\n")
        self.assertEqual(said, "")
        words = self.text().split()
        self.assertEqual(words[:10], "Title One two three. • item 1. nested code here".split())
        self.assertEqual(words[10], "quote")

    def test_a_justified_text_keeps_its_order_over_pages(self):
        words = [f"w{i}" for i in range(3000)]
        self.typeset(" ".join(words))
        self.assertGreater(int(self.info("Pages")), 2)
        self.assertEqual(re.findall(r"w\d+", self.text()), words)
        self.assertEqual(self.text().count("Copyright (c) 2026 Vellumark"), int(self.info("Pages")))

    def test_accented_letters_are_found_again(self):
        self.typeset("Größe, Übermut, café, Łódź — “so” it's")
        self.assertIn("Größe, Übermut, café, Łódź — “so” it's",
                      unicodedata.normalize("NFC", self.text()))

    def test_links_point_where_they_should(self):
        self.typeset("[a](http://x.y/p\\q \"t\") and [b](http://x.y/a(b)) http://z.w/ü.")
        found = re.findall(rb"/URI \(([^\n]*)\)\n", self.expanded())
        self.assertEqual(found, [b"http://x.y/p%5Cq", b"http://x.y/a%28b%29", b"http://z.w/%C3%BC"])

    def test_properties_show_exactly(self):
        self.typeset("## Über (uns) \\\n", "--author", "A (b) \\c", "--keywords", "日本")
        self.assertEqual(self.info("Title"), "Über (uns) \\")
        self.assertEqual(self.info("Author"), "A (b) \\c")
        self.assertEqual(self.info("Keywords"), "日本")
        self.typeset("# x", "--title", "", "--creator", "me", "--producer", "you")
        self.assertEqual((self.info("Title"), self.info("Creator"), self.info("Producer")),
                         ("", "me", "you"))

    def test_paper_orientation_and_color(self):
        self.typeset("x", "--paper", "Letter", "--orientation", "landscape",
                     "--page-color", "#ff0000")
        self.assertRegex(self.info("Page size"), "792 x 612")
        self.assertIn(b"1 0 0 rg", self.expanded())

    def test_long_words_titles_and_backslashes_are_not_lost(self):
        self.typeset("# " + "title " * 300 + "\n\n" + "x" * 5000 + "\n\n" + "\\" * 700 + "\n",
                     "--size", "30", "--margins", "0")
        text = self.text()
        self.assertEqual((text.count("title"), text.count("x"), text.count("\\")),
                         (300, 5000, 700))

    def test_a_title_does_not_stand_alone_at_the_bottom(self):
        for lines in range(40, 60):
            self.typeset("x\n\n" * lines + "# Title\n\nbelow\n", "--size", "8", "--paper", "a5")
            for page in self.text().split("\f"):
                self.assertEqual("Title" in page, "below" in page)

    def test_missing_characters_are_reported_once(self):
        said = self.typeset("abc\n\n- é 日本\n- 日\n")
        self.assertEqual(said, 'vellumark: 3 characters are not in the fonts and were set as "?"; '
                               "first: U+65E5 at line 3, column 5\n")

    def test_a_text_too_long_to_be_justified_is_set_ragged(self):
        said = self.typeset("word " * 20000)
        self.assertRegex(said, r"\Avellumark: [^\n]*ragged\n\Z")
        self.assertEqual(self.text().count("word"), 20000)

    def test_a_text_too_long_for_a_document_says_where_to_split(self):
        said = self.refused(self.put("in.md", "a\n\n" * 20000), "-o", "out.pdf", "--no-justify")
        self.assertRegex(said, r"full at line 3\d{4} of the input")

    def test_input_may_be_standard_input_with_a_mark_and_crlf(self):
        done = self.run_tool("-", "-o", "out.pdf",
                             stdin=b"\xef\xbb\xbf# T\r\n\r\nalpha\r\nbeta\r\n")
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        self.assertIn("alpha beta", self.text())
        self.assertEqual(self.info("Title"), "T")

    def test_output_may_be_standard_output_or_beside_the_input(self):
        self.put("in.md", "x")
        self.assertTrue(self.run_tool("in.md", "-o", "-").stdout.startswith(b"%PDF-1.2\r\n"))
        self.assertEqual(self.run_tool("in.md").returncode, 0)
        self.assertEqual(sorted(os.listdir(self.here)), ["in.md", "in.pdf"])
        mask = os.umask(0)
        os.umask(mask)
        self.assertEqual(stat.S_IMODE(os.stat(self.path("in.pdf")).st_mode), 0o666 & ~mask)

    def test_an_existing_file_stays_until_the_new_one_is_whole(self):
        self.put("out.pdf", "old")
        os.symlink("out.pdf", self.path("link.pdf"))
        self.refused(self.put("in.md", b"bad \xff"), "-o", "out.pdf")
        with open(self.path("out.pdf")) as file:
            self.assertEqual(file.read(), "old")
        self.put("in.md", "new")
        self.assertEqual(self.run_tool("in.md", "-o", "link.pdf").returncode, 0)
        self.assertTrue(os.path.islink(self.path("link.pdf")))
        self.assertIn("new", self.text())

    def test_bad_input_is_refused(self):
        self.assertIn("No such file", self.refused("none.md", "-o", "out.pdf"))
        self.assertIn("directory", self.refused(self.here, "-o", "out.pdf"))
        bad = self.put("in.md", b"ok\n\xc3\xa9\xe9x")
        self.assertIn("line 2, column 2", self.refused(bad, "-o", "out.pdf"))
        self.assertIn("0xE9", self.refused(bad, "-o", "out.pdf"))
        self.assertIn("NUL", self.refused(self.put("in.md", b"a\0b"), "-o", "out.pdf"))
        for overlong in (b"\xc0\xaf", b"\xed\xa0\x80", b"\xf4\x90\x80\x80", b"\xe2\x82"):
            self.refused("-", "-o", "out.pdf", stdin=overlong)

    def test_bad_output_is_refused(self):
        self.put("in.md", "x")
        self.assertIn("is a directory", self.refused("in.md", "-o", self.here))
        self.assertIn("no directory", self.refused("in.md", "-o", "none/out.pdf"))
        self.assertIn("is the input", self.refused("in.md", "-o", "./in.md"))
        self.assertIn("needs an output", self.refused("-"))
        if os.path.exists("/dev/full"):
            self.assertIn("No space", self.refused("in.md", "-o", "/dev/full"))

    def test_bad_options_are_refused(self):
        self.put("in.md", "x")
        for option, value in (("--paper", "b7"), ("--orientation", "up"), ("--font", "arial"),
                              ("--size", "7"), ("--size", "73"), ("--size", "12pt"),
                              ("--margins", "1,2,3"), ("--margins", "-1"), ("--margins", "300"),
                              ("--page-color", "#12345"), ("--format", "doc"),
                              ("--author", b"\xff"), ("--unknown", "x")):
            with self.subTest(option=option, value=value):
                self.refused("in.md", "-o", "out.pdf", option, value)
        self.refused()

    def test_help_tells_defaults_and_version_a_number(self):
        told = self.run_tool("--help")
        self.assertEqual((told.returncode, told.stderr), (0, b""))
        for default in (b"[default: a4]", b"[default: 64]", b"[default: times]", b"[default: 11]"):
            self.assertIn(default, told.stdout)
        self.assertRegex(self.run_tool("--version").stdout, rb"\Avellumark \d+\.\d+\.\d+\n\Z")


if __name__ == "__main__":
    unittest.main()
