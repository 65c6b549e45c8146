# SPDX-License-Identifier: MIT
"""A chart: bars with a scale and labels."""
from vellumark import PDF
from vellumark import FontNumberConstants as Font
from vellumark import FontStyleConstants as Style
from vellumark import FontEffectConstants as Effect
from vellumark import OrientationConstants as Orientation
from vellumark import PaperSizeConstants as Paper

with PDF(Conforming=True, PaperSize=Paper.A5, Orientation=Orientation.Landscape, Footer="") as doc:
    doc.Create("chart.pdf")
    doc.NewPage(40, 40, 40, 40, 255, 255, 255)

    LOANS = {"Jan": 310, "Feb": 420, "Mar": 380, "Apr": 560, "May": 610, "Jun": 480}
    doc.SetFont(Font.Helvetica, 16, Style.Bold, Effect.NoFontEffect)
    doc.WriteText("Loans of the first half-year")
    doc.SetFont(Font.Helvetica, 10, Style.Regular, Effect.NoFontEffect)
    for scale in range(0, 601, 200):
        y = 300 - scale * 2 // 5
        doc.SetColor(200, 200, 200)
        doc.DrawLine(40, y, 515, y)
        doc.SetColor(90, 90, 90)
        doc.SetPosition(32 - doc.TextWidth(str(scale)), y - 5)
        doc.WriteText(str(scale))
    doc.SetFillStyle(True)
    doc.SetFillColor(30, 60, 120)
    for x, (month, loans) in zip(range(60, 515, 76), LOANS.items()):
        height = loans * 2 // 5
        doc.SetColor(30, 60, 120)
        doc.DrawRectangle(x, 300 - height, 50, height)
        doc.SetColor(90, 90, 90)
        doc.SetPosition(x + 25 - doc.TextWidth(month) // 2, 306)
        doc.WriteText(month)
