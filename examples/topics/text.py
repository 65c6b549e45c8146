# SPDX-License-Identifier: MIT
"""Text: fonts, styles, effects, alignment."""
from vellumark import PDF
from vellumark import FontNumberConstants as Font
from vellumark import FontStyleConstants as Style
from vellumark import FontEffectConstants as Effect
from vellumark import AlignmentConstants as Align
from vellumark import OrientationConstants as Orientation
from vellumark import PaperSizeConstants as Paper

with PDF(Conforming=True, PaperSize=Paper.A5, Orientation=Orientation.Landscape, Footer="") as doc:
    doc.Create("text.pdf")
    doc.NewPage(40, 40, 40, 40, 255, 255, 255)

    doc.SetFont(Font.Times, 24, Style.Regular, Effect.NoFontEffect)
    doc.WriteText("Regular, ")
    doc.SetFont(Font.Times, 24, Style.Bold, Effect.NoFontEffect)
    doc.WriteText("bold, ")
    doc.SetFont(Font.Times, 24, Style.Italic, Effect.NoFontEffect)
    doc.WriteText("italic", True, 16)

    doc.SetFont(Font.Helvetica, 24, Style.Regular, Effect.Underline)
    doc.WriteText("Underlined", True, 8)
    doc.SetFont(Font.Helvetica, 24, Style.Regular, Effect.Strikethrough)
    doc.WriteText("Struck through", True, 16)

    doc.SetFont(Font.Courier, 18, Style.Regular, Effect.NoFontEffect)
    doc.SetColor(150, 30, 50)
    doc.WriteText("on the left", True, 6, Align.LeftAlign)
    doc.WriteText("centered", True, 6, Align.Center)
    doc.WriteText("on the right", True, 6, Align.RightAlign)

    doc.SetColor(90, 90, 90)
    doc.SetFont(Font.Helvetica, 10, Style.Regular, Effect.NoFontEffect)
    doc.SetPosition(250, 300)                 # points from the top left corner inside the margins
    doc.WriteText("at 250, 300")
