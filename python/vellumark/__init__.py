# SPDX-License-Identifier: MIT
"""Printable documents without a printer driver: PDF 1.2 and PostScript.

    import vellumark

    with vellumark.PDF() as doc:
        doc.Title = "First page"
        if not doc.Create("first_page.pdf"):
            raise SystemExit(doc.LastRefusal)
        doc.NewPage(50, 50, 50, 50, 255, 255, 255)
        doc.WriteTitle("Hello from Vellumark")

Positions and sizes are whole points (1/72 inch) from the top left corner of the area inside the
margins. A drawing or writing method returns False if it refuses the call; LastRefusal then says
why. Nothing is written to the file before Flush, which the end of a with block calls. Only one
thread at a time may use a document.
"""
from ._documents import ENUMERATIONS, PDF, PS, Enumerations, RunTimeError, render
from ._documents import VERSION as __version__

globals().update(ENUMERATIONS)

__all__ = ["PDF", "PS", "Enumerations", "RunTimeError", "render", *ENUMERATIONS]
del ENUMERATIONS
