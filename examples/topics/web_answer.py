# SPDX-License-Identifier: MIT
"""A web answer: a document in memory, with no file."""
import sys

import vellumark
from vellumark import FontNumberConstants as Font
from vellumark import FontStyleConstants as Style
from vellumark import FontEffectConstants as Effect


def draw(doc):
    doc.Conforming = True
    doc.PaperSize = vellumark.PaperSizeConstants.A5
    doc.Orientation = vellumark.OrientationConstants.Landscape
    doc.Footer = ""
    doc.Create("answer.pdf")
    doc.NewPage(40, 40, 40, 40, 255, 255, 255)
    doc.SetFont(Font.Helvetica, 20, Style.Bold, Effect.NoFontEffect)
    doc.WriteText("Receipt 4711", True, 12)
    doc.SetFont(Font.Helvetica, 14, Style.Regular, Effect.NoFontEffect)
    doc.WriteText("Paid with thanks: 12.50 €")


answer = vellumark.render(vellumark.PDF, draw)      # what a web server sends
head = f"Content-Type: application/pdf\nContent-Length: {len(answer)}\n\n"
sys.stdout.buffer.write(head.encode() + answer)
