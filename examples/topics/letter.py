# SPDX-License-Identifier: MIT
"""A letter: sender, address, date and text."""
from vellumark import PDF
from vellumark import FontNumberConstants as Font
from vellumark import FontStyleConstants as Style
from vellumark import FontEffectConstants as Effect
from vellumark import AlignmentConstants as Align
from vellumark import PaperSizeConstants as Paper

with PDF(Conforming=True, PaperSize=Paper.A5, Footer="") as doc:
    doc.Create("letter.pdf")
    doc.NewPage(40, 40, 40, 40, 255, 255, 255)

    doc.SetFont(Font.Helvetica, 9, Style.Regular, Effect.NoFontEffect)
    doc.SetColor(90, 90, 90)
    doc.WriteText("Lindenhof Bindery – Sülzgasse 4 – 8300 Kirchberg", True, 14)
    doc.SetColor(0, 0, 0)
    doc.SetFont(Font.Times, 12, Style.Regular, Effect.NoFontEffect)
    for line in ("Bücherei Kirchberg", "Marktplatz 1", "8300 Kirchberg"):
        doc.WriteText(line, True, 2)
    doc.SetPosition(0, 130)
    doc.WriteText("Kirchberg, May 2, 2024", True, 20, Align.RightAlign)
    doc.SetPosition(0, 180)
    doc.SetFont(Font.Times, 12, Style.Bold, Effect.NoFontEffect)
    doc.WriteText("Your atlases", True, 12)
    doc.SetFont(Font.Times, 12, Style.Regular, Effect.NoFontEffect)
    doc.WriteMultiText("The atlases are bound. Please tell us when somebody is there to take them; "
                       "they weigh more than one person should carry.", 3, justified=True)
    doc.WriteText("", True, 8)
    doc.WriteText("Yours sincerely", True, 40)
    doc.WriteText("Anna Linden")
