# SPDX-License-Identifier: MIT
"""A form to fill in by hand: labels, boxes for letters, boxes to tick."""
from vellumark import PDF
from vellumark import FontNumberConstants as Font
from vellumark import FontStyleConstants as Style
from vellumark import FontEffectConstants as Effect
from vellumark import OrientationConstants as Orientation
from vellumark import PaperSizeConstants as Paper

with PDF(Conforming=True, PaperSize=Paper.A5, Orientation=Orientation.Landscape, Footer="") as doc:
    doc.Create("form.pdf")
    doc.NewPage(40, 40, 40, 40, 255, 255, 255)

    doc.SetFont(Font.Helvetica, 18, Style.Bold, Effect.NoFontEffect)
    doc.WriteText("Library card", True, 16)
    y = 50
    for label in ("Last name", "First name", "City"):
        doc.SetFont(Font.Helvetica, 9, Style.Regular, Effect.NoFontEffect)
        doc.SetPosition(0, y + 6)
        doc.WriteText(label)
        for box in range(20):
            doc.DrawRectangle(100 + 20 * box, y, 18, 22)
        y += 36
    doc.SetPosition(0, y + 6)
    doc.WriteText("Send reminders")
    x = 100
    for choice in ("by letter", "by mail", "never"):
        doc.DrawRectangle(x, y + 4, 12, 12)
        doc.SetPosition(x + 18, y + 6)
        doc.WriteText(choice)
        x += 100
    doc.DrawLine(300, 300, 515, 300)
    doc.SetPosition(300, 304)
    doc.WriteText("Date and signature")
