# SPDX-License-Identifier: MIT
"""A certificate: a frame, large centered lines, a seal."""
from vellumark import PDF
from vellumark import FontNumberConstants as Font
from vellumark import FontStyleConstants as Style
from vellumark import FontEffectConstants as Effect
from vellumark import AlignmentConstants as Align
from vellumark import OrientationConstants as Orientation
from vellumark import PaperSizeConstants as Paper

with PDF(Conforming=True, PaperSize=Paper.A5, Orientation=Orientation.Landscape, Footer="") as doc:
    doc.Create("certificate.pdf")
    doc.NewPage(40, 40, 40, 40, 255, 255, 255)

    doc.SetColor(120, 90, 30)
    doc.SetThickness(4)
    doc.DrawRectangle(0, 0, 515, 340)
    doc.SetThickness(1)
    doc.DrawRectangle(8, 8, 499, 324)

    doc.SetPosition(0, 60)
    doc.SetFont(Font.Times, 36, Style.Bold, Effect.NoFontEffect)
    doc.WriteText("Certificate", True, 24, Align.Center)
    doc.SetColor(0, 0, 0)
    doc.SetFont(Font.Times, 16, Style.Regular, Effect.NoFontEffect)
    doc.WriteText("The bindery certifies that", True, 16, Align.Center)
    doc.SetFont(Font.Times, 28, Style.BoldItalic, Effect.NoFontEffect)
    doc.WriteText("Zoë Świątek", True, 16, Align.Center)
    doc.SetFont(Font.Times, 16, Style.Regular, Effect.NoFontEffect)
    doc.WriteText("has bound a book by hand.", True, 0, Align.Center)

    doc.SetColor(150, 30, 50)
    doc.SetFillStyle(True)
    doc.SetFillColor(150, 30, 50)
    doc.DrawCircle(430, 270, 34)
    doc.SetFillColor(255, 255, 255)
    doc.DrawCircle(430, 270, 26)
    doc.SetPosition(420, 259)
    doc.SetFont(Font.ZapfDingbats, 24, Style.Regular, Effect.NoFontEffect)
    doc.WriteText("✓")
