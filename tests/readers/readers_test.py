#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Opens generated documents with other people's readers.

usage: readers_test.py GALLERY_PROGRAM READER_PAGES_PROGRAM

The gallery's pages and a document of known text go through qpdf, mutool, pdftotext and Ghostscript.
"""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

GALLERY, PAGES = sys.argv[1:3]
SHOWN = 12      # pages of the gallery


def run(*command):
    """Standard output of a reader; its complaints about the short offsets are expected."""
    return subprocess.run(command, check=False, capture_output=True, text=True,
                          encoding="latin-1").stdout


class Readers(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        folder = pathlib.Path(cls.folder.name)
        subprocess.run([GALLERY, "--classic", folder], check=True, capture_output=True)
        subprocess.run([PAGES, folder], check=True, capture_output=True)
        cls.gallery = str(folder / "gallery.pdf")
        cls.pages = str(folder / "pages.pdf")
        cls.landscape = str(folder / "landscape.pdf")
        cls.fixed = str(folder / "fixed.pdf")
        subprocess.run(["qpdf", cls.pages, cls.fixed], check=False, capture_output=True)

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def test_qpdf_rebuilds_the_table_and_finds_nothing_else_wrong(self):
        for file in (self.gallery, self.pages, self.landscape):
            done = subprocess.run(["qpdf", "--check", file], check=False, capture_output=True,
                                  text=True)
            self.assertIn(done.returncode, (0, 3), done.stderr)  # 3: warnings only
            expected = ("file is damaged", "xref not found", "can't find startxref",
                        "Attempting to reconstruct", "expected n n obj", "xref entry",
                        "attempting to recover stream length", "recovered stream length",
                        "expected endstream", "operation succeeded with warnings",
                        "stream keyword", "loop detected")
            for line in (done.stdout + done.stderr).splitlines():
                if line.startswith("WARNING"):
                    self.assertTrue(any(word in line for word in expected), line)

    def test_page_counts_and_sizes_are_right(self):
        for file, pages, size in ((self.gallery, SHOWN, "595 x 842"),
                                  (self.pages, 3, "612 x 792"), (self.landscape, 1, "842 x 595")):
            info = run("pdfinfo", file)
            self.assertRegex(info, rf"Pages: +{pages}\n")
            self.assertRegex(info, rf"Page size: +{size} pts")
            self.assertIn(f"Pages: {pages}", run("mutool", "info", file))

    def test_properties_reach_the_reader(self):
        info = run("pdfinfo", self.pages)
        self.assertRegex(info, r"Title: +Reader pages")
        self.assertRegex(info, r"Author: +A. Author")
        self.assertRegex(info, r"CreationDate: +Sun Nov 15 16:05:09 2026")

    def test_text_comes_out_in_reading_order(self):
        text = run("pdftotext", "-raw", self.pages, "-")
        words = re.findall(r"w\d+", text)
        self.assertEqual(words, [f"w{i}" for i in range(900)])
        self.assertEqual(text.count("Copyright (c) 2026 Vellumark"), 3)

    def test_justified_lines_end_at_the_right_edge(self):
        boxes = run("pdftotext", "-bbox", self.pages, "-")
        lines = {}
        for page, body in enumerate(boxes.split("<page ")[1:]):
            for x, y, word in re.findall(r'yMin="[\d.]+" xMax="([\d.]+)" yMax="([\d.]+)">(w\d+)<',
                                         body):
                lines.setdefault((page, y), []).append((float(x), word))
        edges = [max(line)[0] for line in lines.values()]
        self.assertGreater(len(edges), 60)
        off = [edge for edge in edges[:-1] if abs(edge - 562) > 1.0]
        self.assertEqual(off, [])

    def test_links_point_where_they_should(self):
        dump = run("qpdf", "--qdf", "--object-streams=disable", self.pages, "-")
        self.assertEqual(re.findall(r"/URI \((.*)\)", dump),
                         ["https://example.org/a", "https://example.org/b"])

    def test_every_page_renders_and_nothing_leaves_the_margin_box(self):
        subprocess.run(["pdftoppm", "-r", "36", "-gray", self.gallery, self.gallery], check=True,
                       capture_output=True)
        pictures = sorted(pathlib.Path(self.folder.name).glob("gallery.pdf-*.pgm"))
        self.assertEqual(len(pictures), SHOWN)
        for picture in pictures:
            data = picture.read_bytes()
            width, height = map(int, data.split(b"\n")[1].split())
            rows = data[-width * height:]
            paper = rows[5 * width + 5]
            margin = 24  # 50 points are 25 pixels
            outside = [rows[y * width + x] for y in range(3, height - 3) for x in range(3, width - 3)
                       if x < margin or y < margin or x >= width - margin or y >= height - margin]
            self.assertTrue(all(abs(pixel - paper) < 12 for pixel in outside), picture.name)
            self.assertLess(min(rows), 100, "something is drawn")

    def test_other_readers_render_it_too(self):
        out = f"{self.folder.name}/mutool-%d.pgm"
        subprocess.run(["mutool", "draw", "-q", "-r", "36", "-o", out, self.gallery], check=False,
                       capture_output=True)
        self.assertEqual(len(list(pathlib.Path(self.folder.name).glob("mutool-*.pgm"))), SHOWN)
        done = subprocess.run(["gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=bbox", self.gallery],
                              check=False, capture_output=True, text=True)
        self.assertEqual(done.stderr.count("%%HiResBoundingBox"), SHOWN)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
