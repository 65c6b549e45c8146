#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs PostScript through Ghostscript: the gallery's pages are compared with the PDF's, and
conforming documents are attacked, cut, reordered and turned.

usage: postscript_test.py GALLERY_PROGRAM POSTSCRIPT_PAGES_PROGRAM
"""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

GALLERY, DOCUMENTS = sys.argv[1:3]
WIDTHS = pathlib.Path(__file__).resolve().parents[2] / "layout" / "glyphs"
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
    done = subprocess.run(["gs", "-q", "-dSAFER", "-dNOPAUSE", "-dBATCH", "-sDEVICE=pgmraw", "-r72",
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
        subprocess.run([GALLERY, "--classic", cls.folder], check=True, capture_output=True)
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


def split(file):
    """What stands before the first page, the pages, and the trailer."""
    parts = re.split(rb"^(?=%%Page: |%%Trailer$)", file.read_bytes(), flags=re.MULTILINE)
    return parts[0], parts[1:-1], parts[-1]


def turned(page, degrees):
    """A page in gray, turned counter-clockwise."""
    width, height, gray = page
    for _ in range(degrees // 90):
        gray = b"".join(gray[x::width] for x in range(width - 1, -1, -1))
        width, height = height, width
    return width, height, gray


# Every line of a conforming file that begins with "%".
COMMENTS = re.compile(rb"""%!PS-Adobe-3\.0|%%(BoundingBox:|CreationDate:|Creator:|DocumentData:
    |DocumentMedia:|For:|LanguageLevel:|Orientation:|PageOrder:|Pages:|Title:
    |DocumentNeededResources:|\+|BeginFeature:|BeginNonPPDFeature:|IncludeResource:
    |Page:\ \d+\ \d+$|(EndComments|BeginProlog|EndProlog|BeginSetup|EndFeature|EndNonPPDFeature
    |EndSetup|BeginPageSetup|EndPageSetup|PageTrailer|Trailer|EOF)$)""", re.VERBOSE)

# Prints, for each font of the setup, the code, the glyph's name, the width in 1/1000 em, and
# whether the font has the glyph.
PROBE = """Vellumark begin
0 1 27 { /r exch def r 10 string cvs (F) exch concatstrings cvn dup Vellumark exch known {
  load /font exch def font 1000 scalefont setfont
  0 1 255 { /code exch def font /Encoding get code get dup /.notdef ne {
    r =only ( ) print code =only ( ) print dup =only ( ) print
    ( ) dup 0 code put stringwidth pop round cvi =only ( ) print
    font /CharStrings get exch known =
  } { pop } ifelse } for
} { pop } ifelse } for
"""


def published_widths():
    """Widths by family (as glyphs.ps orders faces) and glyph name."""
    rows = [line.split() for line in (WIDTHS / "latin.txt").read_text().splitlines()
            if line and not line.startswith("#")]
    latin = [{row[1]: int(row[4 + column]) for row in rows} for column in range(6)]
    courier = dict.fromkeys(latin[0], 600)
    faces = [courier] * 4 + [latin[0], latin[1], latin[0], latin[1]] + latin[2:]
    return faces


class Conforming(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls.temporary.name)
        subprocess.run([DOCUMENTS, cls.folder], check=True, capture_output=True)

    @classmethod
    def tearDownClass(cls):
        cls.temporary.cleanup()

    def pages(self, name):
        pages, code, complaints = render(self.folder, self.folder / name)
        self.assertEqual((code, complaints), (0, ""), name)
        return pages

    def test_hostile_texts_stay_texts(self):
        files = sorted(self.folder.glob("hostile_*.ps"))
        self.assertGreater(len(files), 90)
        done = subprocess.run(["gs", "-q", "-dSAFER", "-dNOPAUSE", "-dBATCH", "-sDEVICE=pgmraw", "-r9",
                               f"-sOutputFile={self.folder}/hostile-%d.pgm", *files],
                              check=False, capture_output=True, text=True)
        self.assertEqual((done.returncode, done.stdout + done.stderr), (0, ""))
        expected = 0
        for file in files:
            content = file.read_bytes()
            expected += len(split(file)[1])
            for line in content.split(b"\n"):
                self.assertLessEqual(len(line), 255, file)
                if line.startswith(b"%"):
                    self.assertRegex(line, COMMENTS, file)
            self.assertRegex(content, rb"\A[\n -~]*\Z", "is clean 7-bit text")
        self.assertEqual(len(list(self.folder.glob("hostile-*.pgm"))), expected)

    def test_pages_can_be_cut_out_and_reordered(self):
        whole = self.pages("pages.ps")
        self.assertEqual(len(whole), 5)
        head, pages, trailer = split(self.folder / "pages.ps")
        (self.folder / "reversed.ps").write_bytes(head + b"".join(pages[::-1]) + trailer)
        self.assertEqual(self.pages("reversed.ps"), whole[::-1])
        for number, page in enumerate(pages):
            (self.folder / f"cut_{number}.ps").write_bytes(head + page + trailer)
            self.assertEqual(self.pages(f"cut_{number}.ps"), [whole[number]])

    def test_every_page_is_turned(self):
        for name, degrees in (("00", 0), ("01", 90), ("10", 90), ("11", 180)):
            upright = self.pages(f"turned_{name}.pdf")
            lying = self.pages(f"turned_{name}.ps")
            self.assertEqual(len(lying), 2)
            for one, other in zip(lying, upright):
                self.assertLess(difference(one, turned(other, degrees)), TOLERANCE, name)

    def test_every_glyph_is_there_and_as_wide_as_published(self):
        self.assertEqual(len(self.pages("glyphs.ps")), 20)
        head, _, _ = split(self.folder / "glyphs.ps")
        (self.folder / "probe.ps").write_bytes(head + PROBE.encode())
        done = subprocess.run(["gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=nullpage",
                               self.folder / "probe.ps"], check=True, capture_output=True, text=True)
        faces = published_widths()
        seen = 0
        for line in done.stdout.splitlines():
            resource, code, name, width, known = line.split()
            if int(resource) % 14 >= 12:
                continue
            expected = faces[int(resource) % 14].get(name)
            reached = int(code) >= 32 and int(code) < 127 or int(resource) >= 14 or int(code) > 127
            if reached and expected is not None:
                self.assertEqual((int(width), known), (expected, "true"), line)
                seen += 1
        self.assertGreater(seen, 12 * 315)

    def test_what_is_no_oddity_looks_the_same_in_both_outputs(self):
        self.assertEqual(self.pages("conforming.ps"), self.pages("classic.ps"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
