#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Renders pictures with three readers and compares their pixels with those of the source files.

usage: pictures_test.py READER_PICTURES_PROGRAM PICTURES_FOLDER

Pages come in the order that tests/readers/reader_pictures.cpp tells.
"""
import pathlib
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib

PROGRAM = sys.argv[1]
PICTURES = pathlib.Path(sys.argv[2])
DEPTHS = (1, 4, 8, 24)
ENCODINGS = ("ASCII85", "ASCIIHex", "Flate")
SCALE = 4               # rendered pixels to a pixel of the picture, so that none is mixed
MARGIN = 20
PAGE_COLOR = (60, 220, 120)
ROUNDING = 3            # a reader's own color arithmetic


def source_pixels(bits):
    """Rows of (red, green, blue) from the top, of an uncompressed BMP file with rows upwards."""
    file = (PICTURES / f"landscape_{bits}.bmp").read_bytes()
    start, = struct.unpack_from("<I", file, 10)
    width, height = struct.unpack_from("<ii", file, 18)
    stored = (width * bits + 31) // 32 * 4

    def pixel(x, y):
        row = start + (height - 1 - y) * stored
        if bits == 24:
            return tuple(file[row + 3 * x:row + 3 * x + 3][::-1])
        byte = file[row + x * bits // 8]
        index = byte >> (8 - bits - x * bits % 8) & (1 << bits) - 1
        return tuple(file[54 + 4 * index:54 + 4 * index + 3][::-1])

    return [[pixel(x, y) for x in range(width)] for y in range(height)]


def alpha_on_page():
    """The PNG file with transparency, whose rows have no filter, as it looks on the page."""
    file = (PICTURES / "landscape_alpha.png").read_bytes()
    width, height = struct.unpack_from(">II", file, 16)
    size, = struct.unpack_from(">I", file, 33)
    data = zlib.decompress(file[41:41 + size])

    def pixel(x, y):
        *color, alpha = data[y * (4 * width + 1) + 1 + 4 * x:][:4]
        return tuple(round((part * alpha + below * (255 - alpha)) / 255)
                     for part, below in zip(color, PAGE_COLOR))

    return [[pixel(x, y) for x in range(width)] for y in range(height)]


def read_ppm(path):
    head, data = path.read_bytes().split(b"\n255\n", 1)
    return int(head.split()[-2]), data


def rendered(folder, name, command):
    """The pages that a reader makes of a document, as width and RGB bytes."""
    done = subprocess.run(command, cwd=folder, check=False, capture_output=True, text=True)
    assert done.returncode == 0, done.stderr
    return [read_ppm(path) for path in sorted(folder.glob(f"{name}-*.ppm"))]


def farthest(page, pixels):
    """The greatest difference of a color between the page and the source, at pixel centers."""
    width, data = page
    worst = 0
    for y, row in enumerate(pixels):
        for x, color in enumerate(row):
            right, down = ((MARGIN + place) * SCALE + SCALE // 2 for place in (x, y))
            at = 3 * (down * width + right)
            worst = max(worst, *(abs(data[at + i] - color[i]) for i in range(3)))
    return worst


class Pictures(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls.temporary.name)
        subprocess.run([PROGRAM, cls.folder], check=True, capture_output=True)
        cls.sources = {bits: source_pixels(bits) for bits in DEPTHS}

    @classmethod
    def tearDownClass(cls):
        cls.temporary.cleanup()

    def expect_sources(self, name, command):
        pages = rendered(self.folder, name, command)
        self.assertEqual(len(pages), len(DEPTHS) * len(ENCODINGS))
        for number, page in enumerate(pages):
            bits, encoding = DEPTHS[number // 3], ENCODINGS[number % 3]
            self.assertLessEqual(farthest(page, self.sources[bits]), ROUNDING,
                                 f"{name}: {bits} bits, {encoding}")

    def test_poppler_shows_the_pdf(self):
        self.expect_sources("poppler", ["pdftoppm", "-r", str(72 * SCALE), "pictures.pdf",
                                        "poppler"])

    def test_mupdf_shows_the_pdf(self):
        self.expect_sources("mupdf", ["mutool", "draw", "-q", "-A", "0", "-r", str(72 * SCALE),
                                      "-o", "mupdf-%02d.ppm", "pictures.pdf"])

    def test_ghostscript_shows_both(self):
        for kind in ("pdf", "ps"):
            self.expect_sources(f"gs_{kind}", [
                "gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=ppmraw", f"-r{72 * SCALE}",
                f"-sOutputFile=gs_{kind}-%02d.ppm", f"pictures.{kind}"])

    def test_transparency_shows_the_page_everywhere(self):
        expected = alpha_on_page()
        size = ["-r", str(72 * SCALE)]
        ghostscript = ["gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=ppmraw", f"-r{72 * SCALE}"]
        for output in ("alpha", "conforming_alpha"):
            pdf, ps = f"{output}_pdf.pdf", f"{output}_ps.ps"
            for name, command in (
                    (f"poppler_{output}", ["pdftoppm", *size, pdf]),
                    (f"mupdf_{output}", ["mutool", "draw", "-q", "-A", "0", *size, "-o",
                                         f"mupdf_{output}-%02d.ppm", pdf]),
                    (f"gs_pdf_{output}", [*ghostscript, "-o", f"gs_pdf_{output}-%02d.ppm", pdf]),
                    (f"gs_ps_{output}", [*ghostscript, "-o", f"gs_ps_{output}-%02d.ppm", ps])):
                if command[0] == "pdftoppm":
                    command = [*command, name]
                page, = rendered(self.folder, name, command)
                self.assertLessEqual(farthest(page, expected), ROUNDING, name)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
