#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""A report with bookmarks, a table of contents that links to its chapters, and running heads, as PDF
and as PostScript, from one function and a text file.

usage: report.py [FOLDER [TEXT_FILE]]

writes FOLDER/report.pdf and FOLDER/report.ps. The text, in UTF-8, has the title and the subtitle in
its first lines, and then blocks with empty lines between them: "# chapter", "## section", a chart of
lines "| name | number", or a paragraph. report.cpp is the same program in C++.
"""
import pathlib
import sys
from typing import NamedTuple

import vellumark
from vellumark import AlignmentConstants as Align
from vellumark import FontEffectConstants as Effect
from vellumark import FontNumberConstants as Font
from vellumark import FontStyleConstants as Style

Document = vellumark.PDF | vellumark.PS
Color = tuple[int, int, int]
LANGUAGES: dict[str, type[vellumark.PDF] | type[vellumark.PS]] = {
    "report.pdf": vellumark.PDF, "report.ps": vellumark.PS}

HERE = pathlib.Path(__file__).resolve().parent

INK: Color = (38, 40, 46)
FAINT: Color = (120, 124, 134)
ACCENT: Color = (24, 78, 92)
WHITE: Color = (255, 255, 255)

# A page is A5, 420 by 595 points; running heads keep a distance from the text.
MARGIN = 52
WIDTH = 420 - 2 * MARGIN
TOP, BOTTOM = 22, 595 - 2 * MARGIN - 24
LEADING = 3                         # between the lines of a paragraph
BAR_LEFT, BAR_HEIGHT = 76, 16


class Block(NamedTuple):
    kind: str                       # "#", "##", "|" or "" for a paragraph
    text: str
    bars: list[tuple[str, int]]     # of a chart


class Report(NamedTuple):
    title: str
    subtitle: str
    blocks: list[Block]


def read_report(file: pathlib.Path) -> Report:
    title, subtitle, *lines = file.read_text(encoding="utf-8-sig").splitlines() + ["", ""]
    blocks, open_lines = [], list[str]()
    for line in [*lines, ""]:
        if line:
            open_lines.append(line)
        elif open_lines:
            blocks.append(read_block(open_lines))
            open_lines = []
    return Report(title, subtitle, blocks)


def read_block(lines: list[str]) -> Block:
    kind, _, heading = lines[0].partition(" ")
    if kind in ("#", "##"):
        return Block(kind, " ".join([heading, *lines[1:]]), [])
    if kind != "|":
        return Block("", " ".join(lines), [])
    bars = []
    for line in lines:
        cells = [cell.strip() for cell in line.split("|")]
        if len(cells) != 3 or cells[0] or not (cells[2].isascii() and cells[2].isdecimal()):
            raise ValueError(f"not a line of a chart, \"| name | number\": {line!r}")
        bars.append((cells[1], int(cells[2])))
    return Block("|", "", bars)


def need(doc: Document, done: bool, what: str = "") -> None:
    if not done:
        raise ValueError(f"{what}: {doc.LastRefusal}" if what else doc.LastRefusal)


def pen(doc: Document, font: Font, size: int, color: Color = INK,
        style: Style = Style.Regular) -> None:
    doc.SetFont(font, size, style, Effect.NoFontEffect)
    doc.SetColor(*color)


def fill(doc: Document, x: int, y: int, width: int, height: int, color: Color) -> None:
    doc.SetColor(*color)
    doc.SetFillColor(*color)
    doc.SetFillStyle(True)
    need(doc, doc.DrawRectangle(x, y, width, height))
    doc.SetFillStyle(False)


def put(doc: Document, x: int, y: int, text: str, link: str = "") -> None:
    """A text; in PDF with a link over it."""
    doc.SetPosition(x, y)
    if isinstance(doc, vellumark.PDF):
        need(doc, doc.WriteText(text, hyperlink=link), text)
    else:
        need(doc, doc.WriteText(text), text)


def mark(doc: Document, anchor: str, text: str, level: int) -> None:
    """In PDF, a bookmark and an anchor of the current position. PostScript has neither."""
    if isinstance(doc, vellumark.PDF):
        need(doc, doc.SetAnchor(anchor) and doc.WriteBookmark(text, level), text)


class Pages:
    """Where the next thing goes, and the running head of the page."""

    def __init__(self, doc: Document) -> None:
        self.doc = doc
        self.head = ""
        self.y = 0

    def new(self, head: str) -> None:
        self.doc.NewPage(MARGIN, MARGIN, MARGIN, MARGIN, *WHITE)
        # Read when the page ends; a brace in it would begin a placeholder.
        self.doc.Header = head.replace("{", "{{")
        self.y = TOP

    def chapter(self, title: str) -> None:
        """Its first page has no running head: the title stands there."""
        self.new("")
        self.head = title

    def make_room(self, height: int) -> None:
        """Goes to a new page if so many points are not free."""
        if self.y + height > BOTTOM:
            self.new(self.head)


def draw_cover(doc: Document, report: Report) -> None:
    doc.NewPage(0, 0, 0, 0, *WHITE)
    fill(doc, 0, 150, 420, 150, ACCENT)
    doc.SetPosition(MARGIN, 190)
    pen(doc, Font.Helvetica, 28, WHITE, Style.Bold)
    need(doc, doc.WriteMultiText(report.title, 6), report.title)
    pen(doc, Font.Helvetica, 13, (200, 224, 230))
    put(doc, MARGIN, doc.GetPosition()[1] + 6, report.subtitle)


def draw_title(doc: Document, y: int, title: str) -> None:
    pen(doc, Font.Helvetica, 22, ACCENT, Style.Bold)
    put(doc, 0, y, title)
    fill(doc, 0, y + 32, 42, 3, ACCENT)


def draw_contents(pages: Pages, report: Report, numbers: list[int]) -> None:
    """Each chapter and section with its page, and in PDF with a link to it."""
    doc = pages.doc
    pages.chapter("Contents")
    doc.SetPosition(0, pages.y)
    mark(doc, "contents", "Contents", 1)
    draw_title(doc, pages.y, "Contents")
    pages.y += 48
    headings = [block for block in report.blocks if block.kind in ("#", "##")]
    for index, (block, number) in enumerate(zip(headings, numbers)):
        chapter = block.kind == "#"
        pages.y += 8 if chapter else 0
        pages.make_room(18)
        pen(doc, Font.Times, 11, style=Style.Bold if chapter else Style.Regular)
        left, right = (0 if chapter else 16), WIDTH - doc.TextWidth(str(number))
        end = left + doc.TextWidth(block.text)
        put(doc, left, pages.y, block.text, f"#heading {index}")
        put(doc, right, pages.y, str(number), f"#heading {index}")
        pen(doc, Font.Times, 11, FAINT)
        for x in range(WIDTH - 24, end + 6, -6):
            put(doc, x, pages.y, ".")
        pages.y += 18


def height_of(doc: Document, block: Block) -> int:
    """Of a paragraph or a chart, at most that of a page; of a heading below another one, some lines."""
    if block.bars:
        return 4 + BAR_HEIGHT * len(block.bars)
    pen(doc, Font.Times, 11)
    doc.SetPosition(0)              # lines reach from there to the right margin
    return min(doc.TextHeight(block.text, LEADING), BOTTOM - TOP) if block.kind == "" else 70


def draw_heading(pages: Pages, block: Block, following: Block, index: int) -> None:
    """A chapter begins a page, and a section is on one page with what follows."""
    if block.kind == "#":
        pages.chapter(block.text)
    else:
        pages.y += 8
        pages.make_room(min(22 + height_of(pages.doc, following), BOTTOM - TOP))
    pages.doc.SetPosition(0, pages.y)
    mark(pages.doc, f"heading {index}", block.text, len(block.kind))
    if block.kind == "#":
        draw_title(pages.doc, pages.y, block.text)
        pages.y += 54
    else:
        pen(pages.doc, Font.Helvetica, 13, ACCENT, Style.Bold)
        put(pages.doc, 0, pages.y, block.text)
        pages.y += 22


def draw_chart(pages: Pages, block: Block) -> None:
    doc = pages.doc
    bars = block.bars
    pages.make_room(height_of(doc, block))
    pages.y += 4
    greatest = max(1, *(value for _, value in bars))
    pen(doc, Font.Helvetica, 8)
    longest = WIDTH - BAR_LEFT - 6 - doc.TextWidth(f"{greatest:,}")
    for name, value in bars:
        length = value * longest // greatest
        fill(doc, BAR_LEFT, pages.y, length, BAR_HEIGHT - 5, ACCENT)
        doc.SetColor(*INK)
        put(doc, BAR_LEFT - 7 - doc.TextWidth(name), pages.y + 1, name)
        put(doc, BAR_LEFT + length + 6, pages.y + 1, f"{value:,}")
        pages.y += BAR_HEIGHT
    pages.y += 10


def draw_paragraph(pages: Pages, block: Block) -> None:
    """As a whole on a page, unless it is longer than one."""
    doc = pages.doc
    pages.make_room(height_of(doc, block))
    pen(doc, Font.Times, 11)
    doc.SetPosition(0, pages.y)
    need(doc, doc.WriteMultiText(block.text, LEADING, justified=True), block.text)
    pages.y = doc.GetPosition()[1] + 7


def draw_report(doc: Document, file: pathlib.Path, report: Report,
                numbers: list[int]) -> list[int]:
    """Draws the report with these page numbers in its contents; returns those that are right."""
    doc.Conforming = True
    doc.PaperSize = vellumark.PaperSizeConstants.A5
    doc.Title = report.title
    doc.Footer = doc.Header = ""            # the cover has none
    need(doc, doc.Create(file))
    draw_cover(doc, report)
    pages = Pages(doc)
    draw_contents(pages, report, numbers)
    doc.Footer = "Page {page} of {pages}"
    found = list[int]()
    for block, following in zip(report.blocks, [*report.blocks[1:], Block("", "", [])]):
        if block.kind in ("#", "##"):
            draw_heading(pages, block, following, len(found))
            found.append(doc.PageNumber)
        elif block.bars:
            draw_chart(pages, block)
        else:
            draw_paragraph(pages, block)
    if doc.LostCharacters:
        raise ValueError(f"the fonts have no letters for {doc.LostCharacters}")
    return found


def main(folder: str = ".", text: str = str(HERE / "report.txt")) -> None:
    report = read_report(pathlib.Path(text))
    numbers = [0] * sum(block.kind in ("#", "##") for block in report.blocks)
    for name, document_class in LANGUAGES.items():
        file = pathlib.Path(folder, name)

        def find_numbers(doc: Document, file: pathlib.Path = file) -> None:
            numbers[:] = draw_report(doc, file, report, numbers)

        vellumark.render(document_class, find_numbers)     # only to see on what pages they are
        with document_class() as doc:
            draw_report(doc, file, report, numbers)


if __name__ == "__main__":
    if len(sys.argv) > 3 or "--help" in sys.argv:
        sys.exit(__doc__)
    try:
        main(*sys.argv[1:])
    except (OSError, ValueError) as error:
        sys.exit(f"report.py: {error}")
