# SPDX-License-Identifier: MIT
"""Fonts and characters: fourteen fonts, 315 Latin characters, symbols."""
from vellumark import PDF
from vellumark import FontNumberConstants as Font
from vellumark import FontStyleConstants as Style
from vellumark import FontEffectConstants as Effect
from vellumark import OrientationConstants as Orientation
from vellumark import PaperSizeConstants as Paper

with PDF(Conforming=True, PaperSize=Paper.A5, Orientation=Orientation.Landscape, Footer="") as doc:
    doc.Create("characters.pdf")
    doc.NewPage(40, 40, 40, 40, 255, 255, 255)

    doc.SetFont(Font.Times, 16, Style.Regular, Effect.NoFontEffect)
    doc.WriteText("Times: Łódź, Århus, Þingvellir, Győr, İzmir, Plzeň", True, 8)
    doc.SetFont(Font.Helvetica, 16, Style.Regular, Effect.NoFontEffect)
    doc.WriteText("Helvetica: “quoted” – 20 € – ½ – 30 °C – © – fi", True, 8)
    doc.SetFont(Font.Courier, 16, Style.Regular, Effect.NoFontEffect)
    doc.WriteText("Courier: if (a[0] != '\\') return;", True, 8)
    doc.SetFont(Font.Symbol, 16, Style.Regular, Effect.NoFontEffect)
    doc.WriteText("αβγδ ΑΒΓΔ → ∞ ∑ ≤ ≠ ∈", True, 8)
    doc.SetFont(Font.ZapfDingbats, 16, Style.Regular, Effect.NoFontEffect)
    doc.WriteText("✓ ✗ ★ ☎ ✂ ❶ ❷ ➔", True, 24)

    doc.SetFont(Font.Times, 16, Style.Regular, Effect.NoFontEffect)
    doc.WriteText("What a font lacks is a question mark: 東京", True)
