# SPDX-License-Identifier: MIT
"""Paragraphs: wrapped, justified, aligned, beside each other."""
from vellumark import PDF
from vellumark import FontNumberConstants as Font
from vellumark import FontStyleConstants as Style
from vellumark import FontEffectConstants as Effect
from vellumark import AlignmentConstants as Align
from vellumark import OrientationConstants as Orientation
from vellumark import PaperSizeConstants as Paper

with PDF(Conforming=True, PaperSize=Paper.A5, Orientation=Orientation.Landscape, Footer="") as doc:
    doc.Create("paragraphs.pdf")
    doc.NewPage(40, 40, 40, 40, 255, 255, 255)

    TEXT = ("A paragraph is broken at blanks into lines of the width that you give it, or that is left "
            "up to the right margin. It goes on on a new page if the page is full.")
    doc.SetFont(Font.Times, 12, Style.Regular, Effect.NoFontEffect)
    doc.WriteMultiText(TEXT, 3)                   # 3 points between lines
    doc.SetPosition(0, 70)
    doc.WriteMultiText(TEXT, 3, justified=True)
    doc.SetPosition(0, 140)
    doc.WriteMultiText(TEXT, 3, Align.Center, width=350)

    doc.SetPosition(0, 220)
    doc.WriteMultiText(TEXT, 3, justified=True, width=240)
    doc.SetPosition(275, 220)
    doc.SetColor(150, 30, 50)
    doc.WriteMultiText(TEXT, 3, justified=True, width=240)
