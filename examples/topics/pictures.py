# SPDX-License-Identifier: MIT
"""Pictures: from a file, fitted into a box, transparent, from memory."""
import pathlib

from vellumark import PDF
from vellumark import EncodingConstants as Encoding
from vellumark import OrientationConstants as Orientation
from vellumark import PaperSizeConstants as Paper


PICTURES = pathlib.Path(__file__).parent.parent / "pictures"


with PDF(Conforming=True, PaperSize=Paper.A5, Orientation=Orientation.Landscape, Footer="") as doc:
    doc.Create("pictures.pdf")
    doc.NewPage(40, 40, 40, 40, 255, 255, 255)

    doc.DrawPicture(PICTURES / "landscape.jpg", encoding=Encoding.Original)

    doc.SetPictureDimensions(230, 200)      # fitted into a box, in proportion
    doc.PicturesEnlarged = True
    doc.SetPosition(0, 100)
    doc.DrawPicture(PICTURES / "landscape.gif", encoding=Encoding.Flate)

    doc.SetFillStyle(True)
    doc.SetFillColor(230, 190, 90)
    doc.DrawRectangle(300, 0, 215, 240)
    doc.SetPictureDimensions(100, 100)
    doc.SetPosition(357, 20)
    doc.DrawPicture(PICTURES / "landscape_alpha.png", encoding=Encoding.Flate)

    content = (PICTURES / "logo.png").read_bytes()
    doc.SetPosition(357, 115)
    doc.DrawPicture(content, hyperlink="https://example.org/", encoding=Encoding.Flate)
