#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fonts of the command-line host, with those of tests/fonts. Needs pdffonts too."""
import pathlib
import unittest

from command_line import HostTest

FONTS = pathlib.Path(__file__).resolve().parent.parent / "fonts"
TTF, OTF = FONTS / "boxes.ttf", FONTS / "boxes.otf"


class Fonts(HostTest):
    def fonts(self):
        return [line.split()[0].split(b"+")[-1] for line in self.reader("pdffonts", "out.pdf").splitlines()[2:]]

    def test_text_is_set_in_the_files_and_code_in_courier(self):
        said = self.typeset("# TITLE\n\nA **bold** text with `code` AND 漢字\n", "--font-file", str(TTF),
                            "--font-file", f"bold={OTF}#0")
        self.assertEqual(said, "")
        self.assertEqual(sorted(self.fonts()), [b"Boxes-Regular", b"Boxes-Regular", b"Courier", b"Times-Roman"])
        self.assertEqual(self.text().split()[:9],
                         ["TITLE", "A", "bold", "text", "with", "code", "AND", "漢字", "1"])

    def test_a_fallback_shows_what_the_fonts_lack(self):
        said = self.typeset("Times and 漢字 and 万\n", "--fallback-font", str(OTF))
        self.assertIn("1 character that the fonts lack: U+4E07", said)
        self.assertIn("Times and 漢字 and ?", self.text())

    def test_a_fallback_of_the_system_is_named(self):
        self.put("fonts.conf", f"<fontconfig><dir>{FONTS}</dir><cachedir>{self.path('cache')}</cachedir></fontconfig>")
        done = self.run_tool(self.put("in.md", "漢字 \u05d0\n"), "-o", "out.pdf", "--toc",
                             environment={"FONTCONFIG_FILE": self.path("fonts.conf")})
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertRegex(done.stderr.decode(),
                         r"\Avellumark: \S*/boxes.[ot]tf#0 shows characters that the fonts lack\n")
        self.assertIn("漢字", self.text())

    def test_what_is_wrong_with_a_font_is_told(self):
        text = self.put("in.md", "text")
        for arguments, sentence in ((("--font-file", "none.ttf"), "none.ttf: No such file"),
                                    (("--font-file", text), "it is not a TrueType or OpenType font"),
                                    (("--font-file", f"{TTF}#1"), "it has 1 face, so the index must be 0"),
                                    (("--font-file", f"bold={TTF}"), "no file for regular"),
                                    (("--font-file", str(TTF), "--font-file", str(TTF)), "regular has two files"),
                                    (("--classic", "--fallback-font", str(TTF)), "leave --classic out")):
            self.assertIn(sentence, self.refused(text, "-o", "out.pdf", *arguments))

    def test_postscript_has_them_too(self):
        done = self.run_tool(self.put("in.md", "漢字"), "-o", "out.ps", "--font-file", str(OTF))
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        self.assertEqual(self.reader("gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=nullpage", "out.ps"), b"")


if __name__ == "__main__":
    unittest.main()
