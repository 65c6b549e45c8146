#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Typesets texts with pictures.

    cli_pictures_test.py VELLUMARK_EXECUTABLE

Needs pdftotext, pdfimages (poppler-utils), qpdf and Ghostscript.
"""
import os
import re
import shutil
import unittest

from command_line import HostTest

PICTURES = os.path.join(os.path.dirname(__file__), "..", "..", "examples", "pictures")


class Pictures(HostTest):
    def picture(self, sample, name):
        shutil.copy(os.path.join(PICTURES, sample), self.path(name))

    def placed(self):
        """Page, left, top (from the bottom of the page), width and height of every picture, in points."""
        found = []
        for line in self.reader("pdfimages", "-list", "out.pdf").decode().splitlines()[2:]:
            found.append(int(line.split()[0]))
        matrices = re.findall(rb"\n(\d+) 0 0 -?(\d+) (\d+) (\d+) cm\n", self.expanded())
        self.assertEqual(len(found), len(matrices))
        return [(page, *(int(matrix[i]) for i in (2, 3, 0, 1)))
                for page, matrix in zip(found, matrices)]

    def test_a_picture_of_its_own_is_drawn_centered_in_its_size(self):
        self.picture("landscape.jpg", "p.jpg")
        for encoding, shown in (("original", b"/DCTDecode"), ("ascii85", b"/ASCII85Decode"), ("hex", b"/ASCIIHexDecode"),
                                ("runlength", b"/RunLengthDecode"), ("flate", b"/FlateDecode")):
            said = self.typeset("![alt](p.jpg)\n\ntext ![inner](none.jpg)\n", "--encoding", encoding)
            self.assertEqual(said, "")
            self.assertEqual(self.text().split()[:2], ["text", "inner"])
            # A JPG file is placed by its bottom left corner, other pictures by the top left one.
            y = 842 - 64 - 62 * (encoding == "original")
            self.assertEqual(self.placed(), [(1, (595 - 94) // 2, y, 94, 62)])
            with open(self.path("out.pdf"), "rb") as file:
                self.assertIn(shown, file.read())

    def test_a_large_picture_is_fitted_and_goes_to_the_next_page_with_its_title(self):
        self.big_picture("wide.bmp", 934, 400)
        self.big_picture("high.bmp", 300, 3000)
        self.typeset("x\n\n" * 25 + "# Title\n\n![](wide.bmp)\n\n![](high.bmp)\n\nend")
        wide, high = self.placed()
        self.assertEqual((wide[0], wide[1], wide[3:]), (2, 64, (467, 200)))
        height = 842 - 2 * 64 - 20
        self.assertEqual((high[0], high[2:]), (3, (842 - 64, round(height / 10), height)))
        pages = self.text().split("\f")
        self.assertIn("Title", pages[1])
        self.assertIn("end", pages[3])

    def test_a_link_lies_over_a_picture(self):
        self.picture("landscape.gif", "p.gif")
        self.typeset("[![alt](p.gif)](http://x.y/(z))\n")
        self.assertEqual(re.findall(rb"/URI \(([^\n]*)\)\n", self.expanded()),
                         [b"http://x.y/\\(z\\)"])
        rectangle = re.search(rb"/Rect \[\s*([^\]]*)\]", self.expanded()).group(1).split()
        left, bottom, right, top = map(float, rectangle)
        self.assertEqual((abs(right - left), abs(top - bottom)), (94, 62))

    def test_a_picture_that_cannot_be_loaded_leaves_its_text_and_status_1(self):
        self.put("p.png", b"\x89PNG\r\n\x1a\n")
        done = self.run_tool(self.put("in.md", "![first](p.png)\n\n![second](no\x1bne.jpg)\n\nend\n"),
                             "-o", "out.pdf")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr.decode(),
                         "vellumark: picture p.png at line 1, column 1: the PNG file's header is cut off\n"
                         "vellumark: picture no?ne.jpg at line 3, column 1: "
                         "No such file or directory\n")
        self.assertEqual(self.text().split()[:3], ["first", "second", "end"])
        self.assertIn(b"/Times-Italic", self.expanded())

    def test_pictures_are_looked_for_beside_the_input(self):
        os.mkdir(self.path("sub"))
        self.picture("landscape_8.bmp", "sub/document")
        self.put("sub/in.md", "![](document)")
        self.assertEqual(self.run_tool("sub/in.md", "-o", "out.pdf").returncode, 0)
        absolute = "![](" + self.path("sub/document") + ")"
        self.assertEqual(self.run_tool("-", "--markdown", "-o", "out.pdf", stdin=absolute.encode()).returncode, 0)
        self.assertEqual(
            self.run_tool("-", "--markdown", "-o", "out.pdf", stdin=b"![](document)").returncode, 1)

    def test_pictures_of_16_and_32_bits_are_seen(self):
        """Within five bits of the picture of 24 bits, in both formats."""
        def shown(sample, ending):
            self.picture(sample, "p.bmp")
            self.run_tool(self.put("in.md", "![](p.bmp)"), "-o", "out" + ending)
            self.reader("gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=ppmraw", "-r72",
                        "-sOutputFile=out.ppm", "out" + ending)
            with open(self.path("out.ppm"), "rb") as file:
                return file.read()
        for ending in (".pdf", ".ps"):
            wanted = shown("landscape_24.bmp", ending)
            self.assertGreater(len(set(wanted)), 50)
            for sample in ("landscape_16.bmp", "landscape_32.bmp"):
                found = shown(sample, ending)
                self.assertEqual(len(found), len(wanted))
                self.assertLessEqual(max(abs(a - b) for a, b in zip(found, wanted)), 8)


if __name__ == "__main__":
    unittest.main()
