#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the fonts of the tests, boxes.ttf and boxes.otf, with fonttools (python3-fonttools).

A glyph is a box of its own height; the widths are round numbers, so that expectations can be worked
out by hand (1000 units per em):

    blank 250    A to Z, a to z, "?", "-", "(", ")", digits: 500    V after A: 100 less
    fi: one glyph of 800 for "fi"        U+0301 on A: 0 wide, where A ends, 100 higher
    alef, bet 600 (Hebrew)               ka 700, sign i 300: the sign stands before its letter
    han 1000: U+6F22 and U+5B57, full stop U+3002
"""
import pathlib

from fontTools.feaLib.builder import addOpenTypeFeaturesFromString
from fontTools.fontBuilder import FontBuilder
from fontTools.pens.t2CharStringPen import T2CharStringPen
from fontTools.pens.ttGlyphPen import TTGlyphPen

HERE = pathlib.Path(__file__).parent
FEATURES = """
languagesystem DFLT dflt;
languagesystem latn dflt;
feature liga { sub f i by fi; } liga;
feature kern { pos A V -100; } kern;
markClass acutecomb <anchor 200 600> @top;
feature mark { pos base A <anchor 200 700> mark @top; } mark;
"""


def glyphs():
    characters = {".notdef": (None, 500), "space": (0x20, 250)}
    for code in [*range(0x30, 0x3A), *range(0x41, 0x5B), *range(0x61, 0x7B)]:
        name = chr(code) if chr(code).isalpha() else f"digit{chr(code)}"
        characters[name] = (code, 500)
    characters |= {"question": (0x3F, 500), "hyphen": (0x2D, 500), "parenleft": (0x28, 500),
                   "parenright": (0x29, 500), "fi": (None, 800), "acutecomb": (0x301, 0),
                   "alef": (0x5D0, 600), "bet": (0x5D1, 600), "ka": (0x915, 700),
                   "signi": (0x93F, 300), "han1": (0x6F22, 1000), "han2": (0x5B57, 1000),
                   "fullstop": (0x3002, 1000), "be": (0x431, 500)}
    return characters


def draw(pen, order, width):
    if order == 1:
        return  # the blank
    left, right, top = 50, max(width, 200) - 50, 300 + 7 * order
    pen.moveTo((left, 0))
    pen.lineTo((left, top))
    pen.lineTo((right, top))
    pen.lineTo((right, 0))
    pen.closePath()


def make(path, cff):
    characters = glyphs()
    builder = FontBuilder(1000, isTTF=not cff)
    builder.setupGlyphOrder(list(characters))
    builder.setupCharacterMap({code: name for name, (code, _) in characters.items() if code})
    drawn = {}
    for order, (name, (_, width)) in enumerate(characters.items()):
        pen = T2CharStringPen(width, None) if cff else TTGlyphPen(None)
        draw(pen, order, width)
        drawn[name] = pen.getCharString() if cff else pen.glyph()
    if cff:
        builder.setupCFF("Boxes-Regular", {"FullName": "Boxes"}, drawn, {})
    else:
        builder.setupGlyf(drawn)
    builder.setupHorizontalMetrics({name: (width, 50) for name, (_, width) in characters.items()})
    builder.setupHorizontalHeader(ascent=800, descent=-200)
    builder.setupNameTable({"familyName": "Boxes", "styleName": "Regular", "psName": "Boxes-Regular"})
    builder.setupOS2(sTypoAscender=800, sCapHeight=700, fsType=0)
    builder.setupPost()
    addOpenTypeFeaturesFromString(builder.font, FEATURES)
    builder.font["head"].created = builder.font["head"].modified = 0
    builder.font.recalcTimestamp = False
    builder.save(path)


if __name__ == "__main__":
    make(HERE / "boxes.ttf", cff=False)
    make(HERE / "boxes.otf", cff=True)
