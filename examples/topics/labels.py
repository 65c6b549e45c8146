# SPDX-License-Identifier: MIT
"""Labels: a sheet of three columns and four rows."""
from vellumark import PDF
from vellumark import FontNumberConstants as Font
from vellumark import FontStyleConstants as Style
from vellumark import FontEffectConstants as Effect
from vellumark import OrientationConstants as Orientation
from vellumark import PaperSizeConstants as Paper

with PDF(Conforming=True, PaperSize=Paper.A5, Orientation=Orientation.Landscape, Footer="") as doc:
    doc.Create("labels.pdf")
    doc.NewPage(40, 40, 40, 40, 255, 255, 255)

    WIDTH, HEIGHT = 165, 80
    doc.SetDash("2 3")
    for number in range(12):
        x = number % 3 * (WIDTH + 10)
        y = number // 3 * (HEIGHT + 6)
        doc.SetColor(170, 170, 170)
        doc.DrawRectangle(x, y, WIDTH, HEIGHT)
        doc.SetColor(0, 0, 0)
        doc.SetFont(Font.Helvetica, 14, Style.Bold, Effect.NoFontEffect)
        doc.SetPosition(x + 12, y + 16)
        doc.WriteText(f"Shelf {100 + number}", True, 6)
        doc.SetFont(Font.Helvetica, 10, Style.Regular, Effect.NoFontEffect)
        doc.WriteText("Bücherei Kirchberg")
