#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The page of languages, in embedded fonts, opened with other people's readers.

usage: languages_test.py LANGUAGES_PROGRAM

qpdf, mutool, poppler and Ghostscript say nothing; pdftotext finds each sentence as it was written;
the pages of the PDF and the PostScript file look alike in all of them. Without the fonts
(fonts-noto-core, fonts-noto-cjk) there is nothing to look at.
"""
import pathlib
import re
import subprocess
import sys
import tempfile
import unicodedata
import unittest

PROGRAM = sys.argv.pop(1)
SOURCE = pathlib.Path(__file__).parent.parent.parent / "examples/languages.cpp"
DPI = 72
BLOCK = 12  # pixels that are added up, since readers smooth edges in their own ways


def sentences():
    table = SOURCE.read_text(encoding="utf-8").split("kLanguages = {{")[1].split("}};")[0]
    rows = re.findall(r'\{"(\w+)",[^"]*(?:"[^"]*\.ttf")?[^"]*((?:"[^"]*"\s*)+)\}', table)
    return {name: "".join(re.findall(r'"([^"]*)"', texts)) for name, texts in rows}


def told(*command, folder):
    done = subprocess.run(command, cwd=folder, check=False, capture_output=True)
    return done.returncode, (done.stdout + done.stderr).decode()


def blocks(path):
    """The ink of each block of a binary PGM."""
    data = path.read_bytes()
    header = re.match(rb"P5\s+(?:#[^\n]*\n)?(\d+)\s+(\d+)\s+255\s", data)
    width, height = int(header[1]), int(header[2])
    rows = [data[header.end() + y * width:][:width] for y in range(height)]
    return [sum(255 * len(row[x:x + BLOCK]) - sum(row[x:x + BLOCK]) for row in rows[y:y + BLOCK])
            for y in range(0, height - BLOCK, BLOCK) for x in range(0, width - BLOCK, BLOCK)]


class Languages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.kept = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls.kept.name)
        done = subprocess.run([PROGRAM, cls.folder], check=True, capture_output=True, text=True)
        if "cannot be loaded" in done.stderr:
            raise unittest.SkipTest(done.stderr.splitlines()[1])

    @classmethod
    def tearDownClass(cls):
        cls.kept.cleanup()

    def test_readers_say_nothing(self):
        code, _ = told("qpdf", "--check", "languages.pdf", folder=self.folder)
        self.assertEqual(code, 0)
        ghostscript = ("gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=nullpage")
        for command in (("mutool", "draw", "-q", "-o", "out.png", "languages.pdf"),
                        ("pdftoppm", "-r", "20", "languages.pdf", "out"),
                        (*ghostscript, "languages.pdf"), (*ghostscript, "languages.ps")):
            code, said = told(*command, folder=self.folder)
            self.assertEqual((code, said.replace("warning: ICC support is not available\n", "")), (0, ""),
                             command)

    def test_the_text_is_found_as_it_was_written(self):
        _, text = told("pdftotext", "languages.pdf", "-", folder=self.folder)
        # Marks of direction are poppler's own.
        found = re.sub(r"\s+", "", "".join(c for c in text if unicodedata.category(c) != "Cf"))
        expected = sentences()
        self.assertEqual(len(expected), 21)
        for name, sentence in expected.items():
            if name in ("Hebrew", "Arabic"):
                sentence = sentence.rstrip(".")  # poppler takes signs at the end for those of the page's direction
            self.assertIn(re.sub(r"\s+", "", sentence), found, name)

    def test_glyphs_are_embedded_and_only_those_that_are_shown(self):
        _, fonts = told("pdffonts", "languages.pdf", folder=self.folder)
        embedded = [line for line in fonts.splitlines() if re.match(r"[A-Z]{6}\+\S+ .* yes yes yes ", line)]
        self.assertGreaterEqual(len(embedded), 13, fonts)
        # The Chinese face alone is one of a file of 19 MB.
        self.assertLess((self.folder / "languages.pdf").stat().st_size, 100_000)

    def test_pages_look_alike(self):
        gray = ("gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=pgmraw", "-dTextAlphaBits=4", f"-r{DPI}")
        commands = {"poppler": ("pdftoppm", "-gray", "-singlefile", "-r", str(DPI), "languages.pdf", "poppler"),
                    "mupdf": ("mutool", "draw", "-q", "-c", "gray", "-r", str(DPI), "-o", "mupdf.pgm",
                              "languages.pdf"),
                    "ghostscript": (*gray, "-sOutputFile=ghostscript.pgm", "languages.pdf"),
                    "postscript": (*gray, "-sOutputFile=postscript.pgm", "languages.ps")}
        pages = {}
        for name, command in commands.items():
            told(*command, folder=self.folder)
            pages[name] = blocks(self.folder / f"{name}.pgm")
        ink = sum(pages["poppler"])
        for name, page in pages.items():
            self.assertEqual(len(page), len(pages["poppler"]), name)
            apart = sum(abs(a - b) for a, b in zip(page, pages["poppler"]))
            self.assertLess(apart, ink / 4, name)  # a line that lacks its glyphs, or has others, is more


if __name__ == "__main__":
    unittest.main()
