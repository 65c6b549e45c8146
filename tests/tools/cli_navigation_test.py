#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What leads a reader through a document of the command-line host: bookmarks, links to titles, the
table of contents, the cover, headers and footers.

    cli_navigation_test.py VELLUMARK_EXECUTABLE

Needs pdftotext, pdfinfo (poppler-utils), qpdf and Ghostscript.
"""
import json
import re
import unittest

from command_line import HostTest


class Navigation(HostTest):
    def objects(self):
        return json.loads(self.reader("qpdf", "--json=2", "out.pdf"))["qpdf"][1]

    @staticmethod
    def text_of(string):
        """A string of a document; qpdf writes it as u:text, or b:hexadecimal if it is not ASCII."""
        return bytes.fromhex(string[2:]).decode() if string[:2] == "b:" else string.removeprefix("u:")

    def outline(self):
        """Depth, title and page of each bookmark."""
        found = []

        def add(entries, depth):
            for entry in entries:
                found.append((depth, entry["title"], entry["destpageposfrom1"]))
                add(entry["kids"], depth + 1)

        add(json.loads(self.reader("qpdf", "--json=1", "out.pdf"))["outlines"], 1)
        return found

    def places(self):
        """Page and height of each named place, and the links to them in the order of the pages."""
        objects = self.objects()
        pages = json.loads(self.reader("qpdf", "--json=1", "out.pdf"))["pages"]
        page_of = {page["object"]: number for number, page in enumerate(pages, 1)}
        root = objects["obj:" + objects["trailer"]["value"]["/Root"]]["value"]
        names = root.get("/Names", {}).get("/Dests", {}).get("/Names", [])
        places = {self.text_of(names[i]): (page_of[names[i + 1][0]], names[i + 1][3]) for i in range(0, len(names), 2)}
        links = []
        for page in pages:
            for note in objects["obj:" + page["object"]]["value"].get("/Annots", []):
                value = objects["obj:" + note]["value"] if isinstance(note, str) else note
                target = value.get("/Dest") or value.get("/A", {}).get("/D") or value["/A"]["/URI"]
                links.append(self.text_of(target))
        return places, links

    def pages(self):
        return self.reader("pdftotext", "-layout", "out.pdf", "-").decode().split("\f")[:-1]

    def test_titles_are_bookmarks_whatever_levels_they_jump_over(self):
        self.typeset("### A (x\\\\)\n\n# B *i*\n\n#### C\n\n###### D\n\n## `E`\n\n##\n\n# Über 日 <b>F</b>\n\n> ## G\n")
        self.assertEqual([entry[:2] for entry in self.outline()],
                         [(1, "A (x\\)"), (1, "B i"), (2, "C"), (3, "D"), (2, "E"), (1, "Über 日 F"), (2, "G")])
        self.assertEqual(self.reader("qpdf", "--check", "out.pdf").count(b"WARNING"), 0)

    def test_links_lead_to_titles(self):
        text = "[a](#%C3%BCber-uns) [b](#Twice-1) [c](#id) [d](#) [e](#name \"t\")\n\n|[f](#twice)|\n|-|\n"
        for title in ("Über uns!", "Twice", "Twice", "<i id=twice></i>x"):
            text += "word\n\n" * 60 + "# " + title + "\n\n"
        self.assertEqual(self.typeset(text + "y\n" * 60 + "\n<p id='id'></p>\n\nz\n\n<a name=name></a>\n"),
                         "vellumark: 2 HTML tags were left out, and the text inside was kept; first: <i> at "
                         "line 491, column 3\n")
        places, links = self.places()
        self.assertEqual(links, ["über-uns", "twice-1", "id", "/1", "name", "twice"])
        self.assertEqual(sorted(places), sorted(links))
        marks = {title: page for _, title, page in self.outline()}
        self.assertEqual(places["über-uns"][0], marks["Über uns!"])
        self.assertEqual(places["twice-1"][0], marks["Twice"])
        self.assertEqual(places["/1"], (1, 842 - 64))
        self.assertLess(places["twice"][0], places["twice-1"][0])
        self.assertIn("z", self.pages()[places["id"][0] - 1])

    def test_a_link_to_nowhere_is_text_and_told(self):
        said = self.typeset("# T\n\n[a](#t) [b](#none) [![c](http://d/e)](#no)\n")
        self.assertEqual(said, "vellumark: 1 remote picture is represented by a link\n"
                               "vellumark: 2 links lead to a title that the text does not have; first: #none at "
                               "line 3, column 10\n")
        self.assertEqual(self.places()[1], ["t", "http://d/e"])
        self.assertEqual(self.typeset("[b](#none)\n", "--classic"), "")

    def test_several_inputs_lead_to_each_other(self):
        self.put("one.md", "# Same\n\n[a](#same) [b](./two.md#same) [c](two.md) [d](two.md#none) [e](three.md)")
        self.put("two.md", "intro\n\n## Same\n\n[f](#same) [g](one.md#same)\n\n# Other")
        done = self.run_tool("one.md", "two.md", "-o", "out.pdf")
        self.assertEqual((done.returncode, done.stderr.decode().count("\n")), (0, 1))
        self.assertIn("two.md#none at line 3, column 44 of one.md", done.stderr.decode())
        places, links = self.places()
        self.assertEqual(links, ["same", "2/same", "/2", "three.md", "2/same", "same"])
        self.assertEqual((places["same"][0], places["/2"][0], places["2/same"][0]), (1, 2, 2))
        self.assertGreater(places["/2"][1], places["2/same"][1])
        self.assertEqual(self.outline(), [(1, "Same", 1), (1, "Same", 2), (1, "Other", 2)])

    def chapters(self, count):
        return "".join(f"# Chapter {i}\n\n" + f"text\n\n" * (i % 50) + f"## Part {i} " + "long " * (i % 40) +
                       "\n\n#### Deep\n\n##### Deeper\n\n" for i in range(count))

    def test_the_page_numbers_of_the_contents_are_true(self):
        self.assertEqual(self.typeset(self.chapters(150), "--toc"), "")
        pages = self.pages()
        contents = [number for number, page in enumerate(pages) if " . . ." in page]
        self.assertEqual(contents, list(range(len(contents))))
        self.assertGreater(len(contents), 8)
        told = dict(re.findall(r"^ *(Chapter \d+)[ .]+ (\d+)$", "\n".join(pages), re.M))
        self.assertEqual(len(told), 150)
        marks = {title: page for _, title, page in self.outline()}
        for title, page in told.items():
            self.assertEqual(int(page), marks[title])
            self.assertRegex(pages[int(page) - 1], rf"(?m)^ *{title}$")
        self.assertNotIn("Deeper . .", "".join(pages))
        self.assertEqual([page.split()[-1] for page in pages], [str(i + 1) for i in range(len(pages))])
        places, links = self.places()
        self.assertEqual(places[links[0]][0], int(told["Chapter 0"]))

    def test_contents_in_postscript_are_those_of_pdf(self):
        self.put("in.md", self.chapters(20))
        drawn = []
        for name in ("out.pdf", "out.ps"):
            self.assertEqual(self.run_tool("in.md", "--toc", "--cover", "--date", "d", "-o", name).returncode, 0)
            text = self.reader("gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=txtwrite", "-sOutputFile=-", name)
            drawn.append(re.findall(rb"Chapter[ .]+\d+[ .]+(\d+)", text))
        self.assertEqual(len(drawn[0]), 20)
        self.assertEqual(drawn[0], drawn[1])

    def test_a_cover_has_title_author_and_date_and_no_heads(self):
        self.put("in.md", "# The *Title*\n\ntext")
        for options, date in (((), "May 4, 2026"), (("--date", "Spring"), "Spring"), (("--date", ""), None)):
            done = self.run_tool("in.md", "-o", "out.pdf", "--cover", "--author", "An Author", "--header",
                                 "Head", *options, environment={"SOURCE_DATE_EPOCH": "1777852800"})
            self.assertEqual((done.returncode, done.stderr), (0, b""))
            cover, text = self.pages()
            lines = [line.strip() for line in cover.splitlines() if line.strip()]
            self.assertEqual(lines, [line for line in ("The Title", "An Author", date) if line])
            self.assertEqual(text.split(), ["Head", "The", "Title", "text", "2"])
        self.assertIn("--title", self.refused("-", "-o", "other.pdf", "--cover", stdin=b"x"))
        self.assertIn("--cover", self.refused("in.md", "-o", "other.pdf", "--date", "x"))

    def test_headers_and_footers_count_pages(self):
        self.put("in.txt", "\f".join("abc"))
        for name in ("out.pdf", "out.ps"):
            self.run_tool("in.txt", "-o", name, "--header", "{{page} «{page}»", "--footer", "{page} of {pages}")
        pages = [re.sub(r"\s+", " ", page).strip() for page in self.pages()]
        self.assertEqual(pages, [f"{{page}} «{i}» {letter} {i} of 3" for i, letter in enumerate("abc", 1)])
        drawn = self.reader("gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=txtwrite", "-sOutputFile=-", "out.ps")
        self.assertEqual(re.findall(rb"\d of \d", drawn), [b"1 of 3", b"2 of 3", b"3 of 3"])
        self.run_tool("in.txt", "-o", "out.pdf", "--footer", "")
        self.assertEqual("".join(self.pages()).split(), ["a", "b", "c"])

    def test_heads_that_have_no_room_are_refused(self):
        self.put("in.md", "x")
        for options, reason in ((("--header", "x", "--margins", "19"), "top margin is 19 points"),
                                (("--footer", "wide " * 100), "points wide, and the margins leave 467"),
                                (("--footer", "wide " * 10000), "over 32767 points wide"),
                                (("--header", b"\xff"), "UTF-8")):
            self.assertIn(reason, self.refused("in.md", "-o", "out.pdf", *options))
        self.typeset("x", "--header", "x", "--margins", "20")
        self.assertEqual(self.text().split(), ["x", "x", "1"])

    def test_classic_documents_refuse_what_they_do_not_have(self):
        self.put("in.md", "# x")
        for options in (("--toc",), ("--cover",), ("--header", "x"), ("--footer", "")):
            self.assertIn(options[0] + ": a classic", self.refused("in.md", "-o", "out.pdf", "--classic", *options))
        self.typeset("# x", "--classic")
        self.assertEqual(self.outline(), [])

    def test_titles_without_letters_are_reached_from_the_contents(self):
        self.typeset("# ?\n\n# !\n\n[a](#-1) [b](#-2)\n\n# ##\n", "--toc")
        self.assertEqual([entry[1] for entry in self.outline()], ["?", "!"])
        places, links = self.places()
        self.assertEqual((links, sorted(places)), (["/1/", "/1/", "-1", "-1", "-1", "-2"], ["-1", "-2", "/1/"]))

    def test_a_text_without_titles_has_no_contents(self):
        self.assertIn("no titles", self.typeset("text", "--toc"))
        self.assertEqual(self.info("Pages"), "1")


if __name__ == "__main__":
    unittest.main()
