#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Each page of the gallery looks the same in poppler, mupdf, Ghostscript and Chromium.

usage: gallery_test.py PROGRAM [--chromium]        PROGRAM is gallery, or languages with its one page

Pages are compared in cells of 10 points, so that another reader's edges and letter shapes do not
count and a shape at another place, of another size or color does. PostScript is compared with the
PDF, by Ghostscript. Chromium is asked only with --chromium (`./dev readers`): all pages stand
in frames of one window, of which a picture is taken.
"""
import math
import os
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest

from PIL import Image, ImageChops, ImageGrab, ImageStat

PROGRAM = sys.argv[1]
NAME = pathlib.Path(PROGRAM).name  # of the files that it writes
CHROMIUM = "--chromium" in sys.argv
DPI = 72
CELL = 10               # points, and pixels
# The greatest mean difference of a page, and of a cell, of 255. The fonts that Chromium takes for
# the standard ones have other shapes and lack some characters, and its four inks are paler.
LIMITS = {"mupdf": (1.5, 50), "ghostscript": (1.5, 50), "postscript": (1.5, 50), "chromium": (4.5, 85)}


def cells(picture):
    width, height = picture.size
    return picture.convert("RGB").resize((math.ceil(width / CELL), math.ceil(height / CELL)), Image.BOX)


def rendered(folder, name, command):
    subprocess.run(command, cwd=folder, check=True, capture_output=True)
    return [cells(Image.open(path)) for path in sorted(folder.glob(f"{name}-*.ppm"))]


def chromium_pages(folder, count, size):
    """Pictures of the pages in Chromium's own viewer, in frames a little larger than a page."""
    across, (width, height) = 5, (size[0] + 60, size[1] + 60)
    down = math.ceil(count / across)
    frames = "".join(
        f'<iframe style="border:0;position:absolute;left:{i % across * width}px;'
        f'top:{i // across * height}px;width:{width}px;height:{height}px" '
        f'src="{NAME}.pdf#page={i + 1}&toolbar=0&navpanes=0&view=Fit"></iframe>' for i in range(count))
    (folder / "frames.html").write_text(f'<body style="margin:0;overflow:hidden;background:#777">{frames}')
    number = os.getpid()
    screen = subprocess.Popen(["Xvfb", f":{number}", "-screen", "0", f"{across * width}x{down * height}x24"],
                              stderr=subprocess.DEVNULL)
    try:
        time.sleep(2)
        browser = subprocess.Popen(
            ["chromium", "--no-sandbox", "--disable-gpu", "--no-first-run", "--kiosk",
             f"--user-data-dir={folder / 'profile'}", "--force-device-scale-factor=1", "--window-position=0,0",
             f"--window-size={across * width},{down * height}", (folder / "frames.html").as_uri()],
            env={**os.environ, "DISPLAY": f":{number}"}, stderr=subprocess.DEVNULL)
        try:
            taken = None
            for _ in range(20):         # until two pictures are the same and not empty
                time.sleep(3)
                last, taken = taken, ImageGrab.grab(xdisplay=f":{number}")
                if last and last.tobytes() == taken.tobytes() and len(taken.getcolors(1 << 24)) > 100:
                    break
        finally:
            browser.terminate()
            browser.wait()
    finally:
        screen.terminate()
        screen.wait()
    boxes = [(i % across * width, i // across * height) for i in range(count)]
    return [cells(page_in(taken.crop((x, y, x + width, y + height))).resize(size, Image.BOX))
            for x, y in boxes]


def page_in(frame):
    """The page: the longest stretch down, then across, that is not the viewer's dark ground."""
    def longest(lit):
        best, start = (0, 0), 0
        for place, on in enumerate([*lit, False]):
            if not on:
                best = max(best, (place - start, start))
                start = place + 1
        return best[1], best[1] + best[0]

    gray = frame.convert("L")
    width, height = gray.size
    top, bottom = longest([gray.getpixel((width // 20, y)) > 100 for y in range(height)])
    left, right = longest([gray.getpixel((x, top + 5)) > 100 for x in range(width)])
    return frame.crop((left, top, right, bottom))


class Gallery(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.folder = folder = pathlib.Path(cls.temporary.name)
        subprocess.run([PROGRAM, folder], check=True, capture_output=True)
        ghostscript = ["gs", "-q", "-dNOPAUSE", "-dBATCH", "-dSAFER", "-sDEVICE=ppmraw", f"-r{DPI}",
                       "-dTextAlphaBits=4", "-dGraphicsAlphaBits=4"]
        cls.poppler = rendered(folder, "poppler", ["pdftoppm", "-r", str(DPI), f"{NAME}.pdf", "poppler"])
        cls.others = {
            "mupdf": rendered(folder, "mupdf", ["mutool", "draw", "-q", "-r", str(DPI), "-o",
                                                "mupdf-%02d.ppm", f"{NAME}.pdf"]),
            "ghostscript": rendered(folder, "gs", [*ghostscript, "-o", "gs-%02d.ppm", f"{NAME}.pdf"]),
            "postscript": rendered(folder, "ps", [*ghostscript, "-o", "ps-%02d.ppm", f"{NAME}.ps"])}
        if CHROMIUM:
            with Image.open(next(folder.glob("poppler-*.ppm"))) as page:
                cls.others["chromium"] = chromium_pages(folder, len(cls.poppler), page.size)

    @classmethod
    def tearDownClass(cls):
        cls.temporary.cleanup()

    def test_readers_show_the_same(self):
        self.assertGreater(len(self.poppler), 10 if NAME == "gallery" else 0)
        for reader, pages in self.others.items():
            self.assertEqual(len(pages), len(self.poppler), reader)
            for number, (one, other) in enumerate(zip(self.poppler, pages), 1):
                difference = ImageChops.difference(one, other.resize(one.size, Image.BOX))
                mean = max(ImageStat.Stat(difference).mean)
                cell = max(high for _, high in difference.getextrema())
                if os.environ.get("SHOW"):
                    print(f"{reader} {number}: {mean:.2f} {cell}")
                with self.subTest(reader=reader, page=number):
                    self.assertLessEqual(mean, LIMITS[reader][0], "mean of the page")
                    self.assertLessEqual(cell, LIMITS[reader][1], "farthest cell")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
