#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes docs/gallery.md and its pictures anew: each program of examples/topics beside its page.

usage: gallery.py PROGRAMS [--check]      PROGRAMS is the folder of the programs in C++

With --check nothing is written: a page of the gallery that is not what the programs say, and a
picture that is not what they draw, end it with a sentence.
"""
import os
import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import zlib

ROOT = pathlib.Path(__file__).resolve().parent.parent
TOPICS = ROOT / "examples" / "topics"
PAGE = ROOT / "docs" / "gallery.md"
PICTURES = ROOT / "docs" / "pictures" / "gallery"
ORDER = """text paragraphs shapes characters pictures links heads table labels form chart letter
certificate web_answer units""".split()
EDGE = bytes((170, 170, 170))
PIXELS_PER_INCH = 80
INTRODUCTION = """# Gallery

A page for each topic, and the program that makes it, in C++ and in Python: whole programs, as they
lie in [examples/topics](../examples/topics/text.cpp). The two make the same bytes, which a test
compares, and this page is made from them by `./dev gallery`. Paper is A5; all positions are points,
1/72 inch, from the top left corner inside the margins ([units.md](units.md) has a drawing of it).

"""


def document(programs, topic, folder):
    """What the program writes, at a fixed moment."""
    done = subprocess.run([programs / topic], cwd=folder, check=True, capture_output=True,
                          env=dict(os.environ, SOURCE_DATE_EPOCH="1000000000"))
    path = folder / f"{topic}.pdf"
    if not path.exists():        # it answers on standard output, behind a head
        path.write_bytes(done.stdout.partition(b"\n\n")[2])
    return path


def pixels(path):
    """Width, height and RGB samples of the first page, with a gray edge."""
    image = subprocess.run(["pdftoppm", "-r", str(PIXELS_PER_INCH), "-f", "1", "-l", "1", path],
                           check=True, capture_output=True).stdout
    head = re.match(rb"P6\s+(\d+)\s+(\d+)\s+255\s", image)
    width, height = int(head[1]), int(head[2])
    samples, row = image[head.end():], 3 * width
    rows = [EDGE + samples[at + 3:at + row - 3] + EDGE
            for at in range(0, len(samples), row)]
    rows[0] = rows[-1] = EDGE * width
    return width, height, rows


def png(width, height, rows):
    def chunk(kind, content):
        return (struct.pack(">I", len(content)) + kind + content
                + struct.pack(">I", zlib.crc32(kind + content)))

    colors = sorted({row[at:at + 3] for row in rows for at in range(0, len(row), 3)})
    if len(colors) <= 256:
        numbers = {color: number for number, color in enumerate(colors)}
        rows = [bytes(numbers[row[at:at + 3]] for at in range(0, len(row), 3)) for row in rows]
        kind, palette = 3, chunk(b"PLTE", b"".join(colors))
    else:
        kind, palette = 2, b""
    data = zlib.compress(b"".join(b"\0" + row for row in rows), 9)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, kind, 0, 0, 0))
            + palette + chunk(b"IDAT", data) + chunk(b"IEND", b""))


def samples_of(content):
    """The RGB samples of a PNG that png() made."""
    chunks, at = {}, 8
    while at < len(content):
        size, = struct.unpack_from(">I", content, at)
        chunks[content[at + 4:at + 8]] = content[at + 8:at + 8 + size]
        at += 12 + size
    width, height = struct.unpack_from(">II", chunks[b"IHDR"])
    palette = chunks.get(b"PLTE")
    row = width if palette else 3 * width
    data = zlib.decompress(chunks[b"IDAT"])
    rows = [data[at + 1:at + 1 + row] for at in range(0, len(data), row + 1)]
    if palette:
        rows = [b"".join(palette[3 * number:3 * number + 3] for number in row) for row in rows]
    return width, height, rows


def differ(left, right):
    """Whether two pictures differ by more than readers of another version draw otherwise."""
    if left[:2] != right[:2]:
        return True
    both = zip(b"".join(left[2]), b"".join(right[2]))
    return sum(abs(a - b) > 48 for a, b in both) > 0.01 * 3 * left[0] * left[1]


def shown(path):
    """A program without its license line and, in C++, without the marks of a comment."""
    text = path.read_text(encoding="utf-8").partition("\n")[2]
    return text.removeprefix("//\n")


def page():
    parts = [INTRODUCTION]
    for topic in ORDER:
        about = re.search(r'"""(.*)\.', (TOPICS / f"{topic}.py").read_text(encoding="utf-8"))[1]
        title, _, more = about.partition(": ")
        parts.append(f"## {title}\n\n{more[0].upper()}{more[1:]}.\n\n"
                     f"![{title}](pictures/gallery/{topic}.png)\n\n")
        for language, ending in (("cpp", "cpp"), ("python", "py")):
            code = shown(TOPICS / f"{topic}.{ending}")
            code = code.partition("\n")[2].lstrip("\n") if ending == "cpp" else code.partition("\n")[2]
            parts.append(f"```{language}\n{code}```\n\n")
    return "".join(parts).rstrip("\n") + "\n"


def main():
    programs, check = pathlib.Path(sys.argv[1]).resolve(), "--check" in sys.argv
    if sorted(ORDER) != sorted(path.stem for path in TOPICS.glob("*.cpp")):
        raise SystemExit("scripts/gallery.py: ORDER does not name the topics that there are")
    faults = []
    if not check:
        PAGE.write_text(page(), encoding="utf-8")
        PICTURES.mkdir(parents=True, exist_ok=True)
    elif PAGE.read_text(encoding="utf-8") != page():
        faults.append(f"{PAGE.name} is not what examples/topics says")
    with tempfile.TemporaryDirectory() as folder:
        for topic in ORDER:
            drawn = pixels(document(programs, topic, pathlib.Path(folder)))
            path = PICTURES / f"{topic}.png"
            if not check:
                path.write_bytes(png(*drawn))
            elif not path.exists() or differ(drawn, samples_of(path.read_bytes())):
                faults.append(f"{path.name} is not what {topic}.cpp draws")
    if faults:
        raise SystemExit("; ".join(faults) + ": run ./dev gallery, and look at what changed")


if __name__ == "__main__":
    main()
