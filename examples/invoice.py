#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""An invoice as PDF and as PostScript, from one function and a CSV file.

usage: invoice.py [FOLDER [CSV_FILE]]

writes FOLDER/invoice.pdf and FOLDER/invoice.ps. The table has the columns quantity, description and
unit price, in UTF-8. docs/python.md explains the program; invoice.cpp is the same one in C++.
"""
import csv
import pathlib
import re
import sys
from decimal import ROUND_HALF_UP, Decimal
from typing import NamedTuple

import vellumark
from vellumark import AlignmentConstants as Align
from vellumark import EncodingConstants as Encoding
from vellumark import FontEffectConstants as Effect
from vellumark import FontNumberConstants as Font
from vellumark import FontStyleConstants as Style

Document = vellumark.PDF | vellumark.PS
Color = tuple[int, int, int]
LANGUAGES: dict[str, type[vellumark.PDF] | type[vellumark.PS]] = {
    "invoice.pdf": vellumark.PDF, "invoice.ps": vellumark.PS}

HERE = pathlib.Path(__file__).resolve().parent
LOGO = HERE / "pictures" / "logo.png"
NUMBER = "2024-0117"
LINK = "https://example.org/pay/" + NUMBER
TERMS = (
    "Payment is due within fourteen days of the date of this invoice, without deduction. The goods "
    "remain our property until they are paid for in full. Colors of leather and linen may differ "
    "slightly from the samples, as hides and dye lots do; that is how they should be. Please tell us about "
    "damage in transit within three days, and keep the wrapping until the carrier has seen it.")

INK: Color = (38, 40, 46)
FAINT: Color = (120, 124, 134)
RULE: Color = (205, 208, 214)
ACCENT: Color = (122, 30, 44)
WHITE: Color = (255, 255, 255)

MARGIN = 56
WIDTH = 595 - 2 * MARGIN
BOTTOM = 842 - MARGIN - 40 - 12     # the footer is below
# The right edges of the columns of numbers, and the left edge of the texts.
COUNT, DESCRIPTION, PRICE, AMOUNT = 40, 56, 398, WIDTH - 8
DESCRIPTION_END = 328
ROW_HEIGHT = 24
LAST_ROW = 620
PRICES = r"-?\d{1,7}(\.\d{1,2})?"


class Row(NamedTuple):
    quantity: int
    description: str
    price: Decimal

    @property
    def amount(self) -> Decimal:
        return self.quantity * self.price


def read_rows(file: pathlib.Path) -> list[Row]:
    rows = []
    with file.open(newline="", encoding="utf-8-sig") as lines:
        table = csv.DictReader(lines, restval="")
        missing = {"quantity", "description", "unit price"}.difference(table.fieldnames or [])
        if missing:
            raise ValueError(f"{file}: it has no column {', '.join(sorted(missing))}")
        for line in table:
            try:
                rows.append(Row(int(number(line["quantity"], "count", r"\d{1,6}")),
                                line["description"],
                                Decimal(number(line["unit price"], "price", PRICES))))
            except ValueError as error:
                raise ValueError(f"{file}:{table.line_num}: {error}") from error
    return rows


def number(text: str, name: str, form: str) -> str:
    if not re.fullmatch(form, text, re.ASCII):
        raise ValueError(f"not a {name}: {text!r}")
    return text


def money(amount: Decimal) -> str:
    return f"{amount.quantize(Decimal('0.01'), ROUND_HALF_UP):,}"


def pen(doc: Document, size: int, color: Color = INK, style: Style = Style.Regular) -> None:
    doc.SetFont(Font.Helvetica, size, style, Effect.NoFontEffect)
    doc.SetColor(*color)


def put(doc: Document, x: int, y: int, text: str, alignment: Align = Align.NoAlignment) -> None:
    doc.SetPosition(x, y)
    if not doc.WriteText(text, alignment=alignment):
        raise ValueError(f"{text!r}: {doc.LastRefusal}")


def put_right(doc: Document, right: int, y: int, text: str) -> None:
    """A text that ends at `right`."""
    put(doc, right - doc.TextWidth(text), y, text)


def rule(doc: Document, y: int, color: Color = RULE, left: int = 0) -> None:
    doc.SetColor(*color)
    doc.DrawLine(left, y, WIDTH, y)


def draw_letterhead(doc: Document) -> None:
    doc.SetPictureDimensions(52, 52)
    doc.SetPosition(0, 0)
    if not doc.DrawPicture(LOGO.read_bytes(), encoding=Encoding.Flate):
        raise ValueError(doc.LastRefusal)
    pen(doc, 20, style=Style.Bold)
    put(doc, 66, 4, "Lindenhof Bindery")
    pen(doc, 9, FAINT)
    put(doc, 66, 32, "Books bound by hand since 1911 – à la main")
    for line, text in enumerate(["Sülzgasse 4", "8302 Kirchberg", "office@example.org"]):
        put(doc, 0, 6 + 13 * line, text, Align.RightAlign)
    rule(doc, 66, ACCENT)


def draw_address(doc: Document) -> None:
    pen(doc, 8, FAINT)
    put(doc, 0, 96, "Billed to")
    pen(doc, 11)
    for line, text in enumerate(["Bücherei Kirchberg", "z. H. Frau Dvořáková", "Marktplatz 1",
                                 "8300 Kirchberg"]):
        put(doc, 0, 112 + 15 * line, text)
    pen(doc, 26, ACCENT, Style.Bold)
    put(doc, 0, 88, "Invoice", Align.RightAlign)
    for line, (name, value) in enumerate([("Number", NUMBER), ("Date", "2024-05-31"),
                                          ("Due", "2024-06-14")]):
        pen(doc, 10, FAINT)
        put(doc, 350, 127 + 15 * line, name)
        pen(doc, 10)
        put(doc, 0, 127 + 15 * line, value, Align.RightAlign)


def draw_table_head(doc: Document, y: int) -> int:
    doc.SetColor(*ACCENT)
    doc.SetFillColor(*ACCENT)
    doc.SetFillStyle(True)
    doc.DrawRectangle(0, y, WIDTH, 22)
    doc.SetFillStyle(False)
    pen(doc, 9, WHITE, Style.Bold)
    put_right(doc, COUNT, y + 5, "Count")
    put(doc, DESCRIPTION, y + 5, "Description")
    put_right(doc, PRICE, y + 5, "Unit €")
    put_right(doc, AMOUNT, y + 5, "Amount €")
    return y + 22


def draw_table(doc: Document, rows: list[Row], y: int) -> int:
    """The rows, on as many pages as they need. Returns the y of their end."""
    y = draw_table_head(doc, y)
    for row in rows:
        if y > LAST_ROW:
            new_page(doc)
            y = draw_table_head(doc, 0)
        pen(doc, 10)
        put_right(doc, COUNT, y + 6, str(row.quantity))
        put(doc, DESCRIPTION, y + 6, row.description)
        if DESCRIPTION + doc.TextWidth(row.description) > DESCRIPTION_END:
            raise ValueError(f"{row.description!r} is too long for its column")
        put_right(doc, PRICE, y + 6, money(row.price))
        put_right(doc, AMOUNT, y + 6, money(row.amount))
        y += ROW_HEIGHT
        rule(doc, y)
    return y


def draw_totals(doc: Document, rows: list[Row], y: int) -> int:
    net = sum((row.amount for row in rows), Decimal(0))
    tax = (net / 10).quantize(Decimal("0.01"), ROUND_HALF_UP)
    for name, amount, style in [("Net", net, Style.Regular), ("Tax 10 %", tax, Style.Regular),
                                ("To pay, €", net + tax, Style.Bold)]:
        pen(doc, 11 if style == Style.Bold else 10, style=style)
        put(doc, 300, y + 8, name)
        put_right(doc, AMOUNT, y + 8, money(amount))
        y += 20
    rule(doc, y + 8, ACCENT, left=300)
    rule(doc, y + 10, ACCENT, left=300)
    return y + 10


def draw_terms(doc: Document, y: int) -> None:
    doc.SetFont(Font.Times, 10, Style.Regular, Effect.NoFontEffect)
    if y + doc.TextHeight(TERMS, dy=3) + 18 > BOTTOM:
        new_page(doc)
        y = 0
    doc.SetColor(*INK)
    doc.SetPosition(0, y)
    doc.WriteMultiText(TERMS, dy=3, justified=True)
    doc.SetFont(Font.Helvetica, 10, Style.Regular, Effect.Underline)
    doc.SetColor(28, 70, 150)
    doc.SetPosition(0, doc.GetPosition()[1] + 8)
    if isinstance(doc, vellumark.PDF):
        doc.WriteText("Pay this invoice online", hyperlink=LINK)
    else:
        doc.WriteText("Pay online: " + LINK)


def new_page(doc: Document) -> None:
    doc.NewPage(MARGIN, MARGIN, MARGIN, 40, *WHITE)


def draw_invoice(doc: Document, file: pathlib.Path, rows: list[Row]) -> None:
    doc.Title = "Invoice " + NUMBER
    doc.Author = "Lindenhof Bindery"
    doc.Footer = f"Invoice {NUMBER} – Page {{page}} of {{pages}}"
    if not doc.Create(file):
        raise OSError(doc.LastRefusal)
    new_page(doc)
    draw_letterhead(doc)
    draw_address(doc)
    y = draw_table(doc, rows, 200)
    y = draw_totals(doc, rows, y)
    draw_terms(doc, y + 28)
    if doc.LostCharacters:
        raise ValueError(f"the fonts have no letters for {doc.LostCharacters}")


def main(folder: str = ".", table: str = str(HERE / "invoice.csv")) -> None:
    rows = read_rows(pathlib.Path(table))
    for name, document_class in LANGUAGES.items():
        with document_class(Conforming=True) as doc:
            draw_invoice(doc, pathlib.Path(folder, name), rows)


if __name__ == "__main__":
    if len(sys.argv) > 3 or "--help" in sys.argv:
        sys.exit(__doc__)
    try:
        main(*sys.argv[1:])
    except (OSError, ValueError) as error:
        sys.exit(f"invoice.py: {error}")
