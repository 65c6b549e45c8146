# SPDX-License-Identifier: MIT
"""Links and bookmarks: to the web, to places of the document, and an outline."""
from vellumark import PDF
from vellumark import FontNumberConstants as Font
from vellumark import FontStyleConstants as Style
from vellumark import FontEffectConstants as Effect
from vellumark import OrientationConstants as Orientation
from vellumark import PaperSizeConstants as Paper

with PDF(Conforming=True, PaperSize=Paper.A5, Orientation=Orientation.Landscape, Footer="") as doc:
    doc.Create("links.pdf")
    doc.NewPage(40, 40, 40, 40, 255, 255, 255)

    doc.SetFont(Font.Times, 20, Style.Bold, Effect.NoFontEffect)
    doc.WriteBookmark("Contents")
    doc.WriteText("Contents", True, 10)
    doc.SetFont(Font.Times, 14, Style.Regular, Effect.NoFontEffect)
    doc.SetColor(30, 60, 160)
    doc.WriteText("A chapter", True, 6, hyperlink="#chapter")  # an anchor that comes later
    doc.WriteText("example.org", True, 6, hyperlink="https://example.org/")

    doc.SetPosition(0, 180)
    doc.SetColor(0, 0, 0)
    doc.SetFont(Font.Times, 20, Style.Bold, Effect.NoFontEffect)
    doc.SetAnchor("chapter")
    doc.WriteBookmark("A chapter")        # what readers show beside the pages
    doc.WriteTitle("A chapter")
    doc.SetPosition(0, 210)
    doc.WriteBookmark("A section", 2)
    doc.SetFont(Font.Times, 14, Style.Regular, Effect.NoFontEffect)
    doc.WriteText("Readers show the outline beside the page.", True)
