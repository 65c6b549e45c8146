#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the command-line host as a user does, and reads its documents with other programs.

    cli_test.py VELLUMARK_EXECUTABLE

Needs pdftotext, pdfinfo (poppler-utils), mutool, qpdf and Ghostscript.
"""
import os
import re
import resource
import shutil
import signal
import stat
import subprocess
import unicodedata
import unittest

from command_line import HostTest, TOOL


class CommandLine(HostTest):
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
        for number, page in enumerate(self.pages(), 1):
            self.assertTrue(page.endswith(f"\n{number}\n"))

    def test_letters_come_out_as_themselves_in_every_reader(self):
        text = "Größe, Übermut, cafe\u0301, Łódź, őű — “so” it's `x` © 5 € ≤ 6\u00a0× ½ →"
        shown = unicodedata.normalize("NFKC", text.replace("½", "")).replace("→", "->").replace("`x`", "x")
        self.assertEqual(self.typeset("# " + text + "\n\n" + text), "")
        self.assertEqual(self.info("Title"), text.replace("`x`", "x"))
        for command in (("pdftotext", "out.pdf", "-"), ("mutool", "draw", "-q", "-F", "txt", "out.pdf")):
            drawn = self.reader(*command).decode().replace("½", "").replace("\n", " ")
            self.assertEqual(drawn.replace("\u00a0", " ").count(shown), 2, command)

    def test_text_is_literal_in_both_formats(self):
        text = "a) %b (( \\\\101 <<>> {x} /y `showpage` ~"
        for options in ((), ("--classic",)):
            self.assertEqual(self.typeset("# " + text + "\n\n" + text + "\n", *options), "")
            self.assertEqual(self.text().count("a) %b (( \\101 <<>> {x} /y showpage ~"), 2, options)
            self.assertEqual(self.run_tool("in.md", "-o", "out.ps", *options).returncode, 0)
            drawn = self.reader("gs", "-q", "-dNOPAUSE", "-dBATCH", "-dSAFER", "-sDEVICE=txtwrite",
                                "-sOutputFile=-", "out.ps").decode()
            self.assertIn("a) %b (( \\101 <<>> {x} /y showpage ~", drawn, options)

    def test_a_long_text_of_many_words_is_small(self):
        license = "/usr/share/common-licenses/GPL-3"
        if not os.path.exists(license):
            self.skipTest("no license to typeset")
        self.assertEqual(self.run_tool(license, "-o", "out.pdf").returncode, 0)
        self.assertLess(os.path.getsize(self.path("out.pdf")), 40000)
        self.assertEqual(self.reader("qpdf", "--check", "out.pdf").count(b"WARNING"), 0)

    def test_poppler_joins_letters_and_accents_of_a_classic_document(self):
        self.typeset("Größe, Übermut, café, Łódź — “so” it's", "--classic")
        self.assertIn("Größe, Übermut, café, Łódź — “so” it's",
                      unicodedata.normalize("NFC", self.text()))

    def test_links_point_where_they_should(self):
        self.typeset("[a](http://x.y/p\\q \"t\") and [b](http://x.y/a(b)) http://z.w/ü.")
        found = re.findall(rb"/URI \(([^\n]*)\)\n", self.expanded())
        self.assertEqual(found, [b"http://x.y/p%5Cq", b"http://x.y/a\\(b\\)", b"http://z.w/%C3%BC"])

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
        self.typeset("# " + "title " * 300 + "\n\n" + "x" * 5000 + "\n\n`" + "\\" * 700 + "`\n",
                     "--size", "30", "--margins", "0")
        text = self.text()
        self.assertEqual((text.count("title"), text.count("x"), text.count("\\")),
                         (300, 5000, 700))

    def test_a_title_does_not_stand_alone_at_the_bottom(self):
        for lines in range(40, 60):
            for below in ("below", "<!-- a -->\n\n# b\n\n<!-- c -->\n\nbelow",
                          "|a|b|\n|-|-|\n|below|" + "b<br>" * 9 + "|"):
                self.typeset("x\n\n" * lines + "# Title\n\n" + below, "--size", "8", "--paper", "a5")
                for page in self.text().split("\f"):
                    self.assertEqual("Title" in page, "below" in page)

    def pages(self):
        return self.reader("pdftotext", "-raw", "out.pdf", "-").decode().split("\f")[:-1]

    def boxes(self):
        """Word, left, top and right of every word on every page, from the top of the page."""
        page, found = -1, []
        for line in self.reader("pdftotext", "-bbox", "out.pdf", "-").decode().splitlines():
            page += "<page " in line
            word = re.search(r'xMin="(.*?)" yMin="(.*?)" xMax="(.*?)" .*>(.*)</word>', line)
            if word:
                found.append((word[4], page, float(word[1]), float(word[2]), float(word[3])))
        return found

    def test_a_table_repeats_its_header_and_loses_no_row(self):
        rows = "".join(f"|row{i}|text of row {i}|\n" for i in range(200))
        self.assertEqual(self.typeset("|Head|Other|\n|-|-|\n" + rows), "")
        pages = self.pages()
        self.assertGreater(len(pages), 4)
        for page in pages:
            self.assertTrue(page.startswith("Head Other\nrow"), page[:40])
        self.assertEqual(re.findall(r"^row(\d+)", "".join(pages), re.M), list(map(str, range(200))))

    def test_columns_are_aligned(self):
        self.typeset("|a|a|a|\n|:-|:-:|-:|\n|longword|longword|longword|\n")
        (_, _, left1, _, _), (_, _, left2, _, right2), (_, _, _, _, right3) = self.boxes()[:3]
        words = self.boxes()[3:6]
        self.assertAlmostEqual(left1, words[0][2], delta=1)
        self.assertAlmostEqual(left2 + right2, words[1][2] + words[1][4], delta=2)
        self.assertAlmostEqual(right3, words[2][4], delta=1)

    def test_a_wide_table_is_wrapped_then_smaller_then_broken(self):
        prose = "word " * 30
        columns = "|".join(["unbreakableword"] * 7)
        address = "https://example.org/" + "x" * 100
        for cells, smaller in ((f"a|{prose}|b", False), (columns, True), (f"{address}|{address}", True)):
            with self.subTest(cells=cells):
                rule = "|".join("-" * (cells.count("|") + 1))
                self.typeset(f"|{cells}|\n|{rule}|\n|{cells}|\n")
                boxes = self.boxes()
                boxes = [box for box in boxes if box[3] < 750]  # without the footer
                self.assertLessEqual(max(box[4] for box in boxes), 595 - 64 + 1)
                self.assertEqual(b" 11 Tf" not in self.expanded(), smaller)
                shown = "".join(sorted("".join(box[0] for box in boxes)))
                self.assertEqual(shown, "".join(sorted(2 * re.sub(r"[| ]", "", cells))))

    def test_lists_are_loose_or_tight_and_numbered(self):
        self.typeset("9. nine\n10. ten\n    - [x] done\n    - [ ] open\n\n        second\n\ntext\n")
        self.assertEqual(self.text().split()[:7], ["9.", "nine", "10.", "ten", "done", "open", "second"])
        y = {word: top for word, _, _, top, _ in self.boxes()}
        pitch = 14
        self.assertLess(y["ten"] - y["nine"], pitch + 3)
        self.assertGreater(y["open"] - y["done"], pitch + 4)
        self.assertGreater(y["second"] - y["open"], pitch + 4)

    def test_a_quote_has_a_bar_on_every_page(self):
        self.typeset("> " + "word " * 900 + "\n>\n> end\n\nout\n", "--paper", "a5")
        content = self.expanded().split(b"/Type /Page\n")
        self.assertGreaterEqual(len(content), 3)
        strokes = re.findall(rb"\n2 w[^w]*?\n(\d+) (\d+) m\n(\d+) (\d+) l", self.expanded())
        self.assertEqual(len(strokes), int(self.info("Pages")))
        for x1, y1, x2, y2 in strokes:
            self.assertEqual(x1, x2)
            self.assertGreater(abs(int(y1) - int(y2)), 20)

    def test_code_on_two_pages_has_two_lines_on_each(self):
        for before in range(40, 56):
            self.typeset("x\n\n" * before + "```\nc1\nc2\nc3\nc4\n```\n", "--paper", "a5", "--size", "8")
            counts = [len(re.findall(r"^c\d$", page, re.M)) for page in self.pages()]
            self.assertEqual(sum(counts), 4)
            self.assertNotIn(1, counts)

    def test_html_is_left_out_except_its_text_and_told_once(self):
        said = self.typeset("<!-- gone -->\n<div>\nin<br>block &amp; more</div>\n\na <kbd>b</kbd> c<!-- x -->\n")
        self.assertEqual(self.pages()[0].split(), ["in", "block", "&", "more", "a", "b", "c", "1"])
        self.assertEqual(said, "vellumark: 2 HTML tags were left out, and the text inside was kept; "
                               "first: <div> at line 2, column 1\n")

    def test_a_remote_picture_is_a_link(self):
        said = self.typeset("[![Build](https://a.b/c.svg)](https://d.e) ![](https://f.g/h.png)\n")
        self.assertEqual(said, "vellumark: 2 remote pictures are represented by a link\n")
        self.assertEqual(self.text().split()[:2], ["Build", "h.png"])
        self.assertEqual(re.findall(rb"/URI \(([^\n]*)\)\n", self.expanded()),
                         [b"https://d.e", b"https://f.g/h.png"])

    def test_missing_characters_are_reported_once(self):
        said = self.typeset("abc\n\n- é 日本\n- 日\n")
        self.assertEqual(said, 'vellumark: "?" stands for 2 characters that the fonts lack: '
                               "U+65E5 U+672C; the first is at line 3, column 5\n")
        self.assertIn("U+540D; the first", self.typeset("名", "--classic"))
        self.assertIn("U+4E07 and 92 others;", self.typeset("".join(map(chr, range(0x4E00, 0x4E64)))))
        for text, place in (("> a\n> `b&日`", "2, column 6"), ("a &copy; \\* 日", "1, column 13"),
                            ("```\na\n\t日", "3, column 2"), ("    a\n    日", "2, column 5"),
                            ("<!-- 日 -->\n\n日", "3, column 1"), ("|a|\n|-|\n|b|\n|日|", "4, column 2"),
                            ("<p>\nx &amp; 日", "2, column 9")):
            self.assertIn(f"at line {place}\n", self.typeset(text), text)

    def test_a_text_too_long_to_be_justified_is_set_ragged(self):
        said = self.typeset("word " * 20000, "--classic")
        self.assertRegex(said, r"\Avellumark: [^\n]*ragged\n\Z")
        self.assertEqual(self.text().count("word"), 20000)
        self.assertEqual(self.typeset("word " * 20000), "")
        self.assertEqual(self.text().count("word"), 20000)

    def test_a_text_too_long_for_a_document_says_where_to_split(self):
        said = self.refused(self.put("in.md", "a\n\n" * 20000), "-o", "out.pdf", "--no-justify", "--classic")
        self.assertRegex(said, r"full at line 3\d{4} of the input")

    def lines(self, *options):
        """The lines on every page of out.pdf as a terminal shows them, without the footer."""
        text = self.reader("pdftotext", "-layout", *options, "out.pdf", "-").decode()
        return [[line.rstrip() for line in page.splitlines() if line.strip()][:-1]
                for page in text.split("\f")[:-1]]

    def test_plain_text_keeps_its_lines(self):
        text = "*no* list:\n\n- a  b\tc\n    indented `x` <b>\r\n# no title\n"
        for options in (("in.txt",), ("in.md", "--plain"), ("-",)):
            self.put("in.txt", text)
            self.put("in.md", text)
            done = self.run_tool(*options, "-o", "out.pdf", stdin=text.encode())
            self.assertEqual((done.returncode, done.stderr), (0, b""))
            lines = [re.sub(r"(\S) +", r"\1 ", line) for line in self.lines()[0]]
            self.assertEqual(lines, ["*no* list:", "- a b c", "    indented `x` <b>", "# no title"])
            self.assertIn(b"(- a  b  c)", self.expanded())
            self.assertEqual(self.info("Title"), options[0].replace("-", ""))
        self.run_tool("in.txt", "--markdown", "-o", "out.pdf")
        self.assertIn("no title", self.info("Title"))
        self.assertIn("exclude", self.refused("in.md", "--plain", "--markdown"))

    def test_plain_text_has_pages_bold_and_underlined_words_and_long_lines(self):
        long = "".join(chr(33 + i % 90) for i in range(200))
        self.put("in.txt", "N\bNA\bA _\bé\x1b[1;31m_\b_x\x1b[0m\n\fone\ftwo\n\f\n" + long + "\n é" + long)
        self.assertEqual(self.run_tool("in.txt", "-o", "out.pdf").returncode, 0)
        first, one, two, rest = self.lines()
        self.assertEqual((first, one, two), (["NA é_x"], ["one"], ["two"]))
        self.assertEqual("".join(rest), long + " é" + long)
        self.assertEqual(len({len(line) for line in rest[:2]}), 1)
        self.assertRegex(self.reader("pdffonts", "out.pdf"), rb"Courier-Bold ")
        self.assertEqual(len(re.findall(rb"\n\d+ \d+ m\s\d+ \d+ l\sS", self.expanded())), 1)

    def test_a_place_in_plain_text_is_told(self):
        self.put("in.txt", "a\n\té 日\n")
        said = self.run_tool("in.txt", "-o", "out.pdf").stderr.decode()
        self.assertIn("U+65E5; the first is at line 2, column 4\n", said)

    def test_several_inputs_are_one_document(self):
        self.put("a.md", "# First\n\ntext ![](none.jpg)\n\n![](none.jpg)")
        self.put("b.txt", "plain 日\n")
        self.put("c.md", "# Third\n")
        done = self.run_tool("a.md", "b.txt", "c.md", "-o", "out.pdf")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr.decode().splitlines(), [
            "vellumark: picture none.jpg at line 5, column 1 of a.md: No such file or directory",
            'vellumark: "?" stands for 1 character that the fonts lack: U+65E5; the first is at line 1, '
            "column 7 of b.txt"])
        self.assertEqual([page[0].split()[-1] for page in self.lines()], ["First", "?", "Third"])
        self.assertEqual(self.info("Title"), "First")
        self.assertIn("several inputs", self.refused("a.md", "b.txt"))
        self.assertIn("is the input", self.refused("a.md", "b.txt", "-o", "./b.txt", "--format", "pdf"))
        self.assertIn("No such file", self.refused("a.md", "none.md", "-o", "other.pdf"))

    def test_input_may_be_standard_input_with_a_mark_and_crlf(self):
        done = self.run_tool("-", "--markdown", "-o", "out.pdf",
                             stdin=b"\xef\xbb\xbf# T\r\n\r\nalpha\r\nbeta\r\n")
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        self.assertIn("alpha beta", self.text())
        self.assertEqual(self.info("Title"), "T")

    def test_output_may_be_standard_output_or_beside_the_input(self):
        self.put("in.md", "x")
        self.assertTrue(self.run_tool("in.md", "-o", "-").stdout.startswith(b"%PDF-1."))
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

    def test_the_output_keeps_the_mode_and_group_of_the_file_that_it_replaces(self):
        self.put("out.pdf", "old")
        os.chmod(self.path("out.pdf"), 0o604)
        others = [group for group in os.getgroups() if group != os.getegid()]
        if os.geteuid() == 0:
            os.chown(self.path("out.pdf"), 1234, 5678)
        elif others:
            os.chown(self.path("out.pdf"), -1, others[0])
        before = os.stat(self.path("out.pdf"))
        self.typeset("new")
        after = os.stat(self.path("out.pdf"))
        self.assertNotEqual(after.st_ino, before.st_ino)
        self.assertEqual((after.st_mode, after.st_uid, after.st_gid),
                         (before.st_mode, before.st_uid, before.st_gid))

    def test_a_dangling_link_is_followed(self):
        os.mkdir(self.path("sub"))
        os.symlink("sub/next.pdf", self.path("out.pdf"))
        os.symlink("made.pdf", self.path("sub/next.pdf"))
        self.typeset("x")
        self.assertEqual(sorted(os.listdir(self.path("sub"))), ["made.pdf", "next.pdf"])
        self.assertTrue(os.path.islink(self.path("out.pdf")))
        os.symlink("round.pdf", self.path("round.pdf"))
        self.assertIn("symbolic links", self.refused("in.md", "-o", "round.pdf"))

    def start_and_stop_while_writing(self):
        """A run that is stopped while it writes out.ps; None if it had ended before."""
        run = subprocess.Popen([TOOL, "in.md", "-o", "out.ps", "--encoding", "hex"],
                               cwd=self.here, stderr=subprocess.PIPE)
        while run.poll() is None:
            if any(name.endswith(".part") for name in os.listdir(self.here)):
                run.send_signal(signal.SIGSTOP)
                os.waitid(os.P_PID, run.pid, os.WSTOPPED | os.WEXITED | os.WNOWAIT)
                if any(name.endswith(".part") for name in os.listdir(self.here)):
                    return run
                break
        run.kill()
        run.communicate()
        return None

    def test_a_signal_while_writing_leaves_nothing_behind(self):
        self.big_picture("big.bmp", 8000, 8000)
        self.put("in.md", "![](big.bmp)")
        self.put("out.ps", "old")
        before = sorted(os.listdir(self.here))
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            with self.subTest(signal=number):
                runs = filter(None, (self.start_and_stop_while_writing() for _ in range(20)))
                run = next(runs)
                run.send_signal(number)
                run.send_signal(signal.SIGCONT)
                run.communicate()
                self.assertEqual(run.returncode, -number)
                self.assertEqual(sorted(os.listdir(self.here)), before)
                with open(self.path("out.ps"), encoding="ascii") as file:
                    self.assertEqual(file.read(), "old")

    def test_an_ignored_signal_does_not_end_the_writing(self):
        self.big_picture("big.bmp", 8000, 8000)
        self.put("in.md", "![](big.bmp)")
        self.addCleanup(signal.signal, signal.SIGHUP, signal.signal(signal.SIGHUP, signal.SIG_IGN))
        run = next(filter(None, (self.start_and_stop_while_writing() for _ in range(20))))
        run.send_signal(signal.SIGHUP)
        run.send_signal(signal.SIGCONT)
        run.communicate()
        self.assertEqual(run.returncode, 0)
        self.assertEqual(sorted(os.listdir(self.here)), ["big.bmp", "in.md", "out.ps"])

    def test_the_limit_on_file_sizes_is_an_error_with_its_reason(self):
        self.put("in.md", "x")
        self.put("out.pdf", "old")
        for output in ("out.pdf", "-"):
            with open(self.path("redirected"), "wb") as redirected:
                done = subprocess.run(
                    [TOOL, "in.md", "-o", output], cwd=self.here, stdout=redirected,
                    stderr=subprocess.PIPE, check=False,
                    preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (512, 512)))
            self.assertEqual(done.returncode, 2)
            self.assertRegex(done.stderr, rb"\Avellumark: [^\n]*File too large[^\n]*ulimit -f[^\n]*\n\Z")
            self.assertEqual(sorted(os.listdir(self.here)), ["in.md", "out.pdf", "redirected"])
        with open(self.path("out.pdf"), encoding="ascii") as file:
            self.assertEqual(file.read(), "old")

    def test_a_shortage_of_memory_is_told_as_such(self):
        with open(TOOL, "rb") as tool:
            if b"__asan_init" in tool.read():
                self.skipTest("a sanitized program needs all addresses")
        self.put("in.md", "word " * 30000)
        told = set()
        for megabytes in range(10, 150, 5):
            done = subprocess.run(
                [TOOL, "in.md", "-o", "out.ps"], cwd=self.here, capture_output=True, check=False,
                preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (megabytes << 20,) * 2))
            if done.returncode == 0:
                break
            if done.returncode == 127 and not told:
                continue  # there is no room for its libraries
            self.assertEqual(done.returncode, 2)
            self.assertRegex(done.stderr, rb"\Avellumark: [^\n]* memory\n\Z")
            self.assertEqual(os.listdir(self.here), ["in.md"])
            told.add(done.stderr)
        self.assertEqual(done.returncode, 0)
        self.assertTrue(told)

    def test_the_ending_of_the_output_must_be_one_of_a_format(self):
        self.put("in.md", "x")
        for name in ("x.docx", "x.pdf.gz", "x."):
            self.assertIn("--format", self.refused("in.md", "-o", name))
        for name, options, start in (("X.PS", (), b"%!PS"), ("x", (), b"%PDF"),
                                     ("x.docx", ("--format", "ps"), b"%!PS")):
            self.assertEqual(self.run_tool("in.md", "-o", name, *options).returncode, 0)
            with open(self.path(name), "rb") as file:
                self.assertEqual(file.read(4), start)

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
        self.assertIn("no directory none", self.refused("in.md", "-o", "none/out.pdf"))
        self.assertIn("in.md is not a directory", self.refused("in.md", "-o", "in.md/out.pdf"))
        self.assertIn("name too long", self.refused("in.md", "-o", "n" * 300 + "/out.pdf"))
        if os.geteuid() != 0:
            os.mkdir(self.path("closed"), 0)
            self.assertIn("Permission denied", self.refused("in.md", "-o", "closed/out.pdf"))
        self.assertIn("is the input", self.refused("in.md", "-o", "./in.md", "--format", "pdf"))
        self.assertIn("needs an output", self.refused("-"))
        if os.path.exists("/dev/full"):
            self.assertIn("No space", self.refused("in.md", "-o", "/dev/full"))

    def test_bad_options_are_refused(self):
        self.put("in.md", "x")
        for option, value in (("--paper", "b7"), ("--orientation", "up"), ("--font", "arial"),
                              ("--size", "7"), ("--size", "73"), ("--size", "12pt"),
                              ("--margins", "1,2,3"), ("--margins", "-1"), ("--margins", "300"),
                              ("--page-color", "#12345"), ("--format", "doc"),
                              ("--encoding", "lzw"), ("--author", b"\xff"), ("--unknown", "x")):
            with self.subTest(option=option, value=value):
                self.refused("in.md", "-o", "out.pdf", option, value)
        self.refused()

    def test_help_shows_the_defaults_and_version_a_number(self):
        told = self.run_tool("--help")
        self.assertEqual((told.returncode, told.stderr), (0, b""))
        for default in (b"[default: a4]", b"[default: 64]", b"[default: times]", b"[default: 11]",
                        b"--classic"):
            self.assertIn(default, told.stdout)
        self.assertRegex(self.run_tool("--version").stdout,
                         rb"\Avellumark \d+\.\d+\.\d+( \(commit [0-9a-f]{12}(-dirty)?\))?\n\Z")

    def test_the_manual_page_and_completions_have_every_option(self):
        told = self.run_tool("--help").stdout.decode()
        names = set(re.findall(r"^  (?:-\w,)?--([\w-]+)", told, re.M))
        self.assertGreater(len(names), 20)
        page = self.run_tool("--man").stdout
        for name in names:
            self.assertIn(r"\fB\-\-" + name.replace("-", r"\-") + r"\fR", page.decode())
        if shutil.which("groff"):
            done = subprocess.run(["groff", "-man", "-Tutf8", "-ww"], input=page, capture_output=True)
            self.assertEqual((done.returncode, done.stderr), (0, b""))
        for shell, form in (("bash", "--{} "), ("zsh", "--{}"), ("fish", " -l {} ")):
            program = self.run_tool("--completion", shell).stdout.decode()
            self.assertEqual([name for name in names if form.format(name) not in program], [], shell)
            self.assertIn("a3 a4 a5", program)
        self.assertIn("bash, zsh, fish", self.refused("--completion", "tcsh"))

    def test_bash_completes_options_values_and_files(self):
        self.put("notes with blanks.md", "")
        self.put("completion", self.run_tool("--completion", "bash").stdout)
        for words, completed in (("--pap", "--paper"), ("--paper le", "ledger\nlegal\nletter"),
                                 ("--title n", ""), ("-o n", "notes with blanks.md"), ("n", "notes with blanks.md")):
            program = (f". ./completion; COMP_WORDS=(vellumark {words}); "
                       "COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _vellumark; printf '%s\\n' \"${COMPREPLY[@]}\"")
            self.assertEqual(self.reader("bash", "-c", program).decode().strip(), completed, words)


if __name__ == "__main__":
    unittest.main()
