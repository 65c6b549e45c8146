# SPDX-License-Identifier: MIT
"""Headers and footers: on every page, with its number."""
from vellumark import PDF
from vellumark import FontNumberConstants as Font
from vellumark import FontStyleConstants as Style
from vellumark import FontEffectConstants as Effect
from vellumark import OrientationConstants as Orientation
from vellumark import PaperSizeConstants as Paper

with PDF(Conforming=True, PaperSize=Paper.A5, Orientation=Orientation.Landscape, Footer="Page {page} of {pages}") as doc:
    doc.Create("heads.pdf")
    doc.NewPage(40, 40, 40, 40, 255, 255, 255)

    doc.Header = "Minutes of the general meeting"
    doc.SetFont(Font.Times, 14, Style.Regular, Effect.NoFontEffect)
    for item in range(1, 41):
        # A paragraph that does not fit goes on on the next page.
        doc.WriteMultiText(f"Item {item}: agreed.", 4)
