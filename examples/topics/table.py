# SPDX-License-Identifier: MIT
"""A table: columns, a head, right-aligned numbers."""
from vellumark import PDF
from vellumark import FontNumberConstants as Font
from vellumark import FontStyleConstants as Style
from vellumark import FontEffectConstants as Effect
from vellumark import OrientationConstants as Orientation
from vellumark import PaperSizeConstants as Paper

with PDF(Conforming=True, PaperSize=Paper.A5, Orientation=Orientation.Landscape, Footer="") as doc:
    doc.Create("table.pdf")
    doc.NewPage(40, 40, 40, 40, 255, 255, 255)

    RIGHT = (260, 380, 515)
    rows = [("Item", "Pieces", "Price"), ("Catalog, thread-sewn", "120", "582.00"),
            ("Guest book, leather", "12", "1,746.00"), ("Exercise book", "250", "300.00")]
    y = 0
    for row in rows:
        head = y == 0
        doc.SetFillStyle(head)
        doc.SetFillColor(30, 60, 120)
        if head:
            doc.DrawRectangle(0, 0, 515, 26)
        ink = 255 if head else 0
        doc.SetColor(ink, ink, ink)
        doc.SetFont(Font.Helvetica, 12, Style.Bold if head else Style.Regular, Effect.NoFontEffect)
        doc.SetPosition(8, y + 7)
        doc.WriteText(row[0])
        for right, text in zip(RIGHT[1:], row[1:]):
            doc.SetPosition(right - 8 - doc.TextWidth(text), y + 7)
            doc.WriteText(text)
        y += 26
        doc.SetColor(190, 190, 190)
        doc.DrawLine(0, y, 515, y)
