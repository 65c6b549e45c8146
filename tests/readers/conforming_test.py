#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Conforming PDF documents full of hostile arguments: every reader takes them without a word, every
character comes back, and the files keep the rules of the format.

usage: conforming_test.py CONFORMING_DOCUMENTS_PROGRAM GLYPHS_FOLDER [COUNT]

Some documents of a kind and COUNT that are made at random (tests/readers/conforming_documents.cpp).
"""
import collections
import concurrent.futures
import pathlib
import re
import subprocess
import sys
import tempfile
import unicodedata
import unittest
import urllib.parse

from pdf_file import NULL, Name, PdfFile, Reference, Stream, operations

PROGRAM, GLYPHS = sys.argv[1], pathlib.Path(sys.argv[2])
COUNT = sys.argv[3] if len(sys.argv) > 3 else "30"
REPLACEMENT = "\uFFFD"
NO_BREAK_SPACE = "\u00A0"

# How a reader gives a character back otherwise than as itself, and why.
GIVEN_BACK = {
    "pdftotext": {},
    "mutool": {"\uFB01": "fi", "\uFB02": "fl"},  # it takes ligatures apart
}
# What readers say about every file, whatever is in it.
KNOWN_NOISE = {"mutool": ["warning: ICC support is not available"]}  # Debian builds it so

KEYS = {  # the keys of each kind of dictionary
    "Catalog": {"Type", "Pages", "Outlines", "PageMode", "Names"},
    "Outlines": {"Type", "First", "Last", "Count"},
    "Pages": {"Type", "Count", "Kids", "Parent", "MediaBox"},
    "Page": {"Type", "Parent", "Resources", "Contents", "Annots", "Rotate"},
    "Annot": {"Type", "Subtype", "A", "Border", "C", "Rect"},
    "Font": {"Type", "Subtype", "BaseFont", "Encoding", "ToUnicode", "FirstChar", "LastChar",
             "Widths", "FontDescriptor"},
    "FontDescriptor": {"Type", "FontName", "Flags", "FontBBox", "ItalicAngle", "Ascent", "Descent",
                       "CapHeight", "StemV"},
    "Encoding": {"Type", "BaseEncoding", "Differences"},
    "XObject": {"Type", "Subtype", "Width", "Height", "BitsPerComponent", "ColorSpace", "Filter",
                "DecodeParms", "Decode", "Length", "SMask"},
    None: {"Length", "Filter", "Font", "XObject",
           "Author", "CreationDate", "Creator", "Producer", "Title", "Subject", "Keywords"},
}
OPERANDS = {  # of each operator
    "q": "", "Q": "", "BT": "", "ET": "", "S": "", "s": "", "f": "", "B": "", "b": "",
    "w": "n", "d": "an", "g": "n", "G": "n", "rg": "nnn", "RG": "nnn", "m": "nn", "l": "nn",
    "re": "nnnn", "c": "nnnnnn", "cm": "nnnnnn", "Do": "N", "Tf": "Nn", "TD": "nn", "T*": "", "Tj": "s",
    "'": "s", "TJ": "a",
}


def glyphs(name, column):
    """The rows of a table in layout/glyphs, split into fields."""
    lines = (GLYPHS / name).read_text(encoding="utf-8").splitlines()
    rows = [line.split("#")[0].split() for line in lines]
    return [(chr(int(row[column], 16)), row) for row in rows if row]


LATIN = {character for character, _ in glyphs("latin.txt", 0)}
CODES = {font: {int(row[0]): character for character, row in glyphs(file, 2)}
         for font, file in (("Symbol", "symbol.txt"), ("ZapfDingbats", "zapfdingbats.txt"))}


def glyph_of(character, font):
    """The character that a font shows for one; None if it has none."""
    if font == "Latin":
        return character if character in LATIN else None
    codes = CODES[font]
    if ord(character) in codes and character != NO_BREAK_SPACE:
        return codes[ord(character)]
    return character if character in codes.values() else None


INVISIBLE = re.compile("[\t-\r\x85\u034F\u061C\u180B-\u180F\u200B-\u200F\u202A-\u202E"
                       "\u2060-\u206F\uFE00-\uFE0F\uFEFF\U000E0000-\U000E0FFF]")


def shows_nothing(character):
    return (unicodedata.category(character) in ("Zs", "Zl", "Zp") or
            INVISIBLE.match(character) is not None)


def composed(text):
    """Letters together with the marks behind them, where Latin fonts have them as one."""
    result = []
    for character in text:
        together = unicodedata.normalize("NFC", result[-1] + character) if result else ""
        if 0x300 <= ord(character) <= 0x36F and len(together) == 1 and together in LATIN:
            result[-1] = together
        else:
            result.append(character)
    return result


def shown(text, font):
    """What readers show of a text, without blanks, and what of it is lost."""
    characters, lost = [], []
    for character in composed(text.decode("utf-8", "replace")):
        glyph = glyph_of(character, font)
        if glyph is None and not shows_nothing(character):
            lost.append(character)
            glyph = "?" if font != "ZapfDingbats" else None
        if glyph and not glyph.isspace():
            characters.append(glyph)
    return "".join(characters), lost


def expanded(head, page, pages):
    """A header or footer with the numbers of pages put in."""
    values = {b"{page}": page, b"{pages}": pages, b"{{": b"{"}
    return re.sub(rb"\{\{|\{pages?\}", lambda found: values[found[0]], head)


class Record:
    """What the program wrote into a document."""

    def __init__(self, path):
        lines = [line.split(" ") for line in path.with_suffix(".record").read_text().splitlines()]
        facts = [(kind, bytes.fromhex(data)) for kind, data in lines]
        texts = [shown(data, kind) for kind, data in facts if kind in ("Latin", *CODES)]
        heads = [head.partition(b" ") for kind, head in facts if kind == "Head"]
        pages = max((page for page, _, _ in heads), key=int, default=b"1")
        self.heads = [shown(expanded(head, page, pages), "Latin") for page, _, head in heads]
        self.text = "".join(text for text, _ in texts + self.heads)
        self.expected_lost = "".join(
            dict.fromkeys(c for _, lost in texts + self.heads for c in lost))
        self.lost = dict(facts)["Lost"].decode("utf-8")
        self.bookmarks = [data.split(b" ", 2) for kind, data in facts if kind == "Bookmark"]
        self.anchors = dict(data.split(b" ", 1)[::-1] for kind, data in facts if kind == "Anchor")
        self.missing = dict(facts).get("Missing")
        self.links = [data for kind, data in facts if kind == "Link"]
        self.properties = {kind: data for kind, data in facts if kind in KEYS[None]}


def read(*command):
    """Standard output of a reader, which must be silent otherwise, and succeed."""
    done = subprocess.run([str(word) for word in command], check=False, capture_output=True)
    complaints = [line for line in done.stderr.decode("utf-8", "replace").splitlines()
                  if line not in KNOWN_NOISE.get(command[0], ())]
    assert not complaints and done.returncode == 0, (command, done.returncode, complaints[:5])
    return done.stdout.decode("utf-8", "replace")


def without_blanks(text):
    return "".join(text.split())


def check_texts(path, record):
    for tool, text in (("pdftotext", read("pdftotext", "-raw", path, "-")),
                       ("mutool", read("mutool", "draw", "-q", "-F", "txt", path))):
        expected = "".join(GIVEN_BACK[tool].get(c, c) for c in record.text)
        got, wanted = (collections.Counter(s) for s in (without_blanks(text), expected))
        assert got == wanted, (tool, "lacks", wanted - got, "has", got - wanted)


def check_readers(path):
    checked = read("qpdf", "--check", path)
    assert "No syntax or stream encoding errors found" in checked, checked
    read("pdffonts", path)
    read("pdftoppm", "-r", "20", "-gray", path, path)
    said = read("gs", "-q", "-dNOPAUSE", "-dBATCH", "-dSAFER", "-sDEVICE=nullpage", path)
    assert said == "", said
    said = read("mutool", "draw", "-q", "-r", "20", "-F", "pgm", "-o", path.with_suffix(".pgm"), path)
    assert said == "", said


def decoded(string):
    if string.startswith(b"\xFE\xFF"):
        return string[2:].decode("utf-16-be")
    return string.decode("ascii")


def check_dictionary(value):
    if isinstance(value, dict):
        kind = value.get("Type")
        assert set(value) <= KEYS[kind] or kind is None, value
    elif isinstance(value, Stream) and "Type" in value.dictionary:
        check_dictionary(value.dictionary)
    elif isinstance(value, Stream):
        assert set(value.dictionary) <= {"Length", "Filter"}, value.dictionary


def check_pages(file, node, parent):
    """Pages below a node of the tree, which counts them."""
    dictionary = file.get(node)
    assert dictionary.get("Parent") == parent
    if dictionary["Type"] == "Page":
        return [dictionary]
    assert len(dictionary["Kids"]) <= 32
    pages = [page for kid in dictionary["Kids"] for page in check_pages(file, kid, node)]
    assert dictionary["Count"] == len(pages) > 0
    return pages


def check_operations(data, resources):
    kinds = {int: "n", float: "n", bytes: "s", list: "a", Name: "N"}
    saved, in_text, path = 0, False, False
    for operator, operands in operations(data):
        assert "".join(kinds[type(o)] for o in operands) == OPERANDS[operator], (operator, operands)
        assert in_text == (operator in ("ET", "Tf", "TD", "T*", "Tj", "'", "TJ")) or (
            in_text and operator in ("g", "rg")) or operator == "BT" and not in_text, operator
        assert path == (operator in ("l", "c", "S", "s", "f", "B", "b")) or (
            operator in ("m", "re") and not path), operator
        in_text = in_text and operator != "ET" or operator == "BT"
        path = operator in ("m", "re", "l", "c")
        saved += {"q": 1, "Q": -1}.get(operator, 0)
        assert saved >= 0
        if operator in ("Tf", "Do"):
            assert operands[0] in resources["Font" if operator == "Tf" else "XObject"]
        if operator == "TJ":
            assert all(isinstance(part, (int, bytes)) for part in operands[0])
        if operator == "d":
            assert all(isinstance(part, (int, float)) and part >= 0 for part in operands[0])
            assert not operands[0] or any(operands[0])
    assert saved == 0 and not in_text and not path


def place(file, pages, destination):
    """The number of the page that a destination leads to."""
    page, kind, x, y, zoom = destination
    assert kind == "XYZ" and isinstance(x, int) and isinstance(y, int) and zoom is NULL
    return b"%d" % (1 + pages.index(file.get(page)))


def check_bookmarks(file, pages, root, record):
    """The outline is a tree whose links agree, and its entries are those that were written."""
    found = []

    def check_kids(node, level):
        """The number of the entries below a node."""
        dictionary = file.get(node)
        if "First" not in dictionary:
            assert not {"Last", "Count"} & set(dictionary)
            return 0
        count, previous, kid = 0, None, dictionary["First"]
        while kid is not None:
            entry = file.get(kid)
            assert entry["Parent"] == node and entry.get("Prev") == previous
            found.append((place(file, pages, entry["Dest"]), b"%d" % level, decoded(entry["Title"])))
            count += 1 + check_kids(kid, level + 1)
            previous, kid = kid, entry.get("Next")
        assert dictionary["Last"] == previous and dictionary["Count"] == count
        return count

    if root is not None:
        check_kids(root, 1)
    assert found == [(page, level, text.decode("utf-8", "replace").replace("\x1B", REPLACEMENT))
                     for page, level, text in record.bookmarks]


def check_anchors(file, pages, names, record):
    """The anchors that links lead to, in order."""
    linked = {link[1:] for link in record.links if link.startswith(b"#") and link != b"#"}
    assert (record.missing is not None) == bool(linked - set(record.anchors))
    listed = names["Dests"]["Names"] if names else []
    assert listed[::2] == sorted(linked)
    for name, destination in zip(listed[::2], listed[1::2]):
        page = place(file, pages, destination)
        assert page == record.anchors.get(name, page)


def check_format(path, record):
    file = PdfFile(path)
    for value in file.objects.values():
        check_dictionary(value)
    assert set(file.trailer) == {"Size", "Info", "Root", "ID"}
    assert len(file.trailer["ID"]) == 2 and all(len(part) == 16 for part in file.trailer["ID"])
    information = file.get(file.trailer["Info"])
    for name, text in record.properties.items():
        expected = text.decode("utf-8", "replace").replace("\x1B", REPLACEMENT)
        assert decoded(information.get(name, b"")) == expected, (name, expected)
    links = []
    catalog = file.get(file.trailer["Root"])
    pages = check_pages(file, catalog["Pages"], None)
    check_bookmarks(file, pages, catalog.get("Outlines"), record)
    for page in pages:
        resources = file.get(page["Resources"])
        for annotation in page.get("Annots", []):
            links.append(file.get(annotation)["A"])
        for content in page.get("Contents", []):
            check_operations(file.get(content).data, resources)
    check_anchors(file, pages, catalog.get("Names"), record)
    for action, link in zip(links, record.links, strict=True):
        if link.startswith(b"#") and link != b"#":
            assert action == {"S": "GoTo", "D": link[1:]}, (action, link)
            continue
        written = action["URI"]
        assert re.fullmatch(rb"[!-~]+", written), written
        assert urllib.parse.unquote_to_bytes(written) == urllib.parse.unquote_to_bytes(link)


def check(path):
    record = Record(path)
    different = set(record.lost) ^ set(record.expected_lost)
    assert not different, ("lost otherwise than expected", ascii("".join(sorted(different))))
    if not any(lost for _, lost in record.heads):
        assert record.lost == record.expected_lost, "each once, in the order of appearance"
    check_format(path, record)
    check_texts(path, record)
    check_readers(path)


class Conforming(unittest.TestCase):
    def test_every_document(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([PROGRAM, folder, COUNT], check=True, stderr=subprocess.DEVNULL)
            paths = sorted(pathlib.Path(folder).glob("*.pdf"))
            self.assertGreater(len(paths), int(COUNT))
            with concurrent.futures.ProcessPoolExecutor() as pool:
                checks = {path.name: pool.submit(check, path) for path in paths}
                for name, done in checks.items():
                    with self.subTest(name):
                        done.result()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
