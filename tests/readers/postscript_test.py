#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the gallery's PostScript through Ghostscript and compares its pages with the PDF's.

usage: postscript_test.py GALLERY_PROGRAM
"""
import pathlib
import subprocess
import sys
import tempfile
import unittest

GALLERY = sys.argv[1]
PAGES = 12

# Pages that look different in the two languages by design, and why.
DIFFERENT_BY_DESIGN = {
    1: "a solid line after a dashed one keeps the dash in PostScript, and line ends are closed",
    2: "unfilled shapes are white in PDF and open in PostScript; the ellipse bulges in PDF",
    12: "pictures of 16 and 32 bits, and under RunLength, are each language's own",
}
# Share of pixels whose gray may differ by more than a third: hairlines fall on other pixels.
TOLERANCE = 0.004


def render(folder, file):
    """Pages of a file in gray, as (width, height, bytes), and what Ghostscript complained about."""
    out = folder / (file.name + "-%d.pgm")
    done = subprocess.run(["gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=pgmraw", "-r72",
                           "-dTextAlphaBits=4", "-dGraphicsAlphaBits=4", f"-sOutputFile={out}",
                           file], check=False, capture_output=True, text=True)
    pages = []
    while (picture := folder / f"{file.name}-{len(pages) + 1}.pgm").exists():
        header, data = picture.read_bytes().split(b"255\n", 1)
        width, height = map(int, header.split()[-2:])
        pages.append((width, height, data))
    return pages, done.returncode, done.stdout + done.stderr


def difference(one, other):
    """Share of pixels that differ visibly, without the page's outline."""
    width, height, left = one
    assert (width, height) == other[:2]
    far = sum(abs(left[y * width + x] - other[2][y * width + x]) > 85
              for y in range(3, height - 3) for x in range(3, width - 3))
    return far / (width * height)


class PostScript(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls.temporary.name)
        subprocess.run([GALLERY, cls.folder], check=True, capture_output=True)
        cls.ps = render(cls.folder, cls.folder / "gallery.ps")
        cls.pdf = render(cls.folder, cls.folder / "gallery.pdf")

    @classmethod
    def tearDownClass(cls):
        cls.temporary.cleanup()

    def test_the_interpreter_has_nothing_to_complain_about(self):
        pages, code, complaints = self.ps
        self.assertEqual((len(pages), code, complaints), (PAGES, 0, ""))

    def test_every_page_shows_something(self):
        for page, (_, _, gray) in enumerate(self.ps[0], 1):
            self.assertGreater(sum(pixel < 128 for pixel in gray), 100, f"page {page}")

    def test_pages_look_like_the_pdf_except_where_they_should_not(self):
        for page, (ps, pdf) in enumerate(zip(self.ps[0], self.pdf[0]), 1):
            differs = difference(ps, pdf)
            if page in DIFFERENT_BY_DESIGN:
                self.assertGreater(differs, 0, DIFFERENT_BY_DESIGN[page])
            else:
                self.assertLess(differs, TOLERANCE, f"page {page}")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
