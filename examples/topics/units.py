# SPDX-License-Identifier: MIT
"""Units: the page, its margins, and positions in points."""
from vellumark import PDF
from vellumark import FontNumberConstants as Font
from vellumark import FontStyleConstants as Style
from vellumark import FontEffectConstants as Effect
from vellumark import OrientationConstants as Orientation
from vellumark import PaperSizeConstants as Paper

with PDF(Conforming=True, PaperSize=Paper.A5, Orientation=Orientation.Landscape, Footer="") as doc:
    doc.Create("units.pdf")
    doc.NewPage(40, 40, 40, 40, 255, 255, 255)

    width, height = (length - 80 for length in doc.GetPageDimensions())  # without the margins
    doc.SetFont(Font.Helvetica, 9, Style.Regular, Effect.NoFontEffect)

    doc.SetColor(210, 210, 210)             # a grid of 50 points
    for x in range(0, width + 1, 50):
        doc.DrawLine(x, 0, x, height)
    for y in range(0, height + 1, 50):
        doc.DrawLine(0, y, width, y)
    doc.SetColor(120, 120, 120)
    for x in range(50, width - 20, 50):
        doc.SetPosition(x + 2, 2)
        doc.WriteText(str(x))
    for y in range(50, height - 10, 50):
        doc.SetPosition(2, y + 2)
        doc.WriteText(str(y))
    doc.SetColor(30, 60, 120)
    doc.SetThickness(2)
    doc.DrawRectangle(0, 0, width, height)  # the usable area
    doc.SetThickness(1)

    doc.SetColor(150, 30, 50)               # a text, and the point where it begins
    doc.SetFillStyle(True)
    doc.SetFillColor(150, 30, 50)
    doc.DrawCircle(150, 100, 3)
    doc.SetFont(Font.Helvetica, 24, Style.Regular, Effect.NoFontEffect)
    doc.SetPosition(150, 100)
    doc.WriteText("SetPosition(150, 100)")

    doc.SetFillColor(230, 190, 90)
    doc.DrawRectangle(50, 200, 100, 50)
    doc.DrawArc(350, 250, 50, 0, 60)
    doc.SetFont(Font.Helvetica, 10, Style.Regular, Effect.NoFontEffect)
    doc.SetPosition(50, 256)
    doc.WriteText("DrawRectangle(50, 200, 100, 50)")
    doc.SetPosition(300, 256)
    doc.WriteText("DrawArc(350, 250, 50, 0, 60)")
